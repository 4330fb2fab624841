// The language in which the program speaks: English, unless another one was asked for.
#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>
#include <optional>

namespace brovanta {

/// The codes of the languages that can be asked for, in their order: "de", "en".
[[nodiscard]] QStringList KnownLanguages();

/// The language that is meant by a word of the command line: a code, with or without a country
/// ("de", "de_AT"), or "system" for the first language of the user's locale that is known, with its
/// country, English if there is none. Nothing where the word names a language that is not known.
/// `of_user` are the languages of the user's locale.
[[nodiscard]] std::optional<QString> LanguageFor(
    const QString& asked, const QStringList& of_user = QLocale::system().uiLanguages());

/// Shows everything that comes from now on in this language, one of the known ones with or without
/// a country, together with what the toolkit says itself; dates have the forms of the country. "en"
/// is the program's own, American. What is on the screen already stays. Needs a QCoreApplication;
/// the user-interface thread's.
void SpeakLanguage(const QString& language);

/// Whether the program speaks another language than English, its own.
[[nodiscard]] bool SpeaksTranslated();

/// How dates are written where no other form is prescribed; American English at first. The locale
/// of the user has no say in it unless it was asked for. Numbers have a point in every language.
[[nodiscard]] const QLocale& SpokenLocale();

/// Whether dates have the forms that are documented: no other language or country was asked for.
[[nodiscard]] bool HasDocumentedDates();

/// How a day is shown in short, "M/d/yyyy", and how it is entered, "MM/dd/yyyy": in the order of
/// SpokenLocale().
[[nodiscard]] QString ShortDateForm();
[[nodiscard]] QString DateEntryForm();

}  // namespace brovanta

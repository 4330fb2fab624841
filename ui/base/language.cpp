#include "ui/base/language.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QTranslator>
#include <utility>

/// The translations lie in a static library, where the linker would drop what nobody mentions. The
/// macro does not work inside a namespace.
static void RegisterTranslations() {
  static const bool kRegistered = [] {
    Q_INIT_RESOURCE(translations);
    return true;
  }();
  Q_UNUSED(kRegistered);
}

namespace brovanta {

namespace {

const QString kFolder = QStringLiteral(":/brovanta/translations/");
const QString kFileStart = QStringLiteral("brovanta_");
const QString kFileEnd = QStringLiteral(".qm");
const QString kEnglish = QStringLiteral("en");

QLocale EnglishLocale() { return {QLocale::English, QLocale::UnitedStates}; }

struct Speech {
  QLocale locale = EnglishLocale();
  bool translated = false;
  QTranslator* program = nullptr;  // both belong to the application
  QTranslator* toolkit = nullptr;
};

Speech& Current() {
  static Speech speech;
  return speech;
}

/// "de" of "de", "de_AT" and "de-AT.UTF-8"; empty for what is no language.
QString CodeOf(const QString& name) {
  static const QRegularExpression kForm(QStringLiteral("^([a-z]{2,3})([_.@-].*)?$"));
  const QRegularExpressionMatch match = kForm.match(name);
  return match.hasMatch() ? match.captured(1) : QString();
}

void Install(QTranslator*& translator, const QString& file, const QString& folder) {
  translator = new QTranslator(QCoreApplication::instance());
  // Without its translation the toolkit goes on in English.
  if (translator->load(file, folder)) QCoreApplication::installTranslator(translator);
}

/// The short date of the locale with the year in full; day and month as they are asked for.
QString LocalesForm(const QString& day, const QString& month) {
  static const QRegularExpression kDay(QStringLiteral("d+"));
  static const QRegularExpression kMonth(QStringLiteral("M+"));
  static const QRegularExpression kYear(QStringLiteral("y+"));
  QString form = Current().locale.dateFormat(QLocale::ShortFormat);
  return form.replace(kDay, day).replace(kMonth, month).replace(kYear, QStringLiteral("yyyy"));
}

}  // namespace

QStringList KnownLanguages() {
  RegisterTranslations();
  QStringList codes{kEnglish};
  const QStringList files =
      QDir(kFolder).entryList({kFileStart + QLatin1Char('*') + kFileEnd}, QDir::Files);
  for (const QString& file : files) {
    codes << file.mid(kFileStart.size(), file.size() - kFileStart.size() - kFileEnd.size());
  }
  codes.sort();
  return codes;
}

std::optional<QString> LanguageFor(const QString& asked, const QStringList& of_user) {
  const QStringList known = KnownLanguages();
  if (asked != QLatin1String("system")) {
    return known.contains(CodeOf(asked)) ? std::optional(asked) : std::nullopt;
  }
  for (const QString& name : of_user) {
    if (known.contains(CodeOf(name))) return name;
  }
  return kEnglish;
}

void SpeakLanguage(const QString& language) {
  RegisterTranslations();
  Speech& speech = Current();
  delete std::exchange(speech.program, nullptr);
  delete std::exchange(speech.toolkit, nullptr);
  const QString code = CodeOf(language);
  speech.translated = code != kEnglish;
  speech.locale = language == kEnglish ? EnglishLocale() : QLocale(language);
  if (!speech.translated) return;
  Install(speech.toolkit, QStringLiteral("qtbase_") + code,
          QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  Install(speech.program, kFileStart + code, kFolder);
}

bool SpeaksTranslated() { return Current().translated; }

const QLocale& SpokenLocale() { return Current().locale; }

bool HasDocumentedDates() { return Current().locale == EnglishLocale(); }

QString ShortDateForm() { return LocalesForm(QStringLiteral("d"), QStringLiteral("M")); }

QString DateEntryForm() { return LocalesForm(QStringLiteral("dd"), QStringLiteral("MM")); }

}  // namespace brovanta

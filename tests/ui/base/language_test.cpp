#include "ui/base/language.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "tests/support/german.h"

namespace brovanta {
namespace {

QString Cancel() { return QCoreApplication::translate("FindForm", "Cancel"); }

QString ToolkitsCancel() { return QCoreApplication::translate("QPlatformTheme", "Cancel"); }

TEST(LanguageTest, GermanAndEnglishAreKnown) {
  EXPECT_EQ(KnownLanguages(), QStringList({QStringLiteral("de"), QStringLiteral("en")}));
}

TEST(LanguageTest, ALanguageIsMeantWithOrWithoutACountry) {
  for (const char* const asked : {"de", "de_AT", "de-CH", "de_DE.UTF-8", "en", "en_GB"}) {
    EXPECT_EQ(LanguageFor(QLatin1String(asked)), QLatin1String(asked));
  }
  for (const char* const asked : {"", "fr", "deutsch", "d", "DE", "../de", "de*"}) {
    EXPECT_EQ(LanguageFor(QLatin1String(asked)), std::nullopt) << asked;
  }
}

TEST(LanguageTest, SystemIsTheFirstKnownLanguageOfTheUser) {
  const auto system = [](const QStringList& of_user) {
    return LanguageFor(QStringLiteral("system"), of_user).value_or(QString()).toStdString();
  };
  EXPECT_EQ(system({QStringLiteral("de-AT"), QStringLiteral("de")}), "de-AT");
  EXPECT_EQ(system({QStringLiteral("fr-FR"), QStringLiteral("de-DE")}), "de-DE");
  EXPECT_EQ(system({QStringLiteral("en-GB"), QStringLiteral("de")}), "en-GB");
  EXPECT_EQ(system({QStringLiteral("fr")}), "en");
  EXPECT_EQ(system({QStringLiteral("C")}), "en");
  EXPECT_EQ(system({}), "en");
}

TEST(LanguageTest, TheProgramSpeaksEnglishUnlessAnotherLanguageIsAskedFor) {
  EXPECT_FALSE(SpeaksTranslated());
  EXPECT_EQ(Cancel(), QStringLiteral("Cancel"));
  EXPECT_EQ(SpokenLocale(), QLocale(QLocale::English, QLocale::UnitedStates));
}

TEST(LanguageTest, ProgramAndToolkitSpeakTheLanguageThatIsAskedFor) {
  const test::German german;
  EXPECT_TRUE(SpeaksTranslated());
  EXPECT_EQ(Cancel(), QStringLiteral("Abbrechen"));
  EXPECT_EQ(ToolkitsCancel(), QStringLiteral("Abbrechen"));
  EXPECT_EQ(SpokenLocale().language(), QLocale::German);
}

TEST(LanguageTest, EnglishTakesAllOfItBack) {
  { const test::German german; }
  EXPECT_FALSE(SpeaksTranslated());
  EXPECT_EQ(Cancel(), QStringLiteral("Cancel"));
  EXPECT_EQ(ToolkitsCancel(), QStringLiteral("Cancel"));
  EXPECT_EQ(SpokenLocale().language(), QLocale::English);
}

/// "shown, entered" in a language that was asked for.
std::string DateForms(const char* language) {
  SpeakLanguage(QLatin1String(language));
  const QString forms = ShortDateForm() + QStringLiteral(", ") + DateEntryForm();
  SpeakLanguage(QStringLiteral("en"));
  return forms.toStdString();
}

TEST(LanguageTest, DatesHaveTheOrderOfTheCountryThatIsAskedFor) {
  EXPECT_EQ(DateForms("en"), "M/d/yyyy, MM/dd/yyyy");
  EXPECT_EQ(DateForms("en_US"), "M/d/yyyy, MM/dd/yyyy");
  EXPECT_EQ(DateForms("en_GB"), "d/M/yyyy, dd/MM/yyyy");
  EXPECT_EQ(DateForms("en-GB.UTF-8"), "d/M/yyyy, dd/MM/yyyy");
  EXPECT_EQ(DateForms("en_CA"), "yyyy-M-d, yyyy-MM-dd");
  EXPECT_EQ(DateForms("de"), "d.M.yyyy, dd.MM.yyyy");
  EXPECT_EQ(DateForms("de_AT"), "d.M.yyyy, dd.MM.yyyy");
}

TEST(LanguageTest, ACountryIsKeptWithItsLanguage) {
  EXPECT_TRUE(HasDocumentedDates());
  SpeakLanguage(QStringLiteral("de_AT"));
  EXPECT_EQ(SpokenLocale(), QLocale(QLocale::German, QLocale::Austria));
  EXPECT_EQ(Cancel(), QStringLiteral("Abbrechen"));
  EXPECT_FALSE(HasDocumentedDates());
  SpeakLanguage(QStringLiteral("en_GB"));
  EXPECT_EQ(SpokenLocale(), QLocale(QLocale::English, QLocale::UnitedKingdom));
  EXPECT_EQ(Cancel(), QStringLiteral("Cancel"));
  EXPECT_FALSE(SpeaksTranslated());
  EXPECT_FALSE(HasDocumentedDates());
  SpeakLanguage(QStringLiteral("en"));
  EXPECT_TRUE(HasDocumentedDates());
}

}  // namespace
}  // namespace brovanta

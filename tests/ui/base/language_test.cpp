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
  for (const char* const asked : {"de", "de_AT", "de-CH", "de_DE.UTF-8"}) {
    EXPECT_EQ(LanguageFor(QLatin1String(asked)), QStringLiteral("de")) << asked;
  }
  EXPECT_EQ(LanguageFor(QStringLiteral("en_GB")), QStringLiteral("en"));
  for (const char* const asked : {"", "fr", "deutsch", "d", "DE", "../de", "de*"}) {
    EXPECT_EQ(LanguageFor(QLatin1String(asked)), std::nullopt) << asked;
  }
}

TEST(LanguageTest, SystemIsTheFirstKnownLanguageOfTheUser) {
  const auto system = [](const QStringList& of_user) {
    return LanguageFor(QStringLiteral("system"), of_user).value_or(QString()).toStdString();
  };
  EXPECT_EQ(system({QStringLiteral("de-AT"), QStringLiteral("de")}), "de");
  EXPECT_EQ(system({QStringLiteral("fr-FR"), QStringLiteral("de-DE")}), "de");
  EXPECT_EQ(system({QStringLiteral("en-US"), QStringLiteral("de")}), "en");
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

}  // namespace
}  // namespace brovanta

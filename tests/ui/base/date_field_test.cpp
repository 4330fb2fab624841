#include "ui/base/date_field.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QDateEdit>
#include <QLocale>
#include <QTest>
#include <utility>

#include "tests/support/fixed_clock.h"
#include "tests/support/german.h"
#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

constexpr std::int64_t kNow = 1795257000;  // 2026-11-21 10:30 UTC

// 2026-11-21 is day 20778 since 1970; 01:00 in Berlin is midnight UTC.
TEST(DateFieldTest, APickedDayIsStoredAtOneOClockLocalTime) {
  {
    const test::ZoneGuard zone("UTC");
    EXPECT_EQ(StampOfPickedDay(QDate(2026, 11, 21)), 20778 * 86400 + 3600);
  }
  const test::ZoneGuard zone("Europe/Berlin");
  EXPECT_EQ(StampOfPickedDay(QDate(2026, 11, 21)), 20778 * 86400);
}

TEST(DateFieldTest, StartsWithTodayWithinWhatAStampCanHold) {
  const test::ZoneGuard zone("UTC");
  const test::FixedClock clock(kNow);
  QDateEdit field;
  SetUpDateField(field);
  EXPECT_EQ(field.date(), QDate(2026, 11, 21));
  EXPECT_EQ(field.minimumDate(), QDate(1970, 1, 2));
  EXPECT_EQ(field.maximumDate(), QDate(2038, 1, 18));
}

TEST(DateFieldTest, ShowsTheLocalDayOfAStamp) {
  const test::ZoneGuard zone("America/New_York");
  QDateEdit field;
  SetUpDateField(field);
  ShowStamp(field, 20778 * 86400 + 3600);  // 01:00 UTC is the evening before in New York
  EXPECT_EQ(field.date(), QDate(2026, 11, 20));
}

TEST(DateFieldTest, ADateCanBeTyped) {
  const test::FixedClock clock(kNow);
  QDateEdit field;
  SetUpDateField(field);
  field.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
  field.setFocus(Qt::TabFocusReason);
  QTest::keyClicks(&field, QStringLiteral("02282027"));
  EXPECT_EQ(field.date(), QDate(2027, 2, 28));
}

// A German locale would name the months in German, an Arabic one write digits of its own.
TEST(DateFieldTest, TheUsersLocaleChangesNeitherTheDigitsNorTheCalendar) {
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
  {
    const test::FixedClock clock(kNow);
    QDateEdit field;
    SetUpDateField(field);
    EXPECT_EQ(field.text().toStdString(), "11/21/2026");
    EXPECT_EQ(field.calendarWidget()->locale().language(), QLocale::English);
    EXPECT_EQ(field.calendarWidget()->firstDayOfWeek(), Qt::Sunday);
  }
  QLocale::setDefault(before);
}

TEST(DateFieldTest, ACountryThatIsAskedForHasItsOrderAndItsNames) {
  const test::FixedClock clock(kNow);
  for (const auto& [language, shown] :
       {std::pair("en_GB", "21/11/2026"), std::pair("de_AT", "21.11.2026"),
        std::pair("en_CA", "2026-11-21")}) {
    SpeakLanguage(QLatin1String(language));
    QDateEdit field;
    SetUpDateField(field);
    EXPECT_EQ(field.text().toStdString(), shown) << language;
    EXPECT_EQ(field.calendarWidget()->locale(), QLocale(QLatin1String(language))) << language;
  }
  SpeakLanguage(QStringLiteral("en"));
}

TEST(DateFieldTest, TheCalendarBelowHasDatesAFingerWide) {
  QDateEdit field;
  SetUpDateField(field);
  EXPECT_GE(field.calendarWidget()->minimumWidth(), 7 * 40);
  EXPECT_LE(field.calendarWidget()->minimumWidth(), 320);
}

TEST(DateFieldTest, ADateOutsideTheRangeIsNotAccepted) {
  const test::FixedClock clock(kNow);
  QDateEdit field;
  SetUpDateField(field);
  ShowStamp(field, 2147483647);
  EXPECT_EQ(field.date(), QDate(2038, 1, 18));
  ShowStamp(field, 0);
  EXPECT_EQ(field.date(), QDate(1970, 1, 2));
}

TEST(DateFieldTest, ALanguageThatWasAskedForHasItsOwnOrderOfDayAndMonth) {
  const test::German german;
  const test::FixedClock clock(kNow);
  QDateEdit field;
  SetUpDateField(field);
  EXPECT_EQ(field.text().toStdString(), "21.11.2026");
  EXPECT_EQ(field.calendarWidget()->locale().language(), QLocale::German);
  EXPECT_EQ(field.calendarWidget()->firstDayOfWeek(), Qt::Sunday) << "as the weeks of the list";
}

TEST(DateFieldTest, TheCalendarOpensByKeysAndADayIsChosenByKeys) {
  const test::FixedClock clock(kNow);
  for (const auto& [key, modifiers] : {std::pair(Qt::Key_Down, Qt::KeyboardModifiers(Qt::ALT)),
                                       std::pair(Qt::Key_F4, Qt::KeyboardModifiers())}) {
    QDateEdit field;
    SetUpDateField(field);
    field.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    QTest::keyClick(&field, key, modifiers);
    auto* const popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    EXPECT_TRUE(field.calendarWidget()->isVisible());
    QWidget* const days = popup->focusWidget();
    ASSERT_NE(days, nullptr);
    QTest::keyClick(days, Qt::Key_Right);
    QTest::keyClick(days, Qt::Key_Down);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(field.date(), QDate(2026, 11, 29));
  }
}

TEST(DateFieldTest, EscapeClosesTheCalendarAndTheDateStays) {
  const test::FixedClock clock(kNow);
  QDateEdit field;
  SetUpDateField(field);
  field.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
  QTest::keyClick(&field, Qt::Key_Down, Qt::AltModifier);
  auto* const popup = QApplication::activePopupWidget();
  ASSERT_NE(popup, nullptr);
  QTest::keyClick(popup->focusWidget(), Qt::Key_Right);
  QTest::keyClick(popup->focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(field.date(), QDate(2026, 11, 21));
}

TEST(DateFieldTest, DownAloneCountsTheDateDown) {
  const test::FixedClock clock(kNow);
  QDateEdit field;
  SetUpDateField(field);
  field.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
  QTest::keyClick(&field, Qt::Key_Down);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(field.date(), QDate(2026, 10, 21));
}

}  // namespace
}  // namespace brovanta

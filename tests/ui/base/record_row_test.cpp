#include "ui/base/record_row.h"

#include <gtest/gtest.h>

#include "db/schedule.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/german.h"
#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

constexpr DateStamp kNoon = 1795262400;  // Saturday 2026-11-21 12:00:00 UTC
constexpr DateStamp kDay = 86400;

class RecordRowTest : public testing::Test {
 protected:
  static std::string Due(DateStamp due) { return DueWords(due, kNoon).text.toStdString(); }

  test::ZoneGuard zone_{"UTC"};
  test::FixedClock clock_{kNoon};
};

TEST_F(RecordRowTest, DueDatesAreCountedInWholeDatesFromToday) {
  EXPECT_EQ(Due(kNoon), "due today");
  EXPECT_EQ(Due(kNoon + 11 * 3600), "due today");
  EXPECT_EQ(Due(kNoon + 12 * 3600), "due tomorrow");
  EXPECT_EQ(Due(kNoon + 3 * kDay), "in 3 days");
  EXPECT_EQ(Due(kNoon - 12 * 3600), "due today");
  EXPECT_EQ(Due(kNoon - 12 * 3600 - 1), "1 day overdue");
  EXPECT_EQ(Due(kNoon - 2 * kDay), "2 days overdue");
  EXPECT_EQ(Due(kNoDate), "");
}

TEST_F(RecordRowTest, OnlyDatesBeforeTodayAreOverdue) {
  EXPECT_FALSE(DueWords(kNoon, kNoon).overdue);
  EXPECT_FALSE(DueWords(kNoon + kDay, kNoon).overdue);
  EXPECT_FALSE(DueWords(kNoDate, kNoon).overdue);
  EXPECT_TRUE(DueWords(kNoon - kDay, kNoon).overdue);
}

TEST_F(RecordRowTest, WordsOfEverySchedule) {
  const auto words = [](int kind, int every, int day) {
    return RecurrenceWords(kind, every, day).toStdString();
  };
  EXPECT_EQ(words(kUnscheduled, 0, 0), "");
  EXPECT_EQ(words(kOneTime, 0, 0), "");
  EXPECT_EQ(words(kDaily, 0, 1), "daily");
  EXPECT_EQ(words(kDaily, 0, 3), "every 3 days");
  EXPECT_EQ(words(kWeekly, 1, 5), "weekly");
  EXPECT_EQ(words(kWeekly, 4, 5), "every 4 weeks");
  EXPECT_EQ(words(kMonthly, 1, 31), "monthly");
  EXPECT_EQ(words(kMonthly, 6, 31), "every 6 months");
  EXPECT_EQ(words(kMonthly, 12, 31), "yearly");
  EXPECT_EQ(words(5, 2, 2), "");
}

TEST_F(RecordRowTest, RecordRowsTextIs46BlanksAndItsWordsAreForScreenReaders) {
  const RecordRow row(
      {.id = 7,
       .purchaseType = kWeekly,
       .name = "Milk",
       .storeName = QStringLiteral("Corner Shop")},
      {.shows_due = true, .due = kNoon - 2 * kDay, .recurrence_kind = kWeekly, .every = 1});
  EXPECT_EQ(RecordRow::Text().toStdString(), std::string(46, ' '));
  EXPECT_EQ(row.AccessibleText().toStdString(), "Milk, Corner Shop, 2 days overdue, weekly");
  EXPECT_TRUE(row.recurring());
  EXPECT_EQ(row.info().reserved, 0);
}

TEST_F(RecordRowTest, RowWithoutStoreAndDateSaysItsNameOnly) {
  const RecordRow row({.id = 1, .name = "Soap"}, {.shows_due = true});
  EXPECT_EQ(row.AccessibleText().toStdString(), "Soap");
  EXPECT_FALSE(row.recurring());
}

TEST_F(RecordRowTest, OnlyAScheduleThatComesAgainIsMarked) {
  for (const std::uint16_t kind : {kDaily, kWeekly, kMonthly}) {
    EXPECT_TRUE(RecordRow({.id = 1}, {.recurrence_kind = kind}).recurring()) << kind;
  }
  for (const int kind : {0, 1, 5, 65535}) {  // above 4 only in a damaged file
    const auto stored = static_cast<std::uint16_t>(kind);
    EXPECT_FALSE(RecordRow({.id = 1}, {.recurrence_kind = stored}).recurring()) << kind;
  }
}

TEST_F(RecordRowTest, WordsFollowTheClock) {
  const RecordRow row({.id = 1}, {.shows_due = true, .due = kNoon});
  EXPECT_EQ(row.Words().text.toStdString(), "due today");
  clock_.Set(kNoon + kDay);
  EXPECT_EQ(row.Words().text.toStdString(), "1 day overdue");
  EXPECT_TRUE(row.Words().overdue);
}

TEST_F(RecordRowTest, NoteIsShownAsItStands) {
  const RecordRow row({.id = 1}, {.note = QStringLiteral("5.00 off")});
  EXPECT_EQ(row.Words().text.toStdString(), "5.00 off");
  EXPECT_FALSE(row.Words().overdue);
}

TEST_F(RecordRowTest, HeadingKeepsItsBlanksFromScreenReaders) {
  const HeadingRow row(kNoDate, 22);
  EXPECT_EQ(row.Text().toStdString(), "Unknown date" + std::string(22, ' '));
  EXPECT_EQ(row.Words().toStdString(), "Unknown date");
}

TEST_F(RecordRowTest, WordsAreThoseOfTheLanguage) {
  const test::German german;
  const RecordRow row(
      {.id = 1, .name = "Milch"},
      {.shows_due = true, .due = kNoon - 2 * kDay, .recurrence_kind = kWeekly, .every = 3});
  EXPECT_EQ(row.AccessibleText().toStdString(),
            "Milch, 2 Tage \u00FCberf\u00E4llig, alle 3 Wochen");
  EXPECT_TRUE(row.Words().overdue);
}

TEST_F(RecordRowTest, AScreenReaderGetsWholeNamesWhereTheRowShowsCutOnes) {
  const RecordRow row({.id = 1, .name = "Two for th..", .storeName = QStringLiteral("Cor..")},
                      {.spoken = SpokenNames("Two for the price of one", QStringLiteral("Corner")),
                       .note = QStringLiteral("5.00 off")});
  EXPECT_EQ(row.AccessibleText().toStdString(), "Two for the price of one, Corner, 5.00 off");
  EXPECT_EQ(row.info().name.toStdString(), "Two for th..");
  EXPECT_EQ(SpokenNames("Soap", {}).toStdString(), "Soap");
}

TEST_F(RecordRowTest, HeadingsHaveTheDatesOfTheCountryThatWasAskedFor) {
  const HeadingRow row(kNoon, 0);
  EXPECT_EQ(row.Words().toStdString(), "Saturday 11/21/2026");
  SpeakLanguage(QStringLiteral("en_GB"));
  EXPECT_EQ(row.Words().toStdString(), "Saturday 21/11/2026");
  SpeakLanguage(QStringLiteral("de_AT"));
  EXPECT_EQ(row.Words().toStdString(), "Samstag, 21.11.2026");
  SpeakLanguage(QStringLiteral("en"));
}

}  // namespace
}  // namespace brovanta

#include "ui/base/date_headings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/german.h"
#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

using testing::ElementsAre;

constexpr DateStamp kSaturday = 1795222800;  // 2026-11-21 01:00:00 UTC
constexpr DateStamp kThursday = kSaturday - 2 * 86400;

class DateHeadingsTest : public testing::Test {
 protected:
  void Build(const std::vector<DateStamp>& keys, HeadingBlanks blanks = {}) {
    DateHeadings headings(blanks);
    std::int32_t id = 0;
    for (const DateStamp key : keys) headings.Add(key, {.id = ++id}, {});
    rows_ = headings.Take();
  }

  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < rows_.HeadingCount(); ++i) {
      texts.push_back(rows_.Heading(i).Text().toStdString());
    }
    return texts;
  }

  std::vector<std::size_t> Counts() const {
    std::vector<std::size_t> counts;
    for (std::size_t i = 0; i < rows_.HeadingCount(); ++i) {
      counts.push_back(rows_.Under(i).size());
    }
    return counts;
  }

  static std::string With(const std::string& words, std::size_t blanks) {
    return words + std::string(blanks, ' ');
  }

  test::ZoneGuard zone_{"UTC"};
  RecordRows rows_;
};

TEST_F(DateHeadingsTest, NoRecordsMakeNoHeading) {
  Build({});
  EXPECT_TRUE(rows_.empty());
}

TEST_F(DateHeadingsTest, RecordsOfOneDateShareItsHeading) {
  Build({kSaturday, kSaturday, kThursday});
  EXPECT_THAT(Texts(),
              ElementsAre(With("Saturday 11/21/2026", 22), With("Thursday 11/19/2026", 22)));
  EXPECT_THAT(Counts(), ElementsAre(2, 1));
}

TEST_F(DateHeadingsTest, RowsKeepTheirOrderUnderTheHeading) {
  Build({kSaturday, kSaturday, kSaturday});
  std::vector<std::int32_t> ids;
  for (const RecordRow& record : rows_.Under(0)) ids.push_back(record.info().id);
  EXPECT_THAT(ids, ElementsAre(1, 2, 3));
}

TEST_F(DateHeadingsTest, DateThatComesBackGetsASecondHeading) {
  Build({kSaturday, kThursday, kSaturday});
  EXPECT_THAT(Counts(), ElementsAre(1, 1, 1));
  EXPECT_EQ(rows_.Heading(0).Text(), rows_.Heading(2).Text());
}

TEST_F(DateHeadingsTest, MomentsOfOneDayAreDifferentKeys) {
  Build({kSaturday, kSaturday + 60});
  EXPECT_THAT(Counts(), ElementsAre(1, 1));
  EXPECT_EQ(rows_.Heading(0).Text(), rows_.Heading(1).Text());
}

TEST_F(DateHeadingsTest, RecordsWithoutADateStandUnderUnknownDate) {
  Build({0, 0, kSaturday, 0});
  EXPECT_THAT(Texts(), ElementsAre(With("Unknown date", 22), With("Saturday 11/21/2026", 22),
                                   With("Unknown date", 22)));
  EXPECT_THAT(Counts(), ElementsAre(2, 1, 1));
}

TEST_F(DateHeadingsTest, FirstKeyEqualToTheStartingKeyStandsUnderUnknownDateToo) {
  Build({-1, -1, kSaturday, -1});
  EXPECT_THAT(Texts(), ElementsAre(With("Unknown date", 22), With("Saturday 11/21/2026", 22),
                                   With("Wednesday 12/31/1969", 22)));
  EXPECT_THAT(Counts(), ElementsAre(2, 1, 1));
}

TEST_F(DateHeadingsTest, WebSearchesUse60And62Blanks) {
  Build({0, kSaturday}, {.unknown_date = 60, .without_change = 62});
  EXPECT_THAT(Texts(), ElementsAre(With("Unknown date", 60), With("Saturday 11/21/2026", 22)));
  Build({-1}, {.unknown_date = 60, .without_change = 62});
  EXPECT_THAT(Texts(), ElementsAre(With("Unknown date", 62)));
}

TEST_F(DateHeadingsTest, BuilderStartsAnewAfterItsRowsAreTaken) {
  DateHeadings headings;
  headings.Add(kSaturday, {.id = 1}, {});
  rows_ = headings.Take();
  EXPECT_TRUE(headings.Take().empty());
  headings.Add(kSaturday, {.id = 2}, {});
  rows_ = headings.Take();
  EXPECT_THAT(Texts(), ElementsAre(With("Saturday 11/21/2026", 22)));
  EXPECT_EQ(rows_.Under(0)[0].info().id, 2);
}

TEST_F(DateHeadingsTest, AnotherLanguageWritesTheDateItsWay) {
  const test::German german;
  Build({0, kSaturday}, {});
  EXPECT_THAT(Texts(), ElementsAre(With("Datum unbekannt", 22), With("Samstag, 21.11.2026", 22)));
}

}  // namespace
}  // namespace brovanta

#include "data/check_searches.h"

#include <gmock/gmock.h>

#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

using test::Hex;
using test::Join;
using test::Padded;
using testing::ElementsAre;
using testing::IsEmpty;

/// An entry of the index on some day.
test::Bytes Entry(const char* number, const char* deleted, const test::Bytes& words) {
  return Join({Hex("82 38 01 00"), test::Run(4), Hex(number), Hex("01 00 00 00 90 34 53 42"), words,
               Hex(deleted), test::Run(1)});
}
test::Bytes Entry(const char* number, const char* deleted = "00") {
  return Entry(number, deleted, Padded("soap", 50));
}

struct Look {
  IndexedSearches index;
  FileReport report;
  std::vector<std::string> lines;
};

Look LookAtIndex(std::initializer_list<test::Bytes> entries, const char* last = "04 00 00 00") {
  test::Bytes bytes = Join({Hex("81 38 01 00"), Hex(last)});
  for (const test::Bytes& entry : entries) bytes = Join({bytes, entry});
  Look look;
  std::vector<Finding> findings;
  FileNotes notes("i", findings);
  look.index = CheckSearchIndex(Join({bytes, Hex("83 38 01 00")}), look.report, notes);
  look.lines = test::Lines(findings);
  return look;
}

TEST(CheckSearchIndexTest, GivesTheSearchesOfASoundIndex) {
  const Look look =
      LookAtIndex({Entry("02 00 00 00"), Entry("03 00 00 00", "01"), Entry("04 00 00 00")});
  EXPECT_THAT(look.index.live, ElementsAre(2, 4));
  EXPECT_THAT(look.index.deleted, ElementsAre(3));
  EXPECT_TRUE(look.index.sound);
  EXPECT_EQ(look.report.records, 3U);
  EXPECT_EQ(look.report.deleted, 1U);
  EXPECT_THAT(look.lines, IsEmpty());
}

TEST(CheckSearchIndexTest, TellsWhatIsWrongWithAnEntry) {
  EXPECT_THAT(LookAtIndex({Entry("00 00 00 00"), Entry("05 00 00 00", "02", test::Run(50, 'x')),
                           Entry("02 00 00 00"), Entry("02 00 00 00")})
                  .lines,
              ElementsAre("error i 16 #0: the search number is 0, below 1",
                          "error i 88 #5: the search number is above LastId 4 and will be given "
                          "out again",
                          "warning i 100 #5: the text Words has no zero at its end",
                          "warning i 150 #5: Deleted is 2 and neither 0 nor 1",
                          "error i 232 #2: a live search with this number stands in front of it "
                          "already"));
  EXPECT_THAT(LookAtIndex({}, "00 00 00 00").lines,
              ElementsAre("error i 4 #-: LastId is 0, below the 1 of an empty file"));
}

test::Bytes ResultItem(const char* id, const char* price, const test::Bytes& texts) {
  return Join({Hex("82 38 01 00"), Hex(id), Hex(price), test::Run(2), texts});
}
const char kPrice[] = "00 00 00 00 00 00 04 40";
const test::Bytes kTexts = Join({Hex("05 00 00 00"), Padded("Soap", 5), test::Run(4), test::Run(4),
                                 Hex("02 00 00 00"), Padded("x", 2)});

std::vector<std::string> LookAtResults(const test::Bytes& items, FileReport* into = nullptr) {
  FileReport report;
  std::vector<Finding> findings;
  FileNotes notes("r", findings);
  CheckResults(Join({Hex("81 38 01 00"), items, Hex("83 38 01 00")}), report, notes);
  if (into != nullptr) *into = report;
  return test::Lines(findings);
}

TEST(CheckResultsTest, SoundResultsGiveNothing) {
  FileReport report;
  EXPECT_THAT(LookAtResults(Join({ResultItem("01 00 00 00", kPrice, kTexts),
                                  ResultItem("03 00 00 00", kPrice, kTexts)}),
                            &report),
              IsEmpty());
  EXPECT_EQ(report.records, 2U);
}

TEST(CheckResultsTest, TellsWhatIsWrongWithAResult) {
  EXPECT_THAT(LookAtResults(Join({ResultItem("00 00 00 00", "00 00 00 00 00 00 00 00", kTexts),
                                  ResultItem("01 00 00 00", "00 00 00 00 00 00 f8 7f", kTexts),
                                  ResultItem("01 00 00 00", kPrice, kTexts)})),
              ElementsAre("warning r 8 #0: the id is below 1",
                          "warning r 12 #0: the price is no number above 0",
                          "warning r 53 #1: the price is no number above 0",
                          "warning r 90 #1: a result with this id stands in front of it already"));
}

TEST(CheckResultsTest, TellsWhatIsWrongWithATextsLength) {
  const test::Bytes negative = Join({Hex("ff ff ff ff"), test::Run(12)});
  EXPECT_THAT(LookAtResults(ResultItem("01 00 00 00", kPrice, negative)),
              ElementsAre("warning r 22 #1: the text Title has the length -1"));
  const test::Bytes beyond = Join({test::Run(4), Hex("ff ff ff 7f"), test::Run(8)});
  EXPECT_THAT(LookAtResults(ResultItem("01 00 00 00", kPrice, beyond)),
              ElementsAre("error r 26 #1: the text Text has the length 2147483647, beyond the end "
                          "of the file"));
  const test::Bytes open =
      Join({test::Run(8), Hex("02 00 00 00"), test::Run(2, 'x'), test::Run(4)});
  EXPECT_THAT(LookAtResults(ResultItem("01 00 00 00", kPrice, open)),
              ElementsAre("warning r 34 #1: the text Url has no zero at its end, or one before"));
}

TEST(CheckResultsTest, TellsWhereAFileIsCutOff) {
  FileReport report;
  std::vector<Finding> findings;
  FileNotes notes("r", findings);
  CheckResults(Join({Hex("81 38 01 00 82 38 01 00"), test::Run(13)}), report, notes);
  CheckResults(Join({Hex("81 38 01 00 82 38 01 00 01 00 00 00"), Hex(kPrice), test::Run(5)}),
               report, notes);
  EXPECT_THAT(
      test::Lines(findings),
      ElementsAre("error r 8 #-: the file is cut off: it ends within a result",
                  "error r 22 #1: the file is cut off: it ends in front of the text Title"));
}

TEST(SearchNumberTest, IsThatOfAResultsFileAlone) {
  EXPECT_EQ(SearchNumber("2.dat"), 2);
  EXPECT_EQ(SearchNumber("2147483647.dat"), 2147483647);
  for (const char* const name : {"", "2", ".dat", "0.dat", "-2.dat", "02.dat", "+2.dat",
                                 "2.dat.bad", "2147483648.dat", "x.dat"}) {
    EXPECT_EQ(SearchNumber(name), std::nullopt) << name;
  }
}

TEST(CompareWithIndexTest, TellsWhatIsMissingOnEitherSide) {
  IndexedSearches index;
  index.live = {2, 4};
  index.deleted = {3};
  std::vector<Finding> findings;
  CompareWithIndex(index, {"2.dat", "3.dat", "9.dat", "notes.txt"}, findings);
  EXPECT_THAT(
      test::Lines(findings),
      ElementsAre("note WebSearch/3.dat - #-: its search is deleted; nothing reads it any more",
                  "warning WebSearch/9.dat - #9: the index has no search of this number",
                  "warning websearch.dat - #4: its results file WebSearch/4.dat is missing"));
}

TEST(CompareWithIndexTest, ABrokenIndexSaysNothingOfFiles) {
  IndexedSearches index;
  index.live = {2};
  index.sound = false;
  std::vector<Finding> findings;
  CompareWithIndex(index, {"2.dat", "9.dat"}, findings);
  EXPECT_THAT(findings, IsEmpty());
}

}  // namespace
}  // namespace brovanta::data_tool

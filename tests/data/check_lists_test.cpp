#include "data/check_lists.h"

#include <gmock/gmock.h>

#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

using test::Hex;
using test::Join;
using test::Padded;
using testing::ElementsAre;
using testing::IsEmpty;

test::Bytes Item(const char* id, std::string_view name) {
  return Join({Hex("82 38 01 00"), test::Run(4), Hex(id), Padded(name, 50), test::Run(6)});
}

struct Look {
  KnownIds ids;
  FileReport report;
  std::vector<std::string> lines;
};

Look LookAt(std::initializer_list<test::Bytes> items) {
  test::Bytes bytes = Hex("81 38 01 00");
  for (const test::Bytes& item : items) bytes.insert(bytes.end(), item.begin(), item.end());
  bytes = Join({bytes, Hex("83 38 01 00")});
  Look look;
  std::vector<Finding> findings;
  FileNotes notes("store.lst", findings);
  look.ids = CheckNameList(bytes, look.report, notes);
  look.lines = test::Lines(findings);
  return look;
}

TEST(CheckNameListTest, GivesTheIdsOfASoundList) {
  const Look look = LookAt({Item("07 00 00 00", "Mega"), Item("88 13 00 00", "Corner")});
  EXPECT_THAT(look.ids.value(), ElementsAre(7U, 5000U));
  EXPECT_EQ(look.report.records, 2U);
  EXPECT_THAT(look.lines, IsEmpty());
}

TEST(CheckNameListTest, AnIdBelowOneEndsTheProgramsReading) {
  const Look look = LookAt({Item("00 00 00 00", "None"), Item("07 00 00 00", "Mega")});
  EXPECT_FALSE(look.ids);
  EXPECT_THAT(look.lines,
              ElementsAre("error store.lst 12 #0: the id is 0, below 1; the program reads neither "
                          "this item nor those behind it"));
}

TEST(CheckNameListTest, AnIdThatIsThereTwiceLosesAnItem) {
  EXPECT_THAT(LookAt({Item("07 00 00 00", "Mega"), Item("07 00 00 00", "Mini")}).lines,
              ElementsAre("error store.lst 76 #7: an item with this id stands in front of it "
                          "already, and is lost"));
}

TEST(CheckNameListTest, TheLargestIdOfAllLeavesNoneForANewName) {
  EXPECT_THAT(LookAt({Item("fe ff ff 7f", "Mega")}).lines, IsEmpty());
  EXPECT_THAT(LookAt({Item("ff ff ff 7f", "Mega")}).lines,
              ElementsAre("error store.lst 12 #2147483647: the id is the largest that there is: no "
                          "new name can be added"));
}

TEST(CheckNameListTest, ANameThatIsThereTwiceIsOnlyNoted) {
  const Look look = LookAt({Item("07 00 00 00", "Mega"), Item("08 00 00 00", "Mega")});
  EXPECT_THAT(look.lines, ElementsAre("note store.lst 84 #8: the name \"Mega\" is that of 7 too"));
  EXPECT_TRUE(look.ids);
}

TEST(CheckNameListTest, TheOrderIsOnlyNoted) {
  EXPECT_THAT(LookAt({Item("08 00 00 00", "a"), Item("07 00 00 00", "b")}).lines,
              ElementsAre("note store.lst 76 #7: the items are not in ascending order"));
}

TEST(CheckNameListTest, ABrokenFrameGivesNoIds) {
  std::vector<Finding> findings;
  FileNotes notes("store.lst", findings);
  FileReport report;
  EXPECT_FALSE(CheckNameList(Hex("81 38 01 00"), report, notes));
  EXPECT_EQ(findings.size(), 1U);
}

TEST(CheckNameListTest, BytesBehindTheEndAreAWarningBecauseListsAreWrittenWhole) {
  std::vector<Finding> findings;
  FileNotes notes("store.lst", findings);
  FileReport report;
  EXPECT_TRUE(CheckNameList(Hex("81 38 01 00 83 38 01 00 00"), report, notes));
  EXPECT_THAT(test::Lines(findings),
              ElementsAre("warning store.lst 8 #-: 1 byte stands behind the end mark"));
}

}  // namespace
}  // namespace brovanta::data_tool

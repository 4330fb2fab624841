// Stores and categories from a feed.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "db/error_codes.h"
#include "db/journal_format.h"
#include "tests/db/feed_fixture.h"
#include "tests/support/write_limit.h"

namespace brovanta::test {
namespace {

using std::string_literals::operator""s;

class FeedImportListTest : public FeedFixture {};

TEST_F(FeedImportListTest, ListEntriesAreTaken) {
  EXPECT_EQ(List("<IT><ID>7</ID><NM>Corner Shop</NM></IT>\r\n<IT><NM>Caf\xE9</NM><ID>9</ID></IT>"),
            0);
  EXPECT_EQ(Names(), "7=Corner Shop 9=Caf\xE9");
}

TEST_F(FeedImportListTest, ShortNamesAreSkippedAndIdZeroEndsTheList) {
  EXPECT_EQ(List("<IT><ID>1</ID><NM>A</NM></IT><IT><ID>2</ID><NM></NM></IT>"
                 "<IT><ID>3</ID><NM>OK</NM></IT><IT><ID>0</ID><NM>ends</NM></IT>"
                 "<IT><ID>4</ID><NM>too late</NM></IT>"),
            0);
  EXPECT_EQ(Names(), "3=OK");
}

TEST_F(FeedImportListTest, EntryWithoutNameOrWithANegativeIdEndsTheList) {
  for (const char* entry :
       {"<IT><ID>2</ID></IT>", "<IT><NM>no id</NM></IT>", "<IT><ID>-3</ID><NM>below</NM></IT>",
        "<IT><ID>2</ID></NM>backwards<NM></IT>", "</IT>"}) {
    names_.Clear();
    EXPECT_EQ(
        List("<IT><ID>1</ID><NM>first</NM></IT>"s + entry + "<IT><ID>4</ID><NM>too late</NM></IT>"),
        0);
    EXPECT_EQ(Names(), "1=first") << entry;
  }
}

TEST_F(FeedImportListTest, IdThatIsThereGetsTheNewNameAndNoCount) {
  ListItem item;
  item.Id = 7;
  item.Name.Assign("Old name");
  item.Count = 12;
  names_.Insert(item);
  EXPECT_EQ(List("<IT><ID>7</ID><NM>New</NM></IT>"), 0);
  EXPECT_EQ(Names(), "7=New");
  EXPECT_EQ(names_.Find(7)->Count, 0);
}

TEST_F(FeedImportListTest, ImportOfAListChangesNoFile) {
  NameList& stores = database_.stores();
  folder_.WriteText("update.dat", "<IT><ID>7</ID><NM>Corner Shop</NM></IT>");
  ASSERT_EQ(ImportList(stores, feed()), 0);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({}));
  ASSERT_EQ(stores.Save(database_.paths().store), 0);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(7, "Corner Shop")}));
}

TEST_F(FeedImportListTest, LongListNamesFillTheirField) {
  for (const std::size_t size : {49U, 50U, 51U, 500U}) {
    ASSERT_EQ(List("<IT><ID>7</ID><NM>" + std::string(size, 'n') + "</NM></IT>"), 0);
    ASSERT_EQ(names_.Save(folder_.File("long.lst")), 0);
    const std::string kept(std::min<std::size_t>(size, 50), 'n');
    EXPECT_EQ(folder_.Read("long.lst"), RawListFile({RawItem(7, kept)})) << size;
    NameList read;
    ASSERT_EQ(read.Load(folder_.File("long.lst")), 0);
    EXPECT_EQ(read.Find(7)->Name.view(), kept);
  }
}

TEST_F(FeedImportListTest, FeedCutAnywhereImportsTheWholeEntriesBeforeTheCut) {
  const std::string first = "<IT><ID>1</ID><NM>Market</NM></IT>";
  const std::string whole = first + "<IT><ID>2</ID><NM>Bakery</NM></IT>";
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    names_.Clear();
    ASSERT_EQ(List(whole.substr(0, size)), 0);
    const std::string both = size == whole.size() ? "1=Market 2=Bakery" : "1=Market";
    EXPECT_EQ(Names(), size < first.size() ? "" : both) << size;
  }
}

TEST_F(FeedImportListTest, LargestIdIsTaken) {
  EXPECT_EQ(
      List("<IT><ID>2147483647</ID><NM>last</NM></IT><IT><ID>9999999999</ID><NM>same</NM></IT>"),
      0);
  EXPECT_EQ(Names(), "2147483647=same");
}

TEST_F(FeedImportListTest, ImportAndSaveKeepsWhatAnotherProgramAdded) {
  const std::string path = folder_.File("other.lst");
  names_.Insert({7, FixedText<kNameSize>("Corner Shop"), 0});
  ASSERT_EQ(names_.Save(path), 0);
  NameList theirs = names_;
  theirs.Insert({5000, FixedText<kNameSize>("Theirs"), 0});
  ASSERT_EQ(theirs.Save(path), 0);
  folder_.WriteText("update.dat", "<IT><ID>7</ID><NM>Mega Market</NM></IT>");
  ASSERT_EQ(ImportAndSaveList(names_, feed(), path), 0);
  EXPECT_EQ(Names(), "7=Mega Market 5000=Theirs");
  ASSERT_EQ(theirs.Load(path), 0);
  EXPECT_EQ(theirs.Find(7)->Name.view(), "Mega Market");
  EXPECT_EQ(theirs.size(), 2U);
}

TEST_F(FeedImportListTest, ImportAndSaveThatFailsLeavesTheListInMemory) {
  const std::string path = folder_.File("other.lst");
  folder_.WriteText("update.dat", "<IT><ID>7</ID><NM>Mega Market</NM></IT>");
  platform::File holder;
  ASSERT_EQ(NameList().Save(path), 0);
  ASSERT_TRUE(holder.Open(path, platform::File::Mode::kRead));
  EXPECT_EQ(ImportAndSaveList(names_, feed(), path), ERR_OPEN);
  holder.Close();
  ASSERT_TRUE(holder.Open(folder_.File("backup.dat"), platform::File::Mode::kRead));
  EXPECT_EQ(ImportAndSaveList(names_, feed(), path), ERR_OPEN);
  EXPECT_TRUE(names_.empty());
}

TEST_F(FeedImportListTest, WhatTheFileDoesNotTakeIsNotKeptInMemory) {
  constexpr int kNames = 20;  // 68 bytes each
  const std::string path = folder_.File("other.lst");
  names_.Insert({7, FixedText<kNameSize>("Corner Shop"), 0});
  ASSERT_EQ(names_.Save(path), 0);
  const auto before = folder_.Read("other.lst");
  std::string text;
  for (int id = 1; id <= kNames; ++id) {
    text += "<IT><ID>" + std::to_string(id) + "</ID><NM>Shop " + std::to_string(id) + "</NM></IT>";
  }
  folder_.WriteText("update.dat", text);
  {
    const WriteLimit full(700);
    EXPECT_NE(ImportAndSaveList(names_, feed(), path), 0);
  }
  EXPECT_EQ(Names(), "7=Corner Shop");
  EXPECT_EQ(folder_.Read("other.lst"), before);
  EXPECT_EQ(ImportAndSaveList(names_, feed(), path), 0);
  EXPECT_EQ(names_.size(), static_cast<std::size_t>(kNames));
}

TEST_F(FeedImportListTest, ImportAndSaveFirstUndoesAChangeThatWasLeftInTheMiddle) {
  folder_.WriteText("other.lst", "half");
  folder_.Write("backup.dat",
                EncodeJournal(std::vector<UndoRecord>{{UndoKind::kMade, "other.lst", 0, 0, {}}}));
  folder_.WriteText("update.dat", "<IT><ID>7</ID><NM>Mega Market</NM></IT>");
  ASSERT_EQ(ImportAndSaveList(names_, feed(), folder_.File("other.lst")), 0);
  EXPECT_EQ(Names(), "7=Mega Market");
}

}  // namespace
}  // namespace brovanta::test

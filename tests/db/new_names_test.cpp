#include "db/new_names.h"

#include <gtest/gtest.h>

#include <limits>

#include "db/error_codes.h"
#include "platform/file.h"
#include "tests/db/raw_files.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {
namespace {

class NewNamesTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_.Write("store.lst", RawListFile({RawItem(7, "Corner Shop")}));
    ASSERT_EQ(list_.Load(path()), 0);
  }
  [[nodiscard]] std::string path() const { return folder_.File("store.lst"); }

  TempFolder folder_;
  NameList list_;
};

TEST_F(NewNamesTest, GivesIdsInMemoryAndWritesTheListOnce) {
  NameRef first{0, "Market"};
  NameRef second{0, ""};
  NameRef known{7, "whatever"};
  NewNames names(list_, path());
  EXPECT_EQ(names.Resolve(first), 0);
  EXPECT_EQ(names.Resolve(known), 0);
  EXPECT_EQ(names.Resolve(second), 0);
  EXPECT_EQ(first.Id, 5000);
  EXPECT_EQ(second.Id, 5001);
  EXPECT_EQ(known.Id, 7);
  EXPECT_EQ(list_.size(), 3U);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(7, "Corner Shop")}));

  UnitOfWork work(JournalBeside(path()));
  EXPECT_EQ(names.NoteSave(work), 0);
  EXPECT_EQ(work.Commit(), 0);
  names.Keep();
  EXPECT_EQ(folder_.Read("store.lst"),
            RawListFile({RawItem(7, "Corner Shop"), RawItem(5000, "Market"), RawItem(5001, "")}));
}

TEST_F(NewNamesTest, NamesThatAreNotKeptGoAgain) {
  NameRef reference{0, "Market"};
  {
    NewNames names(list_, path());
    ASSERT_EQ(names.Resolve(reference), 0);
    EXPECT_FALSE(names.empty());
  }
  EXPECT_EQ(reference.Id, 0);
  EXPECT_EQ(list_.size(), 1U);
}

TEST_F(NewNamesTest, KeptNamesStay) {
  NameRef reference{0, "Market"};
  {
    NewNames names(list_, path());
    ASSERT_EQ(names.Resolve(reference), 0);
    names.Keep();
  }
  EXPECT_EQ(reference.Id, 5000);
  ASSERT_NE(list_.Find(5000), nullptr);
  EXPECT_EQ(list_.Find(5000)->Name.view(), "Market");
}

TEST_F(NewNamesTest, NothingNewMeansNothingToWrite) {
  NameRef known{7, ""};
  NewNames names(list_, path());
  ASSERT_EQ(names.Resolve(known), 0);
  EXPECT_TRUE(names.empty());
  platform::File holder;  // so that writing would fail
  ASSERT_TRUE(holder.Open(path(), platform::File::Mode::kRead));
  UnitOfWork work(JournalBeside(path()));
  EXPECT_EQ(names.NoteSave(work), 0);
  EXPECT_EQ(work.Commit(), 0);
}

TEST_F(NewNamesTest, NewNamesCanBeRefused) {
  NameRef reference{0, "Market"};
  NameRef known{7, ""};
  NewNames names(list_, path(), false);
  EXPECT_EQ(names.Resolve(known), 0);
  EXPECT_EQ(names.Resolve(reference), ERR_IO);
  EXPECT_EQ(reference.Id, 0);
}

TEST_F(NewNamesTest, NoIdLeft) {
  ListItem last;
  last.Id = std::numeric_limits<std::int32_t>::max();
  list_.Insert(last);
  ASSERT_EQ(list_.Save(path()), 0);
  NameRef reference{0, "Market"};
  NewNames names(list_, path());
  EXPECT_EQ(names.Resolve(reference), ERR_IO);
  EXPECT_EQ(reference.Id, 0);
  EXPECT_EQ(list_.size(), 2U);
}

TEST_F(NewNamesTest, ListThatWasNotLoadedIsLoadedFirst) {
  folder_.Write("store.lst", RawListFile({RawItem(5004, "Bakery")}));
  NameList unread;
  NameRef reference{0, "Market"};
  NewNames names(unread, path());
  EXPECT_EQ(names.Resolve(reference), 0);
  EXPECT_EQ(reference.Id, 5005);
}

TEST_F(NewNamesTest, ANameThatNobodyCouldChooseIsNotAddedAgain) {
  folder_.Write("store.lst", RawListFile({RawItem(12, "Baker\xE9"), RawItem(5004, "")}));
  NameList unread;
  NameRef there{0, "bAKER\xC9"};
  NameRef market{0, "Market"};
  NameRef again{0, "Market"};
  NameRef empty{0, ""};
  {
    NewNames names(unread, path());
    EXPECT_EQ(names.Resolve(there), 0);
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(names.Resolve(market), 0);
    EXPECT_EQ(names.Resolve(again), 0);
    EXPECT_EQ(names.Resolve(empty), 0);
  }
  EXPECT_EQ(there.Id, 12) << "it stays where the new ones are taken out again";
  EXPECT_EQ(market.Id, 0);
  EXPECT_EQ(again.Id, 0);
  EXPECT_EQ(empty.Id, 0) << "an empty name is an entry like any other, not the one that is there";
  EXPECT_EQ(unread.size(), 2U);
}

TEST_F(NewNamesTest, ANameChosenFromALoadedListIsANewOne) {
  NameRef same{0, "Corner Shop"};
  NewNames names(list_, path());
  EXPECT_EQ(names.Resolve(same), 0);
  EXPECT_EQ(same.Id, 5000);
}

TEST_F(NewNamesTest, ListThatDoesNotOpen) {
  platform::File holder;
  ASSERT_TRUE(holder.Open(path(), platform::File::Mode::kRead));
  NameList unread;
  NameRef reference{0, "Market"};
  NewNames names(unread, path());
  EXPECT_EQ(names.Resolve(reference), ERR_OPEN);
  EXPECT_EQ(reference.Id, 0);
}

}  // namespace
}  // namespace brovanta::test

// What a program that ended in the middle left behind, and the database that finds it.
#include <gtest/gtest.h>

#include "db/error_codes.h"
#include "db/shopping_database.h"
#include "tests/db/journal_fixture.h"

namespace brovanta {
namespace {

using platform::File;
using test::Bytes;
using test::Hex;

class DatabaseRollBackTest : public test::JournalFixture {};

TEST_F(DatabaseRollBackTest, OpeningTheDatabaseRollsBack) {
  folder_.WriteText("product.dat", "torn");
  WriteJournal({{UndoKind::kOverwritten, "product.dat", 2, 0, Hex("41 42")}});
  ShoppingDatabase database;
  EXPECT_EQ(database.Open(folder_.path()), ERR_OPEN);  // there are no lists
  EXPECT_EQ(folder_.ReadText("product.dat"), "AB");
}

TEST_F(DatabaseRollBackTest, OpeningTheDatabaseLoadsTheListsWhenTheRollBackFails) {
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder_.Write(list, NameList().Encode());
  }
  WriteJournal({{UndoKind::kMade, "a.dat", 0, 0, {}}});
  File holder;
  ASSERT_TRUE(holder.Open(Path(), File::Mode::kRead));
  ShoppingDatabase database;
  EXPECT_EQ(database.Open(folder_.path()), ERR_OPEN);
  EXPECT_TRUE(database.units().loaded());
  holder.Close();
  EXPECT_EQ(database.Open(folder_.path()), 0);
}

TEST_F(DatabaseRollBackTest, TheFirstChangeRollsBackBeforeItReads) {
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder_.Write(list, NameList().Encode());
  }
  ShoppingDatabase database;
  ASSERT_EQ(database.Open(folder_.path()), 0);
  folder_.Write("product.dat", Hex("81 38 01 00 09 00 00 00 ff ff ff ff"));  // torn since
  WriteJournal({{UndoKind::kOverwritten, "product.dat", 12, 4, Hex("06 00 00 00")},
                {UndoKind::kOverwritten, "product.dat", 12, 8, Hex("83 38 01 00")}});
  ProductFields fields;
  fields.name = "Milk";
  const auto added = database.products().Add(kProductKind, fields);
  ASSERT_TRUE(added);
  EXPECT_EQ(added->Id, 7);
}

// A program ended when it had written two lists with new names; another one opens the folder while
// somebody holds the journal.
class UndoneNamesTest : public test::JournalFixture {
 protected:
  void SetUp() override {
    const Bytes empty = NameList().Encode();
    NameList names;
    ListItem item;
    item.Id = 5000;
    item.Name.Assign("undone");
    names.Insert(item);
    for (const char* list : {"store.lst", "category.lst"}) folder_.Write(list, names.Encode());
    folder_.Write("unit.lst", empty);
    folder_.Write("product.dat", Hex("81 38 01 00 00 00 00 00 83 38 01 00"));
    const auto size = static_cast<std::int64_t>(empty.size());
    WriteJournal({{UndoKind::kReplaced, "store.lst", size, 0, empty},
                  {UndoKind::kMade, "category.lst", 0, 0, {}}});
    File holder;
    ASSERT_TRUE(holder.Open(Path(), File::Mode::kRead));
    ASSERT_EQ(database_.Open(folder_.path()), ERR_OPEN);
    ASSERT_NE(database_.stores().Find(5000), nullptr);
    ASSERT_NE(database_.categories().Find(5000), nullptr);
  }
  void ExpectNoUndoneName() {
    EXPECT_EQ(database_.stores().Find(5000), nullptr);
    EXPECT_EQ(database_.categories().Find(5000), nullptr);
    EXPECT_EQ(folder_.Read("store.lst"), NameList().Encode());
    EXPECT_FALSE(folder_.Read("category.lst"));
  }

  ShoppingDatabase database_;
};

TEST_F(UndoneNamesTest, GoWhenAListOfRecordsIsLoaded) {
  ProductFilter products;
  products.kind = kProductKind;
  EXPECT_EQ(database_.products().Load(&products), 0);
  ExpectNoUndoneName();
}

TEST_F(UndoneNamesTest, GoBeforeANewNameIsWritten) {
  NameRef store{0, "new"};
  EXPECT_EQ(database_.ResolveNames(&store, nullptr, nullptr), 0);
  EXPECT_EQ(store.Id, 5000) << "the id of the name that is gone is free";
  EXPECT_EQ(database_.stores().size(), 1U);
  EXPECT_EQ(database_.categories().Find(5000), nullptr);
}

TEST_F(UndoneNamesTest, GoLaterWhenAListIsInUse) {
  File holder;
  ASSERT_TRUE(holder.Open(Path("unit.lst"), File::Mode::kRead));
  EXPECT_EQ(database_.RollBack(), 0);
  ExpectNoUndoneName();
  EXPECT_TRUE(database_.units().loaded());
  holder.Close();
  EXPECT_EQ(database_.RollBack(), 0);
  ExpectNoUndoneName();
}

}  // namespace
}  // namespace brovanta

#include "db/shopping_database.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "db/error_codes.h"
#include "platform/file.h"
#include "tests/db/database_test.h"
#include "tests/db/raw_files.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_limit.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Hex;
using test::RawItem;
using test::RawListFile;
using test::TempFolder;

void ExpectPaths(const DatabasePaths& paths, const std::string& folder) {
  EXPECT_EQ(paths.product, folder + "product.dat");
  EXPECT_EQ(paths.purchase, folder + "purchase.dat");
  EXPECT_EQ(paths.discount, folder + "discount.dat");
  EXPECT_EQ(paths.backup, folder + "backup.dat");
  EXPECT_EQ(paths.store, folder + "store.lst");
  EXPECT_EQ(paths.category, folder + "category.lst");
  EXPECT_EQ(paths.unit, folder + "unit.lst");
}

TEST(ShoppingDatabaseOpenTest, BuildsTheSevenPathsWithABackslash) {
  ShoppingDatabase database;
  EXPECT_EQ(database.Open("/no/such/folder"), ERR_OPEN);
  ExpectPaths(database.paths(), "/no/such/folder\\");
}

TEST(ShoppingDatabaseOpenTest, ATrailingBackslashOrSlashGivesTheSamePaths) {
  ShoppingDatabase database;
  (void)database.Open("/no/such/folder\\");
  ExpectPaths(database.paths(), "/no/such/folder\\");
  (void)database.Open("/no/such/folder/");
  ExpectPaths(database.paths(), "/no/such/folder/");
}

TEST(ShoppingDatabaseOpenTest, WithoutAFolderTheNamesAreAppendedAgainAndAgain) {
  ShoppingDatabase database;
  (void)database.Open(std::nullopt);
  EXPECT_EQ(database.paths().product, "product.dat");
  EXPECT_EQ(database.paths().backup, "backup.dat");
  (void)database.Open("/");  // shorter than 2 bytes: no folder
  EXPECT_EQ(database.paths().product, "product.datproduct.dat");
  EXPECT_EQ(database.paths().unit, "unit.lstunit.lst");
  (void)database.Open("");
  EXPECT_EQ(database.paths().store, "store.lststore.lststore.lst");
  (void)database.Open("/x");
  EXPECT_EQ(database.paths().store, "/x\\store.lst");
}

TEST(ShoppingDatabaseOpenTest, PathsAreBoundedTo249Bytes) {
  ShoppingDatabase database;
  const std::string folder(245, 'f');
  EXPECT_EQ(database.Open(folder), ERR_OPEN);
  EXPECT_EQ(database.paths().product, folder + "\\pro");
  EXPECT_EQ(database.paths().store, folder + "\\sto");
  (void)database.Open(std::string(400, 'f'));
  EXPECT_EQ(database.paths().category, std::string(249, 'f'));
}

TEST(ShoppingDatabaseOpenTest, LoadsTheThreeLists) {
  const TempFolder folder;
  folder.Write("store.lst", RawListFile({RawItem(1, "Mega")}));
  folder.Write("category.lst", RawListFile({RawItem(2, "Food"), RawItem(3, "Soap")}));
  folder.Write("unit.lst", RawListFile({}));
  ShoppingDatabase database;
  EXPECT_EQ(database.Open(folder.path()), 0);
  EXPECT_EQ(database.stores().Find(1)->Name.view(), "Mega");
  EXPECT_EQ(database.categories().size(), 2u);
  EXPECT_TRUE(database.units().loaded());
}

TEST(ShoppingDatabaseOpenTest, TheFirstListThatFailsStopsTheLoading) {
  const TempFolder folder;
  const Bytes sound = RawListFile({RawItem(1, "a")});
  folder.Write("store.lst", sound);
  folder.Write("category.lst", Hex("00 01 02 03"));
  folder.Write("unit.lst", sound);
  ShoppingDatabase database;
  EXPECT_EQ(database.Open(folder.path()), ERR_FORMAT);
  EXPECT_EQ(database.stores().size(), 1u);
  EXPECT_TRUE(database.categories().empty());
  EXPECT_TRUE(database.units().empty());
  folder.Write("category.lst", RawListFile({RawItem(0, "a")}));
  EXPECT_EQ(database.Open(folder.path()), ERR_IO);
  std::filesystem::remove(folder.File("store.lst"));
  EXPECT_EQ(database.Open(folder.path()), ERR_OPEN);
  EXPECT_TRUE(database.stores().empty());
}

TEST(ShoppingDatabaseOpenTest, TheListsThatWereNotLoadedAreReadBeforeRecordsAreShown) {
  const Bytes sound = RawListFile({RawItem(1, "a")});
  const auto load_products = [](ShoppingDatabase& database) {
    (void)database.products().Load(nullptr);
  };
  const auto load_discounts = [](ShoppingDatabase& database) {
    (void)database.discounts().Load(nullptr);
  };
  for (const auto& load :
       std::vector<std::function<void(ShoppingDatabase&)>>{load_products, load_discounts}) {
    const TempFolder folder;
    folder.Write("store.lst", Hex("00 01 02 03"));
    folder.Write("category.lst", sound);
    folder.Write("unit.lst", sound);
    ShoppingDatabase database;
    EXPECT_EQ(database.Open(folder.path()), ERR_FORMAT);
    EXPECT_TRUE(database.categories().empty());
    load(database);
    EXPECT_TRUE(database.stores().empty());
    EXPECT_FALSE(database.stores().loaded());
    EXPECT_TRUE(database.categories().loaded());
    EXPECT_EQ(database.categories().size(), 1u);
    EXPECT_EQ(database.units().size(), 1u);
    EXPECT_EQ(folder.Read("store.lst"), Hex("00 01 02 03"));
  }
}

TEST(ShoppingDatabaseOpenTest, AListHeldAtTheStartIsReadOnceItIsFree) {
  const TempFolder folder;
  for (const char* name : {"store.lst", "category.lst", "unit.lst"}) {
    folder.Write(name, RawListFile({RawItem(1, "Dairy")}));
  }
  ShoppingDatabase database;
  {
    platform::File holder;
    ASSERT_TRUE(holder.Open(folder.File("store.lst"), platform::File::Mode::kRead));
    EXPECT_EQ(database.Open(folder.path()), ERR_OPEN);
    database.FinishOpening();
    EXPECT_TRUE(database.stores().empty());
    EXPECT_EQ(database.categories().size(), 1u);
  }
  NameRef store{0, "dairy"};
  EXPECT_EQ(database.ResolveNames(&store, nullptr, nullptr), 0);
  EXPECT_EQ(store.Id, 1) << "nobody could choose it from the empty list";
  EXPECT_EQ(folder.Read("store.lst"), RawListFile({RawItem(1, "Dairy")}));
}

TEST(ShoppingDatabaseOpenTest, ANewFolderForgetsTheListsOfTheOldOne) {
  const TempFolder folder;
  for (const char* name : {"store.lst", "category.lst", "unit.lst"}) {
    folder.Write(name, RawListFile({RawItem(1, "a")}));
  }
  ShoppingDatabase database;
  ASSERT_EQ(database.Open(folder.path()), 0);
  EXPECT_EQ(database.Open("/no/such/folder"), ERR_OPEN);
  EXPECT_TRUE(database.categories().empty());
  EXPECT_TRUE(database.units().empty());
}

using ResolveNamesTest = test::DatabaseTest;

TEST_F(ResolveNamesTest, NewNamesGetIdsFrom5000InTheirLists) {
  NameRef store{0, "Corner Shop"};
  NameRef category{0, "Food"};
  NameRef unit{0, "kg"};
  EXPECT_EQ(database_.ResolveNames(&store, &category, &unit), 0);
  EXPECT_EQ(store.Id, 5000);
  EXPECT_EQ(category.Id, 5000);
  EXPECT_EQ(unit.Id, 5000);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(5000, "Corner Shop")}));
  EXPECT_EQ(folder_.Read("category.lst"), RawListFile({RawItem(5000, "Food")}));
  EXPECT_EQ(folder_.Read("unit.lst"), RawListFile({RawItem(5000, "kg")}));
  EXPECT_EQ(database_.units().Find(5000)->Name.view(), "kg");
}

TEST_F(ResolveNamesTest, TheNewIdFollowsTheLargest) {
  struct Case {
    std::int32_t largest;
    std::int32_t expected;
  };
  for (const auto& [largest, expected] :
       {Case{4998, 5000}, {4999, 5000}, {5000, 5001}, {6000, 6001}}) {
    folder_.Write("store.lst", RawListFile({RawItem(3, "a"), RawItem(largest, "b")}));
    ASSERT_EQ(database_.Open(folder_.path()), 0);
    NameRef store{0, "new"};
    EXPECT_EQ(database_.ResolveNames(&store, nullptr, nullptr), 0);
    EXPECT_EQ(store.Id, expected);
    EXPECT_EQ(database_.stores().size(), 3u);
  }
}

TEST_F(ResolveNamesTest, MissingAndKnownReferencesAreLeftAlone) {
  const Bytes before = *folder_.Read("store.lst");
  NameRef known{12, "whatever"};
  EXPECT_EQ(database_.ResolveNames(&known, nullptr, nullptr), 0);
  EXPECT_EQ(known.Id, 12);
  EXPECT_EQ(folder_.Read("store.lst"), before);
}

TEST_F(ResolveNamesTest, AnEmptyNameGetsAnIdToo) {
  NameRef store{0, ""};
  EXPECT_EQ(database_.ResolveNames(&store, nullptr, nullptr), 0);
  EXPECT_EQ(store.Id, 5000);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(5000, "")}));
}

TEST_F(ResolveNamesTest, ALongNameIsCutTo49Bytes) {
  NameRef store{0, std::string(60, 'n')};
  EXPECT_EQ(database_.ResolveNames(&store, nullptr, nullptr), 0);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(5000, std::string(49, 'n'))}));
}

TEST_F(ResolveNamesTest, NoIdIsLeftBehindTheLargestOfAll) {
  const Bytes full = RawListFile({RawItem(std::numeric_limits<std::int32_t>::max(), "last")});
  folder_.Write("store.lst", full);
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  NameRef store{0, "new"};
  EXPECT_EQ(database_.ResolveNames(&store, nullptr, nullptr), ERR_IO);
  EXPECT_EQ(store.Id, 0);
  EXPECT_EQ(folder_.Read("store.lst"), full);
  EXPECT_EQ(database_.stores().size(), 1u);
}

TEST_F(ResolveNamesTest, AFailedWriteTakesTheNameOutAgainAndStopsBeforeTheNextList) {
  NameRef store{0, "Corner Shop"};
  NameRef category{0, "Food"};
  {
    const test::WriteLimit full(20);
    EXPECT_EQ(database_.ResolveNames(&store, &category, nullptr), ERR_IO);
  }
  EXPECT_EQ(store.Id, 0);
  EXPECT_EQ(category.Id, 0);
  EXPECT_TRUE(database_.stores().empty());
  EXPECT_TRUE(database_.categories().empty());
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({}));
  EXPECT_EQ(database_.ResolveNames(&store, &category, nullptr), 0);
  EXPECT_EQ(store.Id, 5000);
}

TEST_F(ResolveNamesTest, AListThatIsCutWhileTheProgramRunsTakesNewNamesAndKeepsItsBytes) {
  folder_.Write("store.lst", RawListFile({RawItem(7, "Mega"), RawItem(8, "Mini")}));
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  Bytes cut = RawListFile({RawItem(7, "Mega"), RawItem(8, "Mini")});
  cut.resize(cut.size() - 10);
  folder_.Write("store.lst", cut);
  NameRef store{0, "Corner Shop"};
  EXPECT_EQ(database_.ResolveNames(&store, nullptr, nullptr), 0);
  EXPECT_EQ(folder_.Read("store.lst"),
            RawListFile({RawItem(7, "Mega"), RawItem(8, "Mini"), RawItem(5000, "Corner Shop")}));
  EXPECT_EQ(folder_.Read("store.lst.bad"), cut);
}

TEST_F(ResolveNamesTest, ALockedListIsNotWritten) {
  platform::File holder;
  ASSERT_TRUE(holder.Open(database_.paths().category, platform::File::Mode::kRead));
  NameRef store{0, "Corner Shop"};
  NameRef category{0, "Food"};
  EXPECT_EQ(database_.ResolveNames(&store, &category, nullptr), ERR_OPEN);
  EXPECT_EQ(store.Id, 5000);  // the store was written before and stays
  EXPECT_EQ(category.Id, 0);
  EXPECT_TRUE(database_.categories().empty());
}

TEST_F(ResolveNamesTest, AListThatWasNotLoadedIsLoadedBeforeAnIdIsPicked) {
  std::filesystem::remove(folder_.File("store.lst"));
  folder_.Write("category.lst", RawListFile({RawItem(5000, "Food"), RawItem(5001, "Soap")}));
  ASSERT_EQ(database_.Open(folder_.path()), ERR_OPEN);
  ASSERT_TRUE(database_.categories().empty());
  NameRef category{0, "Drinks"};
  EXPECT_EQ(database_.ResolveNames(nullptr, &category, nullptr), 0);
  EXPECT_EQ(category.Id, 5002);
  EXPECT_EQ(folder_.Read("category.lst"),
            RawListFile({RawItem(5000, "Food"), RawItem(5001, "Soap"), RawItem(5002, "Drinks")}));
}

TEST_F(ResolveNamesTest, AMissingListIsMadeWithItsFirstName) {
  std::filesystem::remove(folder_.File("store.lst"));
  ASSERT_EQ(database_.Open(folder_.path()), ERR_OPEN);
  NameRef store{0, "Corner Shop"};
  EXPECT_EQ(database_.ResolveNames(&store, nullptr, nullptr), 0);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(5000, "Corner Shop")}));
}

TEST_F(ResolveNamesTest, ADamagedListKeepsWhatCouldBeReadAndItsBytesAside) {
  Bytes damaged = RawListFile({RawItem(5007, "Mega"), RawItem(5008, "Mini")});
  damaged[72] = std::byte{0};  // the second mark
  folder_.Write("store.lst", damaged);
  ASSERT_EQ(database_.Open(folder_.path()), ERR_FORMAT);
  NameRef store{0, "Corner Shop"};
  EXPECT_EQ(database_.ResolveNames(&store, nullptr, nullptr), 0);
  EXPECT_EQ(store.Id, 5008);
  EXPECT_EQ(folder_.Read("store.lst"),
            RawListFile({RawItem(5007, "Mega"), RawItem(5008, "Corner Shop")}));
  EXPECT_EQ(folder_.Read("store.lst.bad"), damaged);
}

}  // namespace
}  // namespace brovanta

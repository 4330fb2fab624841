#include "server/store_schema.h"

#include <gmock/gmock.h>

#include "tests/server/test_store.h"

namespace brovanta::server {
namespace {

using sqlite::Connection;
using sqlite::OpenMode;
using testing::HasSubstr;

class StoreSchemaTest : public testing::Test {
 protected:
  std::unique_ptr<Connection> Raw() {
    return Connection::Open(folder_.File("a.db"), OpenMode::kCreate, error_);
  }
  std::unique_ptr<Store> OpenStore() {
    return Store::Open(folder_.File("a.db"), OpenMode::kCreate, error_);
  }

  test::TempFolder folder_;
  std::string error_;
};

TEST_F(StoreSchemaTest, ANewFileBecomesADatabaseOfThisServer) {
  ASSERT_NE(OpenStore(), nullptr) << error_;
  const auto raw = Raw();
  EXPECT_EQ(raw->Number("PRAGMA application_id", 0), 0x42726F76);
  EXPECT_EQ(raw->Number("PRAGMA user_version", 0), 1);
  EXPECT_EQ(raw->Number("SELECT count(*) FROM sqlite_schema WHERE type = 'table'", 0), 4);
}

TEST_F(StoreSchemaTest, OpensItsOwnFileAgain) {
  ASSERT_NE(OpenStore(), nullptr);
  EXPECT_NE(OpenStore(), nullptr) << error_;
}

TEST_F(StoreSchemaTest, CommitsAreSyncedAndReadersGoOn) {
  const auto raw = Raw();
  ASSERT_TRUE(PrepareDatabase(*raw, error_));
  EXPECT_EQ(raw->Number("PRAGMA synchronous", -1), 2);  // FULL
  EXPECT_EQ(raw->Number("SELECT journal_mode = 'wal' FROM pragma_journal_mode", -1), 1);
}

TEST_F(StoreSchemaTest, LeavesADatabaseOfAnotherProgramAsItIs) {
  ASSERT_TRUE(Raw()->Run("CREATE TABLE mine (a); INSERT INTO mine VALUES (1)"));
  const auto before = folder_.Read("a.db");
  EXPECT_EQ(OpenStore(), nullptr);
  EXPECT_THAT(error_, HasSubstr("another program"));
  EXPECT_EQ(folder_.Read("a.db"), before);
}

TEST_F(StoreSchemaTest, LeavesANewerDatabaseAsItIs) {
  ASSERT_NE(OpenStore(), nullptr);
  ASSERT_TRUE(Raw()->Run("PRAGMA user_version = 2"));
  EXPECT_EQ(OpenStore(), nullptr);
  EXPECT_THAT(error_, HasSubstr("newer version"));
}

TEST_F(StoreSchemaTest, LeavesAFileThatIsNoDatabaseAsItIs) {
  const std::string text = "id,name\n1,This is a table and no database at all.\n";
  folder_.WriteText("a.db", text);
  EXPECT_EQ(OpenStore(), nullptr);
  EXPECT_THAT(error_, HasSubstr("not a database"));
  EXPECT_EQ(folder_.ReadText("a.db"), text);
}

TEST_F(StoreSchemaTest, TheTablesThemselvesRefuseWhatMustNotBeThere) {
  ASSERT_NE(OpenStore(), nullptr);
  const auto raw = Raw();
  EXPECT_FALSE(raw->Run("INSERT INTO store VALUES (4999, 'Beyond')"));
  EXPECT_FALSE(raw->Run("INSERT INTO category VALUES (0, 'Nothing')"));
  EXPECT_FALSE(raw->Run("INSERT INTO store VALUES (1, NULL)"));
  EXPECT_FALSE(raw->Run("INSERT INTO agent_file VALUES (2, x'00')"));
  EXPECT_FALSE(raw->Run("INSERT INTO coupon VALUES (3,1,'','','',1,1,'1',NULL,NULL,1,1)"));
  EXPECT_TRUE(raw->Run("INSERT INTO coupon VALUES (2,1,'','','',1,1,'1',NULL,NULL,1,1)"));
}

TEST_F(StoreSchemaTest, EachListHasItsTable) {
  EXPECT_EQ(TableOf(ListKind::kStores), "store");
  EXPECT_EQ(TableOf(ListKind::kCategories), "category");
}

}  // namespace
}  // namespace brovanta::server

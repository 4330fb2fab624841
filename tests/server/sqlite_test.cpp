#include "server/sqlite.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace brovanta::server::sqlite {
namespace {

class SqliteTest : public testing::Test {
 protected:
  std::unique_ptr<Connection> Open(OpenMode mode = OpenMode::kCreate) {
    return Connection::Open(folder_.File("a.db"), mode, error_);
  }

  test::TempFolder folder_;
  std::string error_;
};

TEST_F(SqliteTest, DoesNotMakeAFileThatMustExist) {
  EXPECT_EQ(Open(OpenMode::kMustExist), nullptr);
  EXPECT_NE(error_, "");
  EXPECT_FALSE(folder_.Read("a.db"));
}

TEST_F(SqliteTest, KeepsNumbersTextsBytesAndNothing) {
  const auto connection = Open();
  ASSERT_NE(connection, nullptr);
  ASSERT_TRUE(connection->Run("CREATE TABLE t (a, b, c, d, e)"));
  Statement put(*connection, "INSERT INTO t VALUES (?, ?, ?, ?, ?)");
  const std::string bytes("a\0b", 3);
  put.Bind(0, std::int64_t{-5'000'000'000});
  put.Bind(1, "text");
  put.BindBytes(2, bytes);
  put.BindNull(3);
  put.Bind(4, std::string_view());
  ASSERT_TRUE(put.Run());
  Statement get(*connection, "SELECT * FROM t");
  ASSERT_EQ(get.Next(), Step::kRow);
  EXPECT_EQ(get.Number(0), -5'000'000'000);
  EXPECT_EQ(get.Text(1), "text");
  EXPECT_EQ(get.Text(2), bytes);
  EXPECT_TRUE(get.IsNull(3));
  EXPECT_FALSE(get.IsNull(4));
  EXPECT_EQ(get.Text(4), "");
  EXPECT_EQ(get.Next(), Step::kDone);
}

TEST_F(SqliteTest, AStatementMayRunAgain) {
  const auto connection = Open();
  ASSERT_NE(connection, nullptr);
  ASSERT_TRUE(connection->Run("CREATE TABLE t (a INTEGER PRIMARY KEY)"));
  Statement put(*connection, "INSERT INTO t VALUES (?)");
  for (const std::int64_t number : {1, 2, 3}) {
    put.Bind(0, number);
    EXPECT_TRUE(put.Run());
  }
  put.Bind(0, std::int64_t{3});
  EXPECT_FALSE(put.Run());
  EXPECT_EQ(connection->Number("SELECT count(*) FROM t", -1), 3);
}

TEST_F(SqliteTest, AStatementThatMakesNoSenseFails) {
  const auto connection = Open();
  ASSERT_NE(connection, nullptr);
  Statement nonsense(*connection, "SELECT FROM WHERE");
  EXPECT_NE(connection->Error(), "");
  nonsense.Bind(0, "x");
  EXPECT_EQ(nonsense.Next(), Step::kFailed);
  EXPECT_EQ(connection->Number("SELECT a FROM nowhere", -7), -7);
  EXPECT_FALSE(connection->Run("DROP TABLE nowhere"));
}

TEST_F(SqliteTest, ATransactionThatIsNotCommittedLeavesNothing) {
  const auto connection = Open();
  ASSERT_NE(connection, nullptr);
  ASSERT_TRUE(connection->Run("CREATE TABLE t (a)"));
  {
    const Transaction transaction(*connection);
    ASSERT_TRUE(transaction.begun());
    ASSERT_TRUE(connection->Run("INSERT INTO t VALUES (1)"));
  }
  EXPECT_EQ(connection->Number("SELECT count(*) FROM t", -1), 0);
  Transaction transaction(*connection);
  ASSERT_TRUE(connection->Run("INSERT INTO t VALUES (1)"));
  EXPECT_TRUE(transaction.Commit());
  EXPECT_FALSE(transaction.Commit());
  EXPECT_EQ(connection->Number("SELECT count(*) FROM t", -1), 1);
}

TEST_F(SqliteTest, ATransactionInsideAnotherDoesNotBegin) {
  const auto connection = Open();
  ASSERT_NE(connection, nullptr);
  const Transaction outer(*connection);
  Transaction inner(*connection);
  EXPECT_TRUE(outer.begun());
  EXPECT_FALSE(inner.begun());
  EXPECT_FALSE(inner.Commit());
}

}  // namespace
}  // namespace brovanta::server::sqlite

#include "server/import_file.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <utility>

#include "server/demo_agents.h"
#include "tests/server/test_store.h"

namespace brovanta::server {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using ImportFileTest = StoreTest;

constexpr char kStores[] = "id,name\n1,Corner Shop\n2,\"Fish, Fresh\"\n";
constexpr char kCoupons[] =
    "source,id,name,product,description,type,value_type,value,start_date,end_date,store_id,"
    "category_id\n"
    "coupon,1,\"$1.50 off, today\",Milk,,mail in rebate,amount,1.50,,2025-12-31,2,1\n"
    "deal,1,Half price,,Today,store coupon,percent,50,2025-01-01,,1,1\n";

TEST_F(ImportFileTest, ReadsAndWritesWholeFiles) {
  const std::string bytes(300'000, '\xE9');
  ASSERT_TRUE(WriteWholeFile(folder_.File("x"), bytes, error_)) << error_;
  EXPECT_EQ(ReadWholeFile(folder_.File("x"), error_), bytes);
  EXPECT_FALSE(folder_.Read("x.new"));
}

TEST_F(ImportFileTest, SaysWhyAFileCannotBeReadOrWritten) {
  EXPECT_EQ(ReadWholeFile(folder_.File("none"), error_), std::nullopt);
  EXPECT_EQ(error_, "No such file or directory");
  EXPECT_EQ(ReadWholeFile(folder_.path(), error_), std::nullopt);
  EXPECT_EQ(error_, "Is a directory");
  EXPECT_FALSE(WriteWholeFile(folder_.File("none/x"), "a", error_));
  EXPECT_EQ(error_, "No such file or directory");
}

TEST_F(ImportFileTest, AFileThatCannotBeReplacedStays) {
  ASSERT_EQ(mkdir(folder_.File("taken").c_str(), 0700), 0);
  EXPECT_FALSE(WriteWholeFile(folder_.File("taken"), "a", error_));
  EXPECT_NE(error_, "");
  EXPECT_FALSE(folder_.Read("taken.new"));
}

TEST_F(ImportFileTest, RefusesFilesWithoutEnd) {
  EXPECT_EQ(ReadWholeFile("/dev/zero", error_), std::nullopt);
  EXPECT_THAT(error_, testing::HasSubstr("larger than"));
}

TEST_F(ImportFileTest, WhatIsImportedComesOutUnchanged) {
  for (const auto& [subject, text] :
       {std::pair(Subject::kStores, kStores), std::pair(Subject::kCategories, "id,name\n1,Food\n"),
        std::pair(Subject::kCoupons, kCoupons)}) {
    const ImportOutcome outcome = ImportText(*store_, subject, text, false);
    EXPECT_THAT(outcome.problems, IsEmpty());
    EXPECT_EQ(ExportText(*store_, subject, error_), std::string(text));
  }
  const std::string agents = DemoAgentFile() + "\r\n\xFF";
  EXPECT_EQ(ImportText(*store_, Subject::kAgents, agents, false).entries, 1u);
  EXPECT_EQ(ExportText(*store_, Subject::kAgents, error_), agents);
}

TEST_F(ImportFileTest, CountsWhatItImports) {
  EXPECT_EQ(ImportText(*store_, Subject::kStores, kStores, false).entries, 2u);
  EXPECT_EQ(ImportText(*store_, Subject::kStores, "id,name\n", false).entries, 0u);
}

TEST_F(ImportFileTest, AFaultyFileImportsNothing) {
  EXPECT_THAT(ImportText(*store_, Subject::kStores, "id,name\n1,Good\n2,x\n", false).problems,
              ElementsAre(Problem{3, "name is shorter than 2 characters"}));
  EXPECT_THAT(ImportText(*store_, Subject::kCoupons, kCoupons, false).problems, SizeIs(4))
      << "neither stores nor categories are known";
  EXPECT_THAT(ImportText(*store_, Subject::kAgents, "<WebAgent>", false).problems, SizeIs(2));
  EXPECT_TRUE(store_->IsEmpty());
}

TEST_F(ImportFileTest, ReplacesWhenToldSo) {
  ASSERT_THAT(ImportText(*store_, Subject::kStores, kStores, false).problems, IsEmpty());
  ASSERT_THAT(ImportText(*store_, Subject::kStores, "id,name\n7,New\n", true).problems, IsEmpty());
  EXPECT_THAT(Entries(ListKind::kStores), ElementsAre(ListEntry{7, "New"}));
}

TEST_F(ImportFileTest, SaysWhyThereIsNothingToExport) {
  EXPECT_EQ(ExportText(*store_, Subject::kAgents, error_), std::nullopt);
  EXPECT_EQ(error_, "there is no agent file in the database");
  const auto raw = sqlite::Connection::Open(path(), sqlite::OpenMode::kMustExist, error_);
  ASSERT_TRUE(raw->Run("DROP TABLE store"));
  EXPECT_EQ(ExportText(*store_, Subject::kStores, error_), std::nullopt);
  EXPECT_EQ(error_, "the database cannot be read");
}

TEST_F(ImportFileTest, AnEmptyTableIsExportedAsItsNames) {
  EXPECT_EQ(ExportText(*store_, Subject::kStores, error_), "id,name\n");
}

}  // namespace
}  // namespace brovanta::server

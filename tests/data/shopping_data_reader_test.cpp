#include "data/shopping_data_reader.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "platform/file.h"
#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

using testing::HasSubstr;

class ShoppingDataReaderTest : public testing::Test {
 protected:
  ReadProblem Problem() {
    ReadProblem problem;
    EXPECT_FALSE(ReadShoppingData(folder_.path(), problem));
    return problem;
  }

  test::TempFolder folder_;
};

TEST_F(ShoppingDataReaderTest, ReadsEveryRecordInItsOrder) {
  test::MakeHousehold(folder_.path());
  const auto before = test::PictureOf(folder_.path());
  ReadProblem problem;
  const auto data = ReadShoppingData(folder_.path(), problem);
  ASSERT_TRUE(data) << problem.words;
  ASSERT_EQ(data->products.size(), 3U);
  EXPECT_EQ(data->products[0].Name.view(), "Milk");
  EXPECT_EQ(data->products[2].Name.view(), "Salt");
  EXPECT_EQ(data->products[1].Deleted, 1);
  EXPECT_EQ(data->discounts.size(), 4U);
  ASSERT_NE(data->stores.Find(5000), nullptr);
  EXPECT_EQ(data->stores.Find(5000)->Name.view(), "Corner Shop");
  EXPECT_EQ(data->categories.size(), 1U);
  EXPECT_EQ(data->units.size(), 1U);
  EXPECT_EQ(test::PictureOf(folder_.path()), before);
}

TEST_F(ShoppingDataReaderTest, MissingFilesAreEmptyOnes) {
  test::MakeEmptyLists(folder_.path());
  ReadProblem problem;
  const auto data = ReadShoppingData(folder_.path(), problem);
  ASSERT_TRUE(data) << problem.words;
  EXPECT_TRUE(data->products.empty());
}

TEST_F(ShoppingDataReaderTest, AnEmptyFolderIsNoneOfOurs) {
  EXPECT_EQ(Problem().status, kNoFolder);
  EXPECT_EQ(Problem().words, "no data file of the program is in it");
}

TEST_F(ShoppingDataReaderTest, NoFolderIsTold) {
  ReadProblem problem;
  EXPECT_FALSE(ReadShoppingData(folder_.File("none"), problem));
  EXPECT_EQ(problem.status, kNoFolder);
  EXPECT_EQ(problem.words, "there is no such folder");
}

TEST_F(ShoppingDataReaderTest, ADamagedFileIsNotTakenForTheWhole) {
  test::MakeHousehold(folder_.path());
  for (const char* const file :
       {"product.dat", "discount.dat", "store.lst", "category.lst", "unit.lst"}) {
    const auto bytes = folder_.Read(file).value();
    std::filesystem::resize_file(folder_.File(file), bytes.size() - 3);
    const ReadProblem problem = Problem();
    EXPECT_EQ(problem.status, kBad);
    EXPECT_THAT(problem.words, HasSubstr(std::string(file) + " is damaged: the file is cut off"));
    folder_.Write(file, bytes);
  }
}

TEST_F(ShoppingDataReaderTest, AFileThatSomebodyHoldsIsToBeReadLater) {
  test::MakeHousehold(folder_.path());
  platform::File held;
  ASSERT_TRUE(held.Open(folder_.File("product.dat"), platform::File::Mode::kReadWrite));
  EXPECT_EQ(Problem().status, kBad);
  EXPECT_THAT(Problem().words, HasSubstr("someone else has product.dat open"));
}

TEST_F(ShoppingDataReaderTest, AChangeLeftInTheMiddleIsTold) {
  test::MakeHousehold(folder_.path());
  folder_.WriteText("backup.dat", "more than an empty journal");
  EXPECT_EQ(Problem().status, kBad);
  EXPECT_THAT(Problem().words, HasSubstr("a change was left in the middle"));
}

}  // namespace
}  // namespace brovanta::data_tool

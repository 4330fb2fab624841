#include "db/file_image.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "db/product_list.h"
#include "db/shopping_database.h"
#include "platform/file.h"
#include "tests/db/stored_product.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using platform::File;
using test::Bytes;
using test::Hex;
using test::ProductFile;
using test::StoredProduct;
using testing::ElementsAre;
using testing::IsEmpty;

std::int64_t SystemTime() { return std::time(nullptr); }

class FileImageTest : public testing::Test {
 protected:
  /// Writes the file in such a way that its state is another one than before.
  void Change(const Bytes& bytes) {
    const auto before = State();
    do {
      folder_.Write("data", bytes);
    } while (State() == before);
  }

  [[nodiscard]] std::optional<platform::FileState> State() const {
    File file;
    if (!file.Open(folder_.File("data"), File::Mode::kRead)) return std::nullopt;
    return file.State();
  }

  Bytes Ask() {
    File file;
    EXPECT_TRUE(file.Open(folder_.File("data"), File::Mode::kRead));
    const std::span<const std::byte> bytes = image_.Of(file);
    return {bytes.begin(), bytes.end()};
  }

  test::TempFolder folder_;
  // Late enough for the files of the test to be settled.
  test::FixedClock clock_{SystemTime() + 3600};
  FileImage image_;
};

TEST_F(FileImageTest, TheSecondCallForAStateTakesTheBytes) {
  Change(Hex("01 02 03"));
  EXPECT_THAT(Ask(), IsEmpty());
  EXPECT_EQ(Ask(), Hex("01 02 03"));
  EXPECT_EQ(Ask(), Hex("01 02 03"));
}

TEST_F(FileImageTest, AChangedFileOfTheSameSizeIsReadAnew) {
  Change(Hex("01 02 03"));
  Ask();
  ASSERT_EQ(Ask(), Hex("01 02 03"));
  Change(Hex("01 02 04"));
  EXPECT_THAT(Ask(), IsEmpty());
  EXPECT_EQ(Ask(), Hex("01 02 04"));
}

TEST_F(FileImageTest, AnotherFileInTheSamePlaceIsReadAnew) {
  Change(Hex("01 02 03"));
  folder_.Write("other", Hex("07 08 09"));
  Ask();
  ASSERT_EQ(Ask(), Hex("01 02 03"));
  std::filesystem::rename(folder_.File("other"), folder_.File("data"));
  EXPECT_THAT(Ask(), IsEmpty());
  EXPECT_EQ(Ask(), Hex("07 08 09"));
}

TEST_F(FileImageTest, AFileThatJustChangedIsNotHeld) {
  Change(Hex("01 02 03"));
  const std::int64_t changed = State()->changed;
  clock_.Set(changed + FileImage::kSettledSeconds - 1);
  EXPECT_THAT(Ask(), IsEmpty());
  EXPECT_THAT(Ask(), IsEmpty());
  clock_.Set(changed + FileImage::kSettledSeconds);
  EXPECT_EQ(Ask(), Hex("01 02 03"));
}

TEST_F(FileImageTest, AFileFromTheFutureIsNotHeld) {
  Change(Hex("01 02 03"));
  clock_.Set(State()->changed - 1000);
  EXPECT_THAT(Ask(), IsEmpty());
  EXPECT_THAT(Ask(), IsEmpty());
}

TEST_F(FileImageTest, ALargerFileIsNotHeld) {
  Change(Hex("01"));
  std::filesystem::resize_file(folder_.File("data"), FileImage::kLargestSize + 1);
  EXPECT_THAT(Ask(), IsEmpty());
  EXPECT_THAT(Ask(), IsEmpty());
}

TEST_F(FileImageTest, TheReadPositionStaysAtTheFront) {
  Change(Hex("01 02 03"));
  Ask();
  File file;
  ASSERT_TRUE(file.Open(folder_.File("data"), File::Mode::kRead));
  ASSERT_EQ(image_.Of(file).size(), 3U);
  std::byte first{};
  ASSERT_EQ(file.Read({&first, 1}), 1);
  EXPECT_EQ(first, std::byte{1});
}

/// A list that reloads its file in all the ways in which it can have changed meanwhile.
class ReloadTest : public FileImageTest {
 protected:
  void SetUp() override { ASSERT_NE(database_.Open(folder_.path()), 0); }

  void Write(const Bytes& bytes) {
    Change(bytes);
    std::filesystem::rename(folder_.File("data"), folder_.File("product.dat"));
  }

  static int Load(ProductList& list) {
    ProductFilter filter;
    filter.to = test::At(2030, 1, 1);
    return list.Load(&filter);
  }

  static std::vector<std::string> Names(ProductList& list) {
    std::vector<std::string> names;
    for (const auto* record = list.First(); record != nullptr; record = list.Next()) {
      names.emplace_back(record->Name.view());
    }
    return names;
  }

  ShoppingDatabase database_;
};

TEST_F(ReloadTest, AListShowsWhatIsInTheFileHoweverOftenItIsLoaded) {
  ProductList& list = database_.products();
  Write(ProductFile(1, {{.id = 1, .name = "Milk", .start = 5}}));
  for (int load = 0; load < 4; ++load) {
    ASSERT_EQ(Load(list), 0);
    ASSERT_THAT(Names(list), ElementsAre("Milk"));
  }
  Write(ProductFile(1, {{.id = 1, .name = "Soap", .start = 5}}));
  for (int load = 0; load < 4; ++load) {
    ASSERT_EQ(Load(list), 0);
    ASSERT_THAT(Names(list), ElementsAre("Soap"));
  }
}

TEST_F(ReloadTest, AHeldFileStillCannotBeOpenedWhileSomeoneElseHasIt) {
  ProductList& list = database_.products();
  Write(ProductFile(1, {{.id = 1, .start = 5}}));
  for (int load = 0; load < 3; ++load) ASSERT_EQ(Load(list), 0);
  File other;
  ASSERT_TRUE(other.Open(folder_.File("product.dat"), File::Mode::kRead));
  EXPECT_EQ(Load(list), -11);
  EXPECT_THAT(Names(list), IsEmpty());
}

TEST_F(ReloadTest, DamagedFilesGiveTheSameCodeAndRecordsOnEveryLoad) {
  const Bytes whole = ProductFile(2, {{.id = 1, .start = 5}, {.id = 2, .start = 4}});
  for (const std::size_t size : {0U, 3U, 4U, 7U, 11U, 12U, 300U, 467U, 470U, 472U, 931U}) {
    Write(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
    ShoppingDatabase fresh;
    ASSERT_NE(fresh.Open(folder_.path()), 0);
    const int code = Load(fresh.products());
    for (int load = 0; load < 3; ++load) {
      EXPECT_EQ(Load(database_.products()), code) << size;
      EXPECT_EQ(Names(database_.products()), Names(fresh.products())) << size;
    }
  }
}

TEST_F(ReloadTest, AProductAddedBetweenLoadsIsThere) {
  ProductList& list = database_.products();
  Write(ProductFile(1, {{.id = 1, .name = "Milk", .start = 5}}));
  for (int load = 0; load < 3; ++load) ASSERT_EQ(Load(list), 0);
  ProductFields fields;
  fields.name = "Soap";
  fields.purchase_kind = 1;
  fields.start_date = 6;
  ASSERT_TRUE(list.Add(kProductKind, fields).has_value());
  ASSERT_EQ(Load(list), 0);
  EXPECT_THAT(Names(list), ElementsAre("Soap", "Milk"));
}

}  // namespace
}  // namespace brovanta

#include "platform/app_options.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <bit>
#include <cstdint>
#include <limits>

#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using platform::RegistryKey;
using platform::RegistryStore;
using test::Hex;
using test::TempFolder;

class AppOptionsTest : public testing::Test {
 protected:
  [[nodiscard]] AppOptions Fresh() const { return {store_, AppOptions::kKeyPath}; }

  [[nodiscard]] RegistryKey Key() const {
    auto key = RegistryKey::Create(store_, AppOptions::kKeyPath);
    if (!key) throw std::runtime_error("cannot create the key");
    return *key;
  }

  TempFolder folder_;
  RegistryStore store_{folder_.File("registry.reg")};
};

TEST_F(AppOptionsTest, WithoutAKeyTheDefaultsHold) {
  AppOptions options = Fresh();
  EXPECT_EQ(options.tax(), 0.0);
  EXPECT_EQ(options.country(), "United States");
  EXPECT_EQ(options.zip_code(), "");
  EXPECT_EQ(options.load(), -1);
}

TEST_F(AppOptionsTest, LoadingWithoutAKeyKeepsTheValuesHeld) {
  AppOptions options = Fresh();
  options.set_country("Canada");
  options.set_zip_code("K1A 0B1");
  options.set_tax(5.5);
  EXPECT_EQ(options.load(), -1);
  EXPECT_EQ(options.country(), "Canada");
  EXPECT_EQ(options.zip_code(), "K1A 0B1");
  EXPECT_EQ(options.tax(), 5.5);
}

TEST_F(AppOptionsTest, WhatIsSavedIsThereAtTheNextStart) {
  AppOptions options = Fresh();
  options.set_country("\xC3\x96sterreich");
  options.set_zip_code("1010");
  options.set_tax(8.25);
  EXPECT_EQ(options.save(), 0);
  AppOptions next = Fresh();
  EXPECT_EQ(next.country(), "\xC3\x96sterreich");
  EXPECT_EQ(next.zip_code(), "1010");
  EXPECT_EQ(next.tax(), 8.25);
  EXPECT_EQ(next.load(), 0);
}

TEST_F(AppOptionsTest, TheTaxComesBackBitForBit) {
  for (const double tax : {0.1, 8.25, -0.0, std::numeric_limits<double>::denorm_min(),
                           std::numeric_limits<double>::max(), -1.0 / 3.0}) {
    AppOptions options = Fresh();
    options.set_tax(tax);
    ASSERT_EQ(options.save(), 0);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(Fresh().tax()), std::bit_cast<std::uint64_t>(tax));
  }
}

TEST_F(AppOptionsTest, TheTaxIsStoredAsTheDoublesBytesBehindADwordTag) {
  AppOptions options = Fresh();
  options.set_tax(8.25);
  ASSERT_EQ(options.save(), 0);
  const auto value = Key().Query("Tax");
  ASSERT_TRUE(value);
  EXPECT_EQ(value->type, platform::REG_DWORD);
  EXPECT_EQ(value->data, Hex("00 00 00 00 00 80 20 40"));
}

TEST_F(AppOptionsTest, OnlyEightBytesOfAFiniteNumberAreATax) {
  for (const test::Bytes& data : {Hex("01 00 00 00"), Hex("00 00 00 00 00 80 20 40 00"), Hex(""),
                                  Hex("00 00 00 00 00 00 F0 7F"), Hex("00 00 00 00 00 00 F8 FF")}) {
    ASSERT_TRUE(Key().Set("Tax", {platform::REG_DWORD, data}));
    AppOptions options = Fresh();
    EXPECT_EQ(options.tax(), 0.0);
    options.set_tax(5.0);
    EXPECT_EQ(options.load(), 0);
    EXPECT_EQ(options.tax(), 5.0);
  }
}

TEST_F(AppOptionsTest, TheTypeTagOfTheTaxDoesNotCountInReading) {
  ASSERT_TRUE(Key().Set("Tax", {platform::REG_BINARY, Hex("00 00 00 00 00 80 20 40")}));
  EXPECT_EQ(Fresh().tax(), 8.25);
}

TEST_F(AppOptionsTest, AMissingValueLeavesItsField) {
  ASSERT_TRUE(Key().SetText("ZipCode", "90210"));
  AppOptions options = Fresh();
  EXPECT_EQ(options.zip_code(), "90210");
  EXPECT_EQ(options.country(), "United States");
  EXPECT_EQ(options.tax(), 0.0);
  options.set_country("France");
  EXPECT_EQ(options.load(), 0);
  EXPECT_EQ(options.country(), "France");
}

TEST_F(AppOptionsTest, ATextOfMoreThan39CharactersIsNotRead) {
  ASSERT_TRUE(Key().SetText("Country", std::string(40, 'x')));
  ASSERT_TRUE(Key().SetText("ZipCode", std::string(39, '9')));
  const AppOptions options = Fresh();
  EXPECT_EQ(options.country(), "United States");
  EXPECT_EQ(options.zip_code(), std::string(39, '9'));
}

TEST_F(AppOptionsTest, LongTextsAreCutOnSavingSoThatTheyCanBeReadBack) {
  AppOptions options = Fresh();
  options.set_country(std::string(60, 'x'));
  // The 39th unit would be the first half of a pair.
  options.set_zip_code(std::string(38, '9') + "\xF0\x9F\x8D\x8E");
  ASSERT_EQ(options.save(), 0);
  EXPECT_EQ(options.country(), std::string(60, 'x'));
  EXPECT_EQ(Fresh().country(), std::string(39, 'x'));
  EXPECT_EQ(Fresh().zip_code(), std::string(38, '9'));
}

TEST_F(AppOptionsTest, EmptyTextsAreStoredAsSuch) {
  AppOptions options = Fresh();
  options.set_country("");
  ASSERT_EQ(options.save(), 0);
  EXPECT_EQ(Fresh().country(), "");
}

TEST_F(AppOptionsTest, SavingKeepsWhatElseStandsInTheRegistry) {
  auto program = RegistryKey::Create(store_, "Software\\Brovanta");
  ASSERT_TRUE(program && program->SetText("InstallPath", "/data"));
  ASSERT_EQ(Fresh().save(), 0);
  EXPECT_EQ(program->QueryText("InstallPath", 500), "/data");
}

TEST_F(AppOptionsTest, AFailedSaveKeepsTheValuesInMemory) {
  AppOptions options = Fresh();
  ASSERT_EQ(options.save(), 0);
  ASSERT_EQ(chmod(store_.file_path().c_str(), 0400), 0);
  options.set_tax(7.0);
  options.set_country("France");
  EXPECT_EQ(options.save(), -1);
  EXPECT_EQ(options.tax(), 7.0);
  EXPECT_EQ(options.country(), "France");
  EXPECT_EQ(Fresh().country(), "United States");
}

TEST_F(AppOptionsTest, SavingFailsWhereTheFolderCannotBeMade) {
  folder_.WriteText("file", "x");
  const RegistryStore store(folder_.File("file/registry.reg"));
  AppOptions options(store, AppOptions::kKeyPath);
  EXPECT_EQ(options.save(), -1);
}

TEST_F(AppOptionsTest, ABorrowedTaxFollowsChanges) {
  AppOptions options = Fresh();
  const double& tax = options.tax();
  options.set_tax(3.5);
  EXPECT_EQ(tax, 3.5);
}

}  // namespace
}  // namespace brovanta

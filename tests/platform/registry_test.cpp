#include "platform/registry.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/file.h"
#include "platform/system_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta::platform {
namespace {

using test::Hex;
using test::TempFolder;

class RegistryTest : public testing::Test {
 protected:
  [[nodiscard]] RegistryKey Created(std::string_view key_path) const {
    auto key = RegistryKey::Create(store_, key_path);
    if (!key) throw std::runtime_error("cannot create the key");
    return *key;
  }

  TempFolder folder_;
  RegistryStore store_{folder_.File("registry.reg")};
};

// The first block of the format's page that stands between the fences.
std::string WorkedExample() {
  std::ifstream page(BROVANTA_SOURCE_DIR "/docs/formats/registry.md", std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(page), {});
  const std::string fence = "```reg\n";
  const std::size_t start = text.find(fence);
  if (start == std::string::npos) return "(no example)";
  const std::size_t from = start + fence.size();
  return text.substr(from, text.find("```", from) - from);
}

TEST_F(RegistryTest, TheWriterMakesTheWorkedExample) {
  RegistryKey program = Created("Software\\Brovanta");
  ASSERT_TRUE(program.SetText("InstallPath", "/home/ann/.local/share/brovanta"));
  ASSERT_TRUE(program.SetText("UpdateServer", "http://localhost:8427"));
  RegistryKey options = Created("Software\\Brovanta\\Options");
  ASSERT_TRUE(options.SetText("Country", "United States"));
  ASSERT_TRUE(options.SetText("ZipCode", "90210"));
  ASSERT_TRUE(options.Set("Tax", {REG_DWORD, Hex("00 00 00 00 00 80 20 40")}));
  EXPECT_EQ(folder_.ReadText("registry.reg"), WorkedExample());
}

TEST_F(RegistryTest, TheReaderUnderstandsTheWorkedExample) {
  folder_.WriteText("registry.reg", WorkedExample());
  const auto program = RegistryKey::Open(store_, "Software\\Brovanta");
  const auto options = RegistryKey::Open(store_, "software\\brovanta\\options");
  ASSERT_TRUE(program && options);
  EXPECT_EQ(program->QueryText("InstallPath", 500), "/home/ann/.local/share/brovanta");
  EXPECT_EQ(options->QueryText("zipcode", 80), "90210");
  const auto tax = options->Query("Tax");
  ASSERT_TRUE(tax);
  EXPECT_EQ(tax->type, REG_DWORD);
  EXPECT_EQ(tax->data, Hex("00 00 00 00 00 80 20 40"));
}

TEST_F(RegistryTest, WithoutAFileNoKeyOpensAndNoneIsMade) {
  EXPECT_FALSE(RegistryKey::Open(store_, "Software\\Brovanta"));
  EXPECT_FALSE(FileExists(store_.file_path()));
}

TEST_F(RegistryTest, ACreatedKeyOpensAndIsEmpty) {
  EXPECT_FALSE(Created("Software\\Brovanta\\Options").Query("Tax"));
  EXPECT_TRUE(RegistryKey::Open(store_, "Software\\Brovanta\\Options"));
  EXPECT_TRUE(RegistryKey::Open(store_, "Software\\Brovanta"));
  EXPECT_FALSE(RegistryKey::Open(store_, "Software\\Other"));
}

TEST_F(RegistryTest, TheFolderIsMadeForItsOwnerAlone) {
  const RegistryStore store(folder_.File("config/brovanta/registry.reg"));
  EXPECT_FALSE(RegistryKey::Open(store, "A"));
  EXPECT_FALSE(std::filesystem::exists(folder_.File("config")));
  ASSERT_TRUE(RegistryKey::Create(store, "A"));
  struct stat status {};
  ASSERT_EQ(stat(folder_.File("config/brovanta").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0700u);
  ASSERT_EQ(stat(store.file_path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(RegistryTest, TwoObjectsOnOneFileAgree) {
  RegistryKey one = Created("A");
  const RegistryKey other = Created("A");
  ASSERT_TRUE(one.SetText("x", "1"));
  EXPECT_EQ(other.QueryText("x", 80), "1");
  ASSERT_TRUE(one.SetText("X", "2"));
  EXPECT_EQ(other.QueryText("x", 80), "2");
}

TEST_F(RegistryTest, ATextLargerThanTheBoundIsNotRead) {
  RegistryKey key = Created("A");
  const std::string longest(39, 'x');
  ASSERT_TRUE(key.SetText("fits", longest));
  ASSERT_TRUE(key.SetText("larger", longest + "x"));
  EXPECT_EQ(key.QueryText("fits", 80), longest);
  EXPECT_EQ(key.QueryText("larger", 80), std::nullopt);
  EXPECT_EQ(key.QueryText("larger", 82), longest + "x");
}

TEST_F(RegistryTest, ATextIsStoredWithItsTerminator) {
  RegistryKey key = Created("A");
  ASSERT_TRUE(key.SetText("x", "A\xE2\x82\xAC\xF0\x9F\x8D\x8E"));
  const auto value = key.Query("x");
  ASSERT_TRUE(value);
  EXPECT_EQ(value->type, REG_SZ);
  EXPECT_EQ(value->data, Hex("41 00 AC 20 3C D8 4E DF 00 00"));
  EXPECT_EQ(key.QueryText("x", 80), "A\xE2\x82\xAC\xF0\x9F\x8D\x8E");
}

TEST_F(RegistryTest, ATextWithControlCharactersComesBack) {
  RegistryKey key = Created("A");
  ASSERT_TRUE(key.SetText("x", "a\r\nb\t\"\\"));
  EXPECT_EQ(key.QueryText("x", 80), "a\r\nb\t\"\\");
}

TEST_F(RegistryTest, OnlyATextIsReadAsOne) {
  RegistryKey key = Created("A");
  ASSERT_TRUE(key.Set("number", {REG_DWORD, Hex("41 00 00 00")}));
  ASSERT_TRUE(key.Set("unended", {REG_SZ, Hex("41 00")}));
  EXPECT_EQ(key.QueryText("number", 80), std::nullopt);
  EXPECT_EQ(key.QueryText("missing", 80), std::nullopt);
  EXPECT_EQ(key.QueryText("unended", 80), "A");
}

TEST_F(RegistryTest, WhatCannotStandInTheFileIsRefused) {
  RegistryKey key = Created("A");
  const auto before = folder_.ReadText("registry.reg");
  EXPECT_FALSE(key.SetText("x", "\xFF"));
  EXPECT_FALSE(key.SetText("x\n", "y"));
  EXPECT_FALSE(RegistryKey::Create(store_, "A\nB"));
  EXPECT_EQ(folder_.ReadText("registry.reg"), before);
}

TEST_F(RegistryTest, WhoAsksLearnsWhyThereIsNoValue) {
  using Answer = RegistryStore::Answer;
  RegistryValue value;
  const auto ask = [&] { return store_.Ask("Software\\Example", "Path", value); };
  EXPECT_EQ(ask(), Answer::kNone);
  folder_.WriteText("registry.reg", "another file");
  EXPECT_EQ(ask(), Answer::kForeign);
  const std::string start =
      "Windows Registry Editor Version 5.00\n[HKEY_CURRENT_USER\\Software\\Example]\n";
  for (const std::string& without_values : {std::string(), start}) {
    folder_.WriteText("registry.reg", without_values);
    EXPECT_EQ(ask(), Answer::kForeign) << "a damaged one";
  }
  folder_.WriteText("registry.reg", start + "\"Other\"=dword:00000007\n");
  EXPECT_EQ(ask(), Answer::kNone);
  folder_.WriteText("registry.reg", start + "\"Path\"=?\n");
  EXPECT_EQ(ask(), Answer::kDamaged);
  folder_.WriteText("registry.reg", start + "\"Path\"=?\n\"Path\"=dword:00000007\n");
  EXPECT_EQ(ask(), Answer::kValue) << "the last line counts";
  EXPECT_EQ(value.data, Hex("07 00 00 00"));
  std::filesystem::remove(folder_.File("registry.reg"));
  std::filesystem::create_directory(folder_.File("registry.reg"));
  EXPECT_EQ(ask(), Answer::kUnreadable);
}

TEST_F(RegistryTest, AValueIsStoredInOneStepWithItsKey) {
  class Renames : public SystemCalls {
   public:
    int Rename(const char* from, const char* to) override {
      ++count;
      return SystemCalls::Rename(from, to);
    }
    int count = 0;
  };
  Renames calls;
  const SystemCallsInUse in_use(calls);
  EXPECT_TRUE(RegistryKey::StoreText(store_, "Software\\Example", "Path", "/x"));
  EXPECT_EQ(calls.count, 1);
  EXPECT_EQ(folder_.ReadText("registry.reg"),
            "Windows Registry Editor Version 5.00\n\n"
            "[HKEY_CURRENT_USER\\Software\\Example]\n\"Path\"=\"/x\"\n");
}

TEST_F(RegistryTest, AFileOfAnotherKindIsPutAsideBeforeItIsReplaced) {
  folder_.WriteText("registry.reg", "a shopping list on its own");
  EXPECT_FALSE(RegistryKey::Open(store_, "A"));
  EXPECT_EQ(folder_.ReadText("registry.reg"), "a shopping list on its own");
  ASSERT_TRUE(Created("A").SetText("x", "1"));
  EXPECT_EQ(folder_.ReadText("registry.reg.bad"), "a shopping list on its own");
  EXPECT_FALSE(FileExists(folder_.File("registry.reg.bad2")));
}

TEST_F(RegistryTest, AFileAsideIsNeverOverwritten) {
  folder_.WriteText("registry.reg.bad", "first");
  folder_.WriteText("registry.reg", "second");
  RegistryKey key = Created("A");
  folder_.WriteText("registry.reg", "third");
  ASSERT_TRUE(key.SetText("x", "1"));
  EXPECT_EQ(folder_.ReadText("registry.reg.bad"), "first");
  EXPECT_EQ(folder_.ReadText("registry.reg.bad2"), "second");
  EXPECT_EQ(folder_.ReadText("registry.reg.bad3"), "third");
  EXPECT_EQ(key.QueryText("x", 80), "1");
}

TEST_F(RegistryTest, AFileThatCannotBeReadOrWrittenStays) {
  std::filesystem::create_directory(folder_.File("registry.reg"));
  EXPECT_FALSE(RegistryKey::Open(store_, "A"));
  EXPECT_FALSE(RegistryKey::Create(store_, "A"));
  const RegistryStore below(folder_.File("registry.reg/none/registry.reg"));
  folder_.WriteText("registry.reg/none", "a file");
  EXPECT_FALSE(RegistryKey::Create(below, "A"));
}

TEST_F(RegistryTest, AReadOnlyFileIsReadButNotChanged) {
  RegistryKey key = Created("A");
  ASSERT_TRUE(key.SetText("x", "1"));
  ASSERT_EQ(chmod(store_.file_path().c_str(), 0400), 0);
  EXPECT_EQ(key.QueryText("x", 80), "1");
  EXPECT_FALSE(key.SetText("x", "2"));
  EXPECT_FALSE(RegistryKey::Create(store_, "A"));
  EXPECT_EQ(key.QueryText("x", 80), "1");
}

TEST_F(RegistryTest, AFileHeldBySomeoneElseIsReadButNotChanged) {
  RegistryKey key = Created("A");
  ASSERT_TRUE(key.SetText("x", "1"));
  File holder;
  ASSERT_TRUE(holder.Open(store_.file_path(), File::Mode::kRead));
  EXPECT_EQ(key.QueryText("x", 80), "1");
  EXPECT_FALSE(key.SetText("x", "2"));
  holder.Close();
  EXPECT_TRUE(key.SetText("x", "2"));
}

TEST_F(RegistryTest, AnEnormousFileIsNotRead) {
  folder_.WriteText("registry.reg", "Windows Registry Editor Version 5.00\n");
  std::filesystem::resize_file(store_.file_path(), std::uintmax_t{1} << 30);
  EXPECT_FALSE(RegistryKey::Open(store_, "A"));
  EXPECT_FALSE(RegistryKey::Create(store_, "A"));
}

}  // namespace
}  // namespace brovanta::platform

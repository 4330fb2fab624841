#include "app/first_run_setup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/folder.h"
#include "platform/system_calls.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

namespace fs = std::filesystem;
using platform::RegistryKey;
using test::Hex;

/// An empty list: file start and file end.
const test::Bytes kEmptyList = Hex("81 38 01 00 83 38 01 00");

/// An absolute path of so many bytes.
std::string LongPath(std::size_t size) {
  std::string path(size, 'a');
  path[0] = '/';
  return path;
}

class FirstRunSetupTest : public testing::Test {
 protected:
  std::optional<std::string> Value(const char* name) {
    const auto key = RegistryKey::Open(store_, "Software\\Brovanta");
    return key ? key->QueryText(name, 500) : std::nullopt;
  }

  void Store(const char* name, const std::string& value) {
    auto key = RegistryKey::Create(store_, "Software\\Brovanta");
    ASSERT_TRUE(key);
    ASSERT_TRUE(key->SetText(name, value));
  }

  std::string SetUpData() { return SetUpUserData(store_, default_folder_, problem_); }

  std::string problem_;
  test::TempFolder folder_;
  platform::RegistryStore store_{folder_.File("config/registry.reg")};
  std::string default_folder_ = folder_.File("data/brovanta");
};

TEST_F(FirstRunSetupTest, TheFirstStartWritesPathAndServerAndMakesTheFolder) {
  EXPECT_EQ(SetUpData(), default_folder_);
  EXPECT_EQ(Value("InstallPath"), default_folder_);
  EXPECT_EQ(Value("UpdateServer"), "http://localhost:8427");
  struct stat status {};
  ASSERT_EQ(stat(default_folder_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(FirstRunSetupTest, StoredValuesAreNeverWrittenOver) {
  const std::string other = folder_.File("card");
  fs::create_directory(other);
  Store("InstallPath", other);
  Store("UpdateServer", "http://update.example:80");
  EXPECT_EQ(SetUpData(), other);
  EXPECT_EQ(Value("InstallPath"), other);
  EXPECT_EQ(Value("UpdateServer"), "http://update.example:80");
  EXPECT_FALSE(fs::exists(default_folder_));
}

TEST_F(FirstRunSetupTest, TheUpdateServerIsTheStoredOneElseTheDefault) {
  EXPECT_EQ(UpdateServer(store_), "http://localhost:8427");
  Store("UpdateServer", "http://update.example:80");
  EXPECT_EQ(UpdateServer(store_), "http://update.example:80");
}

TEST_F(FirstRunSetupTest, AnEmptyPathInTheSettingsStaysTheWorkingFolder) {
  Store("InstallPath", "");
  EXPECT_EQ(SetUpData(), "");
}

TEST_F(FirstRunSetupTest, AStoredPathMayHaveBackslashes) {
  Store("InstallPath", "\\media\\card\\");
  EXPECT_EQ(SetUpData(), "/media/card/");
  EXPECT_EQ(problem_, "");
}

TEST_F(FirstRunSetupTest, ARelativePathStaysTrueWhenTheWorkingFolderChanges) {
  Store("InstallPath", "card/lists");
  EXPECT_EQ(SetUpData(), fs::current_path() / "card/lists");
}

TEST_F(FirstRunSetupTest, AChosenFolderThatIsGoneIsNotMadeAnew) {
  Store("InstallPath", folder_.File("card"));
  EXPECT_EQ(SetUpData(), folder_.File("card"));
  EXPECT_FALSE(fs::exists(folder_.File("card")));
}

TEST_F(FirstRunSetupTest, TheDefaultFolderIsMadeAnewWhenItIsGone) {
  EXPECT_EQ(SetUpData(), default_folder_);
  fs::remove_all(default_folder_);
  EXPECT_EQ(SetUpData(), default_folder_);
  EXPECT_TRUE(fs::is_directory(default_folder_));
}

TEST_F(FirstRunSetupTest, APathIsCutAt249Bytes) {
  std::string umlauts = "/";
  for (int i = 0; i < 130; ++i) umlauts += "\xC3\xA4";
  Store("InstallPath", umlauts);
  EXPECT_EQ(SetUpData(), umlauts.substr(0, 249));
  EXPECT_THAT(problem_, testing::HasSubstr("is too long (at most 220 bytes)"));
}

TEST_F(FirstRunSetupTest, APathBeyondTheBufferIsAsGoodAsNone) {
  Store("InstallPath", LongPath(250));
  EXPECT_EQ(SetUpData(), "");
  EXPECT_THAT(problem_, testing::HasSubstr("is too long (at most 220 bytes)"));
}

TEST_F(FirstRunSetupTest, AChosenFolderMayHaveAsManyBytesAsOneOnTheCommandLine) {
  Store("InstallPath", LongPath(220));
  EXPECT_EQ(SetUpData(), LongPath(220));
  EXPECT_EQ(problem_, "");
  Store("InstallPath", LongPath(221));
  (void)SetUpData();
  EXPECT_THAT(problem_, testing::HasSubstr("is too long (at most 220 bytes)"));
}

TEST_F(FirstRunSetupTest, AChosenFolderBehindABackslashInANameIsReported) {
  fs::create_directory(folder_.File("odd\\name"));
  fs::create_symlink(folder_.File("odd\\name"), folder_.File("link"));
  Store("InstallPath", folder_.File("link"));
  (void)SetUpData();
  EXPECT_THAT(problem_, testing::HasSubstr("has a backslash"));
}

TEST_F(FirstRunSetupTest, SettingsThatCannotBeReadDoNotLeadToTheDefaultFolder) {
  fs::create_directories(folder_.File("config/registry.reg"));  // stands, but is no file
  EXPECT_EQ(SetUpData(), "");
  EXPECT_EQ(problem_, "cannot read the settings '" + folder_.File("config/registry.reg") + "'");
  EXPECT_FALSE(fs::exists(default_folder_));
}

TEST_F(FirstRunSetupTest, SettingsThatAreNoneDoNotLeadToTheDefaultFolder) {
  const std::string file = folder_.File("config/registry.reg");
  fs::create_directory(folder_.File("config"));
  for (const char* text :
       {"\x01\x02\x03", "Windows Registry Edi", "", "\n\n", "Windows Registry Editor Version 5.00",
        "Windows Registry Editor Version 5.00\n\n",
        "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\Brovanta]\n",
        "[HKEY_CURRENT_USER\\Software\\Brovanta]\n\"InstallPath\"=\"/card\"\n"}) {
    folder_.WriteText("config/registry.reg", text);
    EXPECT_EQ(SetUpData(), "") << text;
    EXPECT_EQ(
        problem_,
        std::string("the settings '").append(file).append("' are damaged, or no settings at all"));
    EXPECT_FALSE(fs::exists(default_folder_)) << text;
    EXPECT_EQ(folder_.ReadText("config/registry.reg"), text) << "nothing is written";
  }
}

TEST_F(FirstRunSetupTest, ALineThatNamesNoFolderDoesNotLeadToTheDefaultFolder) {
  const std::string file = folder_.File("config/registry.reg");
  fs::create_directory(folder_.File("config"));
  for (const char* lines :
       {"[HKEY_CURRENT_USER\\Software\\Brovanta]\n\"InstallPath\"=\"/card\n",
        "[HKEY_CURRENT_USER\\Software\\Brovanta]\n\"InstallPath\"\n",
        "[HKEY_CURRENT_USER\\Software\\Brovanta]\nInstallPath=\"/card\"\n",
        "[HKEY_CURRENT_USER\\Software\\Brovanta]\n\"InstallPath\"=dword:00000001\n",
        "[HKEY_CURRENT_USER\\Software\\Brovanta\n\"InstallPath\"=\"/card\"\n",
        "HKEY_CURRENT_USER\\Software\\Brovanta]\n\"InstallPath\"=\"/card\"\n",
        "[HKEY_CURRENT_USER\\Software\\Brovanta\\Options]\n\"Tax\"=dword:1\n"
        "HKEY_CURRENT_USER\\Software\\Brovanta]\n\"InstallPath\"=\"/card\"\n",
        "[HKEY_CURRENT_USER\\Software\\Brovbnta]\n\"InstallPath\"=\"/card\"\n",
        "[HKEY_CURRENT_USER\\Software\\Brovanta]\n\"InstallPaht\"=\"/card\"\n",
        "[HKEY_CURRENT_USER\\Software\\Brovanta]\n#\"InstallPath\"=\"/card\"\n",
        "[HKEY_CURRENT_USER\\Software\\Brovanta]\n\"InstallP",
        "[HKEY_CURRENT_USER\\Software\\Brovanta]\n\"UpdateServer\"=\"http://x\"\n[HKEY"}) {
    const std::string text = std::string("Windows Registry Editor Version 5.00\n\n").append(lines);
    folder_.WriteText("config/registry.reg", text);
    EXPECT_EQ(SetUpData(), "") << text;
    EXPECT_EQ(problem_, std::string("the line \"InstallPath\" of the settings '")
                            .append(file)
                            .append("' is damaged: it names no folder"));
    EXPECT_FALSE(fs::exists(default_folder_)) << text;
    EXPECT_EQ(folder_.ReadText("config/registry.reg"), text) << "nothing is written";
  }
}

TEST_F(FirstRunSetupTest, OtherDamagedLinesCostOnlyThemselves) {
  fs::create_directory(folder_.File("config"));
  folder_.WriteText("config/registry.reg",
                    "Windows Registry Editor Version 5.00\n\n"
                    "[HKEY_CURRENT_USER\\Software\\Brovanta]\n"
                    "\"InstallPathOfOld\"=\"/card\n; \"InstallPath\"=\"/card\n\"Window\"=?\n");
  EXPECT_EQ(SetUpData(), default_folder_);
  EXPECT_EQ(problem_, "");
}

TEST_F(FirstRunSetupTest, WhateverCallFailsTheChosenFolderIsUsedOrNone) {
  const std::string card = folder_.File("card");
  fs::create_directory(card);
  Store("InstallPath", card);
  Store("UpdateServer", "http://update.example:80");
  int refused = 0;
  for (int k = 1;; ++k) {
    test::FaultyCalls calls(test::Fault::kIo, k);
    std::string folder;
    {
      const platform::SystemCallsInUse in_use(calls);
      folder = SetUpData();
    }
    EXPECT_TRUE(folder == card || !problem_.empty()) << k << " " << folder;
    if (!problem_.empty()) ++refused;
    if (!calls.has_struck()) break;
  }
  EXPECT_GE(refused, 3);
  EXPECT_EQ(problem_, "");
  EXPECT_EQ(Value("InstallPath"), card);
  EXPECT_FALSE(fs::exists(default_folder_));
}

TEST_F(FirstRunSetupTest, WithoutAPlaceForSettingsTheDefaultsAreUsed) {
  folder_.WriteText("config", "a file where the folder would be");
  EXPECT_EQ(SetUpData(), default_folder_);
  EXPECT_TRUE(fs::is_directory(default_folder_));
}

TEST_F(FirstRunSetupTest, MissingListsAreSeededWithEightBytes) {
  EXPECT_TRUE(SeedNameLists(folder_.path()));
  for (const char* const name : {"store.lst", "category.lst", "unit.lst"}) {
    EXPECT_EQ(folder_.Read(name), kEmptyList) << name;
  }
}

TEST_F(FirstRunSetupTest, AListThatIsThereIsNeverTouchedNotEvenADamagedOne) {
  folder_.WriteText("store.lst", "damaged");
  folder_.WriteText("unit.lst", "");
  EXPECT_TRUE(SeedNameLists(folder_.path()));
  EXPECT_EQ(folder_.ReadText("store.lst"), "damaged");
  EXPECT_EQ(folder_.ReadText("unit.lst"), "");
  EXPECT_EQ(folder_.Read("category.lst"), kEmptyList);
}

TEST_F(FirstRunSetupTest, ListsThatCannotBeWrittenAreReported) {
  EXPECT_FALSE(SeedNameLists(folder_.File("missing")));
}

TEST_F(FirstRunSetupTest, AThrowAwayFolderIsMadeAndNamedInFull) {
  std::string folder = folder_.File("a/./b");
  EXPECT_EQ(SetUpThrowAwayFolder(folder), "");
  EXPECT_EQ(folder, platform::CanonicalFolder(folder_.File("a/b")));
  EXPECT_TRUE(fs::is_directory(folder));
}

TEST_F(FirstRunSetupTest, AThrowAwayFolderMayBeGivenWithBackslashes) {
  std::string folder = folder_.path() + "\\a\\b";
  EXPECT_EQ(SetUpThrowAwayFolder(folder), "");
  EXPECT_EQ(folder, platform::CanonicalFolder(folder_.File("a/b")));
}

TEST_F(FirstRunSetupTest, AThrowAwayFolderBehindABackslashInANameIsReported) {
  fs::create_directory(folder_.File("odd\\name"));
  fs::create_symlink(folder_.File("odd\\name"), folder_.File("link"));
  std::string folder = folder_.File("link");
  EXPECT_THAT(SetUpThrowAwayFolder(folder), testing::HasSubstr("backslash"));
}

TEST_F(FirstRunSetupTest, AThrowAwayFolderThatCannotBeMadeIsReported) {
  folder_.WriteText("file", "");
  std::string folder = folder_.File("file/below");
  EXPECT_THAT(SetUpThrowAwayFolder(folder), testing::HasSubstr("cannot make the folder"));
}

TEST_F(FirstRunSetupTest, AThrowAwayFolderTooDeepForItsFilesIsReported) {
  std::string folder = folder_.File(std::string(110, 'a') + "/" + std::string(110, 'b'));
  EXPECT_THAT(SetUpThrowAwayFolder(folder), testing::HasSubstr("too long"));
  EXPECT_TRUE(fs::is_empty(folder_.path()));  // nothing was made for it
}

}  // namespace
}  // namespace brovanta

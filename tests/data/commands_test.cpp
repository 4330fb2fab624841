#include "data/commands.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <set>

#include "data/backup_folder.h"
#include "data/exit_status.h"
#include "platform/folder.h"
#include "tests/data/sample_folder.h"
#include "tests/support/json_reader.h"

namespace brovanta::data_tool {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

CommandEnd RunCommand(std::vector<std::string> words, bool json = false) {
  CommandLine line;
  if (json) line.options.push_back({"--json", ""});
  for (const Command& command : Commands()) {
    if (command.name == words.front()) line.command = &command;
  }
  line.arguments.assign(words.begin() + 1, words.end());
  return line.command != nullptr ? line.command->run(line) : CommandEnd{-1, {}, {}};
}

TEST(CommandsTest, EveryRowIsCompleteAndThereOnce) {
  std::set<std::string_view> names;
  for (const Command& command : Commands()) {
    EXPECT_TRUE(names.insert(command.name).second) << command.name;
    EXPECT_NE(command.run, nullptr);
    EXPECT_LE(command.least, command.most);
    EXPECT_FALSE(command.arguments.empty() || command.purpose.empty());
  }
}

// Options are read before it is known which command they belong to.
TEST(CommandsTest, OneOptionMeansTheSameEverywhere) {
  std::map<std::string_view, const Option*> options;
  for (const Command& command : Commands()) {
    int group = 0;
    std::set<int> ended;
    for (const Option& option : command.options) {
      EXPECT_TRUE(option.name.starts_with("--")) << option.name;
      EXPECT_FALSE(option.purpose.empty()) << option.name;
      const Option& first = *options.emplace(option.name, &option).first->second;
      EXPECT_EQ(option.value.empty(), first.value.empty()) << option.name;
      EXPECT_EQ(option.short_name, first.short_name) << option.name;
      if (option.group != group && group != 0) ended.insert(group);
      EXPECT_EQ(ended.count(option.group), 0U) << option.name << " stands apart from its group";
      group = option.group;
    }
    EXPECT_TRUE(command.needed_group == 0 || command.needed_group == group ||
                ended.count(command.needed_group) > 0)
        << command.name;
  }
}

TEST(CommandsTest, CheckEndsWithTheStateOfTheFolder) {
  const test::TempFolder folder;
  test::MakeHousehold(folder.path());
  const CommandEnd whole = RunCommand({"check", folder.path()});
  EXPECT_EQ(whole.status, kGood);
  EXPECT_THAT(whole.output, HasSubstr("The folder is whole.\n"));
  EXPECT_TRUE(whole.complaints.empty());
  folder.WriteText("unit.lst", "damaged");
  const CommandEnd damaged = RunCommand({"check", folder.path()}, true);
  EXPECT_EQ(damaged.status, kBad);
  EXPECT_EQ(test::ReadJson(damaged.output).value().at("whole"), "false");
}

TEST(CommandsTest, BackupsAreListedAndAnObstacleIsToldByTheStatus) {
  const test::TempFolder folder;
  const std::string data = folder.File("data");
  std::filesystem::create_directory(data);
  EXPECT_EQ(RunCommand({"backups", data}).status, kGood);
  EXPECT_THAT(RunCommand({"backups", data}).output, HasSubstr("There are no copies in "));
  ASSERT_TRUE(BackupFolder(data).Keep("2026-11-21", {{"product.dat", "x"}}));
  EXPECT_EQ(RunCommand({"backups", data}).output, "2026-11-21: daily, 1 file, 1 byte\n");
  std::filesystem::remove_all(data + ".backups");
  folder.WriteText("data.backups", "in the way");
  const CommandEnd end = RunCommand({"backups", data}, true);
  EXPECT_EQ(end.status, kBad);
  EXPECT_EQ(test::ReadJson(end.output).value().at("obstacle"),
            "something else than a folder stands there");
  EXPECT_EQ(RunCommand({"backups", folder.File("none")}).status, kNoFolder);
}

TEST(CommandsTest, RestoreEndsWithWhatBecameOfIt) {
  const test::TempFolder folder;
  const std::string data = folder.File("data");
  std::filesystem::create_directory(data);
  folder.WriteText("data/product.dat", "new");
  EXPECT_EQ(RunCommand({"restore", data}).status, kBad);
  ASSERT_TRUE(BackupFolder(data).Keep("2026-11-21", {{"product.dat", "old"}}));
  {
    platform::FolderLock program;
    ASSERT_EQ(program.Take(data), platform::FolderLock::Outcome::kTaken);
    const CommandEnd refused = RunCommand({"restore", data});
    EXPECT_EQ(refused.status, kBad);
    EXPECT_EQ(refused.output, "");
    EXPECT_THAT(refused.complaints,
                ElementsAre(HasSubstr("the program works in this folder: close it first")));
  }
  const CommandEnd done = RunCommand({"restore", data, "2026-11-21"});
  EXPECT_EQ(done.status, kGood);
  EXPECT_THAT(done.output, HasSubstr("holds the files of 2026-11-21 again: 1 file written"));
  EXPECT_EQ(folder.ReadText("data/product.dat"), "old");
  const CommandEnd same = RunCommand({"restore", data}, true);
  EXPECT_EQ(same.status, kGood);
  EXPECT_EQ(test::ReadJson(same.output).value().at("changed"), "false");
  EXPECT_EQ(RunCommand({"restore", folder.File("none")}).status, kNoFolder);
}

TEST(CommandsTest, CheckOfWhatIsNoFolderEndsWithThree) {
  const CommandEnd end = RunCommand({"check", "/no such folder"}, true);
  EXPECT_EQ(end.status, kNoFolder);
  EXPECT_EQ(end.output, "");
  EXPECT_THAT(end.complaints, ElementsAre("\"/no such folder\": No such file or directory"));
}

}  // namespace
}  // namespace brovanta::data_tool

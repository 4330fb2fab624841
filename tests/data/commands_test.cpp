#include "data/commands.h"

#include <gmock/gmock.h>

#include <set>

#include "data/exit_status.h"
#include "tests/data/sample_folder.h"
#include "tests/support/json_reader.h"

namespace brovanta::data_tool {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

CommandEnd RunCommand(std::vector<std::string> words, bool json = false) {
  CommandLine line;
  line.json = json;
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

TEST(CommandsTest, CheckOfWhatIsNoFolderEndsWithThree) {
  const CommandEnd end = RunCommand({"check", "/no such folder"}, true);
  EXPECT_EQ(end.status, kNoFolder);
  EXPECT_EQ(end.output, "");
  EXPECT_THAT(end.complaints, ElementsAre("\"/no such folder\": No such file or directory"));
}

}  // namespace
}  // namespace brovanta::data_tool

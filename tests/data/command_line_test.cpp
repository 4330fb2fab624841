#include "data/command_line.h"

#include <gmock/gmock.h>

#include <array>

namespace brovanta::data_tool {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Words = std::vector<std::string_view>;

CommandEnd Nothing(const CommandLine& /*line*/) { return {}; }

constexpr std::array kTable{Command{"look", "DIR", "looks\nclosely", 1, 1, &Nothing},
                            Command{"bring", "DIR [DATE]", "brings", 1, 2, &Nothing}};

CommandLine Parsed(const Words& words) {
  std::string error;
  const auto line = ParseCommandLine(words, kTable, error);
  EXPECT_TRUE(line) << error;
  return line.value_or(CommandLine{});
}

std::string ErrorOf(const Words& words) {
  std::string error;
  EXPECT_FALSE(ParseCommandLine(words, kTable, error));
  return error;
}

TEST(ParseCommandLineTest, FindsTheCommandAndItsArguments) {
  const CommandLine line = Parsed({"bring", "d", "2026-11-21"});
  EXPECT_EQ(line.action, CommandLine::Action::kRun);
  EXPECT_EQ(line.command, &kTable[1]);
  EXPECT_THAT(line.arguments, ElementsAre("d", "2026-11-21"));
  EXPECT_FALSE(line.json);
  EXPECT_THAT(Parsed({"bring", "d"}).arguments, ElementsAre("d"));
}

TEST(ParseCommandLineTest, OptionsStandAnywhere) {
  EXPECT_TRUE(Parsed({"--json", "look", "d"}).json);
  EXPECT_TRUE(Parsed({"look", "d", "--json"}).json);
  EXPECT_THAT(Parsed({"look", "--", "--json"}).arguments, ElementsAre("--json"));
}

TEST(ParseCommandLineTest, HelpAndVersionNeedNothingElse) {
  EXPECT_EQ(Parsed({"--help"}).action, CommandLine::Action::kHelp);
  EXPECT_EQ(Parsed({"look", "-h", "--nonsense"}).action, CommandLine::Action::kHelp);
  EXPECT_EQ(Parsed({"--version"}).action, CommandLine::Action::kVersion);
}

TEST(ParseCommandLineTest, SaysWhatMakesNoSense) {
  EXPECT_EQ(ErrorOf({}), "A command is missing.");
  EXPECT_EQ(ErrorOf({"mend", "d"}), "There is no command \"mend\".");
  EXPECT_EQ(ErrorOf({"look", "d", "--fast"}), "There is no option \"--fast\".");
  EXPECT_EQ(ErrorOf({"bring"}), "bring needs DIR [DATE].");
  EXPECT_EQ(ErrorOf({"look", "d", "e"}), "look does not take \"e\".");
  EXPECT_EQ(ErrorOf({"look", ""}), "look does not take an empty argument.");
}

TEST(HelpTextTest, IsMadeOfTheTable) {
  const std::string help = HelpText(kTable);
  EXPECT_THAT(help, HasSubstr("  brovanta-data look DIR [--json]\n"
                              "  brovanta-data bring DIR [DATE] [--json]\n"));
  EXPECT_THAT(help, HasSubstr("  look   looks\n"
                              "         closely\n"
                              "  bring  brings\n"));
}

}  // namespace
}  // namespace brovanta::data_tool

#include "data/command_line.h"

#include <gmock/gmock.h>

#include <array>

namespace brovanta::data_tool {
namespace {

using testing::ElementsAre;
using Words = std::vector<std::string_view>;

CommandEnd Nothing(const CommandLine& /*line*/) { return {}; }

constexpr std::array kLookOptions{Option{"--json", "", "writes JSON"},
                                  Option{"--week", "", "of a week", 1},
                                  Option{"--month", "", "of a month", 1}};
constexpr std::array kBringOptions{
    Option{"--json", "", "writes JSON", 3, ""}, Option{"--csv", "", "writes CSV", 3},
    Option{"--ics", "", "writes ICS", 3}, Option{"--output", "FILE", "where to", 0, "-o"}};

constexpr std::array kTable{
    Command{"look", "DIR", "looks", 1, 1, &Nothing, kLookOptions},
    Command{"bring", "DIR [DATE]", "brings", 1, 2, &Nothing, kBringOptions, 3}};

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
  const CommandLine line = Parsed({"bring", "d", "2026-11-21", "--csv"});
  EXPECT_EQ(line.action, CommandLine::Action::kRun);
  EXPECT_EQ(line.command, &kTable[1]);
  EXPECT_THAT(line.arguments, ElementsAre("d", "2026-11-21"));
  EXPECT_FALSE(line.Has("--json"));
  EXPECT_THAT(Parsed({"bring", "d", "--csv"}).arguments, ElementsAre("d"));
}

TEST(ParseCommandLineTest, OptionsStandAnywhere) {
  EXPECT_TRUE(Parsed({"--json", "look", "d"}).Has("--json"));
  EXPECT_TRUE(Parsed({"look", "d", "--json"}).Has("--json"));
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

TEST(ParseCommandLineTest, AnOptionHasItsValue) {
  for (const Words& words :
       {Words{"bring", "d", "--csv", "--output", "x"}, Words{"-o", "x", "--csv", "bring", "d"},
        Words{"bring", "--csv", "--output=x", "d"}}) {
    const CommandLine line = Parsed(words);
    EXPECT_EQ(line.ValueOf("--output"), "x");
    EXPECT_TRUE(line.Has("--csv"));
    EXPECT_THAT(line.arguments, ElementsAre("d"));
  }
  EXPECT_EQ(Parsed({"bring", "d", "--csv"}).ValueOf("--output"), std::nullopt);
  EXPECT_EQ(Parsed({"bring", "d", "--csv", "-o", "-"}).ValueOf("--output"), "-");
  EXPECT_EQ(Parsed({"bring", "d", "--csv", "--output=--x=y"}).ValueOf("--output"), "--x=y");
}

TEST(ParseCommandLineTest, AValueThatIsMissingIsTold) {
  EXPECT_EQ(ErrorOf({"bring", "d", "--csv", "-o"}), "--output needs FILE.");
  EXPECT_EQ(ErrorOf({"bring", "d", "--output", "--csv"}), "--output needs FILE.");
  EXPECT_EQ(ErrorOf({"bring", "d", "--csv", "--output="}), "--output needs FILE.");
  EXPECT_EQ(ErrorOf({"look", "d", "--json=x"}), "--json does not take a value.");
}

TEST(ParseCommandLineTest, OptionsBelongToTheirCommand) {
  EXPECT_EQ(ErrorOf({"look", "d", "--csv"}), "look does not take --csv.");
  EXPECT_EQ(ErrorOf({"--week", "bring", "d", "--csv"}), "bring does not take --week.");
  EXPECT_EQ(ErrorOf({"look", "d", "--json", "--json"}), "--json stands there twice.");
}

TEST(ParseCommandLineTest, OfAGroupOnlyOneOptionGoes) {
  EXPECT_EQ(ErrorOf({"look", "d", "--month", "--week"}), "--month and --week exclude each other.");
  EXPECT_TRUE(Parsed({"look", "d", "--month", "--json"}).Has("--month"));
  EXPECT_TRUE(Parsed({"look", "d"}).options.empty());
  EXPECT_EQ(ErrorOf({"bring", "d"}), "bring needs --json, --csv or --ics.");
  EXPECT_EQ(ErrorOf({"bring", "d", "-o", "x"}), "bring needs --json, --csv or --ics.");
}

}  // namespace
}  // namespace brovanta::data_tool

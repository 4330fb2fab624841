#include "agent/command_line.h"

#include <gmock/gmock.h>

#include <vector>

namespace brovanta::agent_tool {
namespace {

using testing::HasSubstr;

using Words = std::vector<std::string_view>;

CommandLine Parsed(const Words& words) {
  std::string error;
  const auto line = ParseCommandLine(words, error);
  EXPECT_TRUE(line) << error;
  return line.value_or(CommandLine{});
}

std::string ErrorOf(const Words& words) {
  std::string error;
  EXPECT_FALSE(ParseCommandLine(words, error));
  return error;
}

TEST(ParseCommandLine, TakesCheck) {
  const CommandLine line = Parsed({"check", "agents.xml"});
  EXPECT_EQ(line.action, Action::kCheck);
  EXPECT_EQ(line.file, "agents.xml");
  EXPECT_FALSE(line.json);
  EXPECT_TRUE(Parsed({"--json", "check", "agents.xml"}).json);
}

TEST(ParseCommandLine, TakesTryWithAndWithoutWords) {
  const CommandLine line = Parsed({"try", "a.xml", "--site", "12", "p.html"});
  EXPECT_EQ(line.action, Action::kTry);
  EXPECT_EQ(line.file, "a.xml");
  EXPECT_EQ(line.page, "p.html");
  EXPECT_EQ(line.site, 12);
  EXPECT_EQ(line.words, std::nullopt);
  EXPECT_EQ(Parsed({"try", "a", "p", "--words", "red shoes", "--site", "1"}).words, "red shoes");
}

TEST(ParseCommandLine, TakesAddress) {
  const CommandLine line = Parsed({"address", "a.xml", "--site", "2147483647", "--words", "-x"});
  EXPECT_EQ(line.action, Action::kAddress);
  EXPECT_EQ(line.site, 2147483647);
  EXPECT_EQ(line.words, "-x");
}

TEST(ParseCommandLine, TakesFilesThatLookLikeOptionsBehindTwoDashes) {
  EXPECT_EQ(Parsed({"check", "--", "--json"}).file, "--json");
  EXPECT_EQ(Parsed({"check", "-"}).file, "-");
}

TEST(ParseCommandLine, HelpAndVersionNeedNothingElse) {
  EXPECT_EQ(Parsed({"--help"}).action, Action::kHelp);
  EXPECT_EQ(Parsed({"try", "-h"}).action, Action::kHelp);
  EXPECT_EQ(Parsed({"--version", "--nonsense"}).action, Action::kVersion);
}

TEST(ParseCommandLine, SaysWhatIsMissing) {
  EXPECT_THAT(ErrorOf({}), HasSubstr("check, try or address"));
  EXPECT_THAT(ErrorOf({"check"}), HasSubstr("needs an agent file"));
  EXPECT_THAT(ErrorOf({"try", "a", "--site", "1"}), HasSubstr("needs a page"));
  EXPECT_THAT(ErrorOf({"try", "a", "p"}), HasSubstr("--site is missing"));
  EXPECT_THAT(ErrorOf({"address", "a", "--words", "x"}), HasSubstr("--site is missing"));
  EXPECT_THAT(ErrorOf({"address", "a", "--site", "1"}), HasSubstr("--words is missing"));
  EXPECT_THAT(ErrorOf({"address", "a", "--site", "1", "--words", ""}), HasSubstr("one word"));
  EXPECT_THAT(ErrorOf({"address", "a", "--site"}), HasSubstr("--site needs a value"));
  EXPECT_THAT(ErrorOf({"address", "a", "--words"}), HasSubstr("--words needs a value"));
}

TEST(ParseCommandLine, SaysWhatItDoesNotKnow) {
  EXPECT_THAT(ErrorOf({"mend", "a"}), HasSubstr("\"mend\""));
  EXPECT_THAT(ErrorOf({"check", "a", "--xml"}), HasSubstr("\"--xml\""));
  EXPECT_THAT(ErrorOf({"check", "a", "b"}), HasSubstr("does not take \"b\""));
  EXPECT_THAT(ErrorOf({"try", "a", "p", "q", "--site", "1"}), HasSubstr("does not take \"q\""));
}

TEST(ParseCommandLine, TakesOnlyNumbersThatAnAgentCanHave) {
  for (const char* number : {"0", "-1", "", "x", "1x", " 1", "+1", "2147483648", "1.0"}) {
    EXPECT_THAT(ErrorOf({"try", "a", "p", "--site", number}), HasSubstr("no number")) << number;
  }
}

TEST(ParseCommandLine, CheckTakesNoOptionOfTheOthers) {
  EXPECT_THAT(ErrorOf({"check", "a", "--site", "1"}), HasSubstr("neither"));
  EXPECT_THAT(ErrorOf({"check", "a", "--words", "x"}), HasSubstr("neither"));
}

TEST(HelpText, NamesEveryOptionAndCommand) {
  for (const char* word :
       {"check", "try", "address", "--site", "--words", "--json", "--help", "--version"}) {
    EXPECT_THAT(std::string(HelpText()), HasSubstr(word));
  }
}

}  // namespace
}  // namespace brovanta::agent_tool

#include "server/command_line.h"

#include <gmock/gmock.h>

#include <vector>

namespace brovanta::server {
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

TEST(ParseCommandLine, ServesOnLoopbackUnlessToldOtherwise) {
  const CommandLine line = Parsed({"--data", "a.db"});
  EXPECT_EQ(line.action, Action::kServe);
  EXPECT_EQ(line.data, "a.db");
  EXPECT_EQ(line.listen, (ListenAddress{"127.0.0.1", 8427}));
  EXPECT_FALSE(line.demo);
}

TEST(ParseCommandLine, TakesEveryOptionOfServing) {
  const CommandLine line = Parsed({"--demo", "--listen", "0.0.0.0:80", "--data", "a.db"});
  EXPECT_EQ(line.listen, (ListenAddress{"0.0.0.0", 80}));
  EXPECT_TRUE(line.demo);
}

TEST(ParseCommandLine, TakesImports) {
  const CommandLine line = Parsed({"--data", "a.db", "import", "coupons", "c.csv"});
  EXPECT_EQ(line.action, Action::kImport);
  EXPECT_EQ(line.subject, Subject::kCoupons);
  EXPECT_EQ(line.file, "c.csv");
  EXPECT_FALSE(line.replace);
}

TEST(ParseCommandLine, TakesOptionsBehindTheCommand) {
  const CommandLine line = Parsed({"import", "--replace", "stores", "s.csv", "--data", "a.db"});
  EXPECT_EQ(line.subject, Subject::kStores);
  EXPECT_TRUE(line.replace);
}

TEST(ParseCommandLine, TakesExportsWithAndWithoutAFile) {
  EXPECT_EQ(Parsed({"--data", "a.db", "export", "categories"}).file, "");
  const CommandLine line = Parsed({"--data", "a.db", "export", "agents", "a.xml"});
  EXPECT_EQ(line.action, Action::kExport);
  EXPECT_EQ(line.subject, Subject::kAgents);
  EXPECT_EQ(line.file, "a.xml");
}

TEST(ParseCommandLine, HelpAndVersionNeedNothingElse) {
  EXPECT_EQ(Parsed({"--help"}).action, Action::kHelp);
  EXPECT_EQ(Parsed({"-h"}).action, Action::kHelp);
  EXPECT_EQ(Parsed({"import", "--version", "--nonsense"}).action, Action::kVersion);
}

TEST(ParseCommandLine, SaysWhatIsMissing) {
  EXPECT_THAT(ErrorOf({}), HasSubstr("--data"));
  EXPECT_THAT(ErrorOf({"--data"}), HasSubstr("--data needs a value"));
  EXPECT_THAT(ErrorOf({"--data", ""}), HasSubstr("--data needs"));
  EXPECT_THAT(ErrorOf({"--data", "a", "import"}), HasSubstr("stores, categories"));
  EXPECT_THAT(ErrorOf({"--data", "a", "import", "stores"}), HasSubstr("needs a file"));
  EXPECT_THAT(ErrorOf({"import", "stores", "f"}), HasSubstr("--data"));
}

TEST(ParseCommandLine, SaysWhatItDoesNotKnow) {
  EXPECT_THAT(ErrorOf({"--data", "a", "--port"}), HasSubstr("\"--port\""));
  EXPECT_THAT(ErrorOf({"--data", "a", "serve"}), HasSubstr("\"serve\""));
  EXPECT_THAT(ErrorOf({"--data", "a", "export", "units"}), HasSubstr("stores, categories"));
  EXPECT_THAT(ErrorOf({"--data", "a", "--listen", "8427"}), HasSubstr("\"8427\""));
  EXPECT_THAT(ErrorOf({"--data", "a", "import", "stores", "f", "g"}), HasSubstr("one file"));
}

TEST(ParseCommandLine, RefusesOptionsWhereTheyMeanNothing) {
  EXPECT_THAT(ErrorOf({"--data", "a", "--demo", "export", "stores"}), HasSubstr("serving only"));
  EXPECT_THAT(ErrorOf({"--data", "a", "--listen", "a:1", "export", "stores"}),
              HasSubstr("serving only"));
  EXPECT_THAT(ErrorOf({"--data", "a", "--replace"}), HasSubstr("--replace"));
  EXPECT_THAT(ErrorOf({"--data", "a", "--replace", "import", "agents", "f"}),
              HasSubstr("--replace"));
}

TEST(HelpText, NamesEveryOptionAndCommand) {
  for (const char* word : {"--data", "--listen", "--demo", "--replace", "--help", "--version",
                           "import", "export", "stores", "categories", "coupons", "agents"}) {
    EXPECT_THAT(std::string(HelpText()), HasSubstr(word));
  }
}

}  // namespace
}  // namespace brovanta::server

#include "app/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brovanta {
namespace {

using Action = CommandLine::Action;
using testing::HasSubstr;

TEST(CommandLineTest, WithoutArgumentsTheProgramRunsOnTheUsersData) {
  const CommandLine line = ParseCommandLine({});
  EXPECT_EQ(line.action, Action::kRun);
  EXPECT_EQ(line.data_folder, "");
}

TEST(CommandLineTest, VersionAndHelpAreAskedFor) {
  EXPECT_EQ(ParseCommandLine({"--version"}).action, Action::kShowVersion);
  EXPECT_EQ(ParseCommandLine({"--help"}).action, Action::kShowHelp);
  EXPECT_EQ(ParseCommandLine({"-h"}).action, Action::kShowHelp);
}

TEST(CommandLineTest, TheUpdateServerIsAskedForWithOrWithoutAFolder) {
  EXPECT_EQ(ParseCommandLine({"--show-update-server"}).action, Action::kShowServer);
  const CommandLine line = ParseCommandLine({"--show-update-server", "--data-folder", "/a"});
  EXPECT_EQ(line.action, Action::kShowServer);
  EXPECT_EQ(line.data_folder, "/a");
}

TEST(CommandLineTest, DataFolderIsTheNextArgumentOrStandsBehindTheEqualsSign) {
  for (const CommandLine& line : {ParseCommandLine({"--data-folder", "/tmp/a b"}),
                                  ParseCommandLine({"--data-folder=/tmp/a b"})}) {
    EXPECT_EQ(line.action, Action::kRun);
    EXPECT_EQ(line.data_folder, "/tmp/a b");
  }
}

TEST(CommandLineTest, DataFolderWithoutANameIsRefused) {
  for (const CommandLine& line :
       {ParseCommandLine({"--data-folder"}), ParseCommandLine({"--data-folder="}),
        ParseCommandLine({"--data-folder", ""})}) {
    EXPECT_EQ(line.action, Action::kRefuse);
    EXPECT_THAT(line.problem, HasSubstr("needs the name of a folder"));
  }
}

TEST(CommandLineTest, DataFolderGivenTwiceIsRefused) {
  const CommandLine line = ParseCommandLine({"--data-folder", "a", "--data-folder=b"});
  EXPECT_EQ(line.action, Action::kRefuse);
  EXPECT_THAT(line.problem, HasSubstr("twice"));
}

TEST(CommandLineTest, TheLanguageIsTheNextArgumentOrStandsBehindTheEqualsSign) {
  EXPECT_EQ(ParseCommandLine({}).language, "");
  for (const CommandLine& line : {ParseCommandLine({"--language", "de", "--data-folder=/a"}),
                                  ParseCommandLine({"--data-folder", "/a", "--language=de"})}) {
    EXPECT_EQ(line.action, Action::kRun);
    EXPECT_EQ(line.language, "de");
    EXPECT_EQ(line.data_folder, "/a");
  }
}

TEST(CommandLineTest, LanguageWithoutAValueOrGivenTwiceIsRefused) {
  for (const CommandLine& line :
       {ParseCommandLine({"--language"}), ParseCommandLine({"--language="})}) {
    EXPECT_EQ(line.action, Action::kRefuse);
    EXPECT_THAT(line.problem, HasSubstr("--language needs a language"));
  }
  EXPECT_THAT(ParseCommandLine({"--language=de", "--language=en"}).problem,
              HasSubstr("--language is given twice"));
  EXPECT_EQ(ParseCommandLine({"--languages=de"}).action, Action::kRefuse);
}

TEST(CommandLineTest, UnknownOptionsAndArgumentsAreRefusedByName) {
  EXPECT_EQ(ParseCommandLine({"--colour"}).action, Action::kRefuse);
  EXPECT_THAT(ParseCommandLine({"--colour"}).problem, HasSubstr("'--colour'"));
  EXPECT_THAT(ParseCommandLine({"-x"}).problem, HasSubstr("unknown option '-x'"));
  EXPECT_THAT(ParseCommandLine({"list"}).problem, HasSubstr("unexpected argument 'list'"));
  EXPECT_THAT(ParseCommandLine({""}).problem, HasSubstr("unexpected argument ''"));
  EXPECT_EQ(ParseCommandLine({"--data-folderx"}).action, Action::kRefuse);
}

TEST(CommandLineTest, AWrongArgumentWinsOverHelp) {
  EXPECT_EQ(ParseCommandLine({"--help", "--colour"}).action, Action::kRefuse);
}

TEST(CommandLineTest, HelpNamesEveryOption) {
  for (const char* const option : {"--data-folder DIR", "--language LANGUAGE",
                                   "--show-update-server", "--version", "-h, --help"}) {
    EXPECT_THAT(HelpText(), HasSubstr(option));
  }
}

}  // namespace
}  // namespace brovanta

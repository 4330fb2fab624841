#include "data/help_text.h"

#include <gmock/gmock.h>

#include <array>
#include <sstream>

#include "data/commands.h"

namespace brovanta::data_tool {
namespace {

using testing::HasSubstr;

constexpr std::array kLookOptions{Option{"--json", "", "writes JSON"}};
constexpr std::array kBringOptions{
    Option{"--week", "", "of a week", 1},
    Option{"--month", "", "of a month", 1},
    Option{"--html", "", "a page", 2},
    Option{"--text", "", "a text", 2},
    Option{"--store", "NAME", "of one store,\nby name"},
    Option{"--output", "FILE", "where to", 0, "-o"},
};
constexpr std::array kTable{
    Command{"look", "DIR", "looks\nclosely", 1, 1, nullptr, kLookOptions},
    Command{"bring", "DIR [DATE]", "brings", 1, 2, nullptr, kBringOptions, 2},
    Command{"go", "DIR", "goes", 1, 1, nullptr},
};

TEST(HelpTextTest, ShowsHowEachCommandIsUsed) {
  EXPECT_THAT(HelpText(kTable), HasSubstr("  brovanta-data look DIR [--json]\n"
                                          "  brovanta-data bring DIR [DATE] [--week|--month] "
                                          "--html|--text [--store NAME]\n"
                                          "                      [-o FILE]\n"
                                          "  brovanta-data go DIR\n"));
}

TEST(HelpTextTest, TellsOptionsBelowTheirCommand) {
  EXPECT_THAT(HelpText(kTable), HasSubstr("  look   looks\n"
                                          "         closely\n"
                                          "           --json  writes JSON\n"
                                          "  bring  brings\n"
                                          "           --week        of a week\n"
                                          "           --month       of a month\n"
                                          "           --html        a page\n"
                                          "           --text        a text\n"
                                          "           --store NAME  of one store,\n"
                                          "                         by name\n"
                                          "           -o FILE       where to\n"
                                          "  go     goes\n"));
}

TEST(HelpTextTest, FitsATerminal) {
  std::istringstream help(HelpText(Commands()));
  for (std::string line; std::getline(help, line);) {
    // The closing paragraph is set to the width of the source.
    EXPECT_LE(line.size(), 100U) << line;
  }
}

}  // namespace
}  // namespace brovanta::data_tool

// The page about writing agents shows what the program really does.
#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "agent/input.h"
#include "search/agent_fields.h"
#include "tests/agent/agent_program.h"
#include "tests/support/working_folder.h"

namespace brovanta::agent_tool {
namespace {

using testing::HasSubstr;

std::string PageText() {
  std::string error;
  return ReadInput(BROVANTA_SOURCE_FOLDER "/docs/agents.md", error).value_or("");
}

// What stands between the fences of a language.
std::vector<std::string> Fenced(const std::string& page, const std::string& language) {
  const std::string open = "```" + language + "\n";
  std::vector<std::string> texts;
  for (std::size_t at = page.find(open); at != std::string::npos; at = page.find(open, at)) {
    at += open.size();
    texts.push_back(page.substr(at, page.find("```\n", at) - at));
  }
  return texts;
}

// The words of a command line, without the program's name; quotation marks hold one together.
std::vector<std::string> Arguments(const std::string& line) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false;
  for (const char character : line + " ") {
    if (character == '"') {
      quoted = !quoted;
    } else if (character != ' ' || quoted) {
      word += character;
    } else if (!word.empty()) {
      words.push_back(word);
      word.clear();
    }
  }
  words.erase(words.begin());
  return words;
}

TEST(AgentsPageTest, CommandsOfTheExampleWriteWhatThePageShows) {
  const std::string page = PageText();
  const auto html = Fenced(page, "html");
  const auto xml = Fenced(page, "xml");
  const auto commands = Fenced(page, "console");
  ASSERT_EQ(html.size(), 1U);
  ASSERT_EQ(xml.size(), 1U);
  ASSERT_EQ(commands.size(), 3U);
  const test::TempFolder folder;
  folder.WriteText("page.html", html[0]);
  folder.WriteText("agents.xml", xml[0]);
  const test::WorkingFolder working(folder.path());
  for (const std::string& shown : commands) {
    ASSERT_EQ(shown.substr(0, 2), "$ ");
    const std::size_t line_end = shown.find('\n');
    const std::string line = shown.substr(2, line_end - 2);
    const test::ProgramEnd end = test::RunProgram(folder, Arguments(line));
    EXPECT_EQ(end.output, shown.substr(line_end + 1)) << line;
    EXPECT_EQ(end.status, 0) << line;
    EXPECT_EQ(end.errors, "");
  }
}

TEST(AgentsPageTest, TellsOfEveryField) {
  const std::string page = PageText();
  const std::string table = page.substr(page.find("## The fields"));
  for (const char* name : {"TypeId", "TypeName", "SiteId"}) {
    EXPECT_THAT(table, HasSubstr("| `" + std::string(name) + "` | yes |"));
  }
  for (const AgentField& field : kAgentFields) {
    EXPECT_THAT(table, HasSubstr(std::string("`").append(field.name).append("`")));
  }
}

TEST(AgentsPageTest, ManualPageNamesEveryOptionAndStatus) {
  std::string error;
  const auto manual = ReadInput(BROVANTA_SOURCE_FOLDER "/packaging/brovanta-agent.1", error);
  ASSERT_TRUE(manual) << error;
  for (const char* word : {"check", "try", "address", "\\-\\-site", "\\-\\-words", "\\-\\-json",
                           "\\-\\-help", "\\-\\-version", ".B 0", ".B 1", ".B 2", ".B 3"}) {
    EXPECT_THAT(*manual, HasSubstr(word));
  }
}

}  // namespace
}  // namespace brovanta::agent_tool

#include "search/agent_configuration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "platform/file.h"
#include "platform/system_calls.h"
#include "platform/text_file.h"
#include "search/agent_fields.h"
#include "tests/support/temp_folder.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::IsEmpty;

std::string Category(const std::string& id, const std::string& name) {
  return "<AgentType><TypeId>" + id + "</TypeId><TypeName>" + name + "</TypeName></AgentType>\r\n";
}

// An agent with its own name as the value of every field, one of them left out.
std::string Agent(const std::string& id, const std::string& without = "") {
  std::string block = "<WebAgent><SiteId>" + id + "</SiteId>";
  for (const AgentField& field : kAgentFields) {
    const std::string name = field.name;
    if (name != without) block.append("<" + name + ">" + name + id + "</" + name + ">\r\n");
  }
  return block + "</WebAgent>\r\n";
}

class AgentConfigurationTest : public testing::Test {
 protected:
  [[nodiscard]] std::string path() const { return folder_.File("webspider.xml"); }
  int Load(std::string_view text) {
    folder_.WriteText("webspider.xml", text);
    return LoadAgentConfiguration(path(), configuration_);
  }
  [[nodiscard]] std::vector<std::string> Categories() const {
    std::vector<std::string> texts;
    for (const WebAgentType& category : configuration_.categories) {
      texts.push_back(std::to_string(category.TypeId) + " " + category.TypeName);
    }
    return texts;
  }
  [[nodiscard]] std::vector<int> Agents() const {
    std::vector<int> ids;
    for (const auto& agent : configuration_.agents) ids.push_back(agent->SiteId);
    return ids;
  }

  test::TempFolder folder_;
  AgentConfiguration configuration_;
};

TEST_F(AgentConfigurationTest, KeepsCategoriesAndAgentsInTheOrderOfTheFile) {
  EXPECT_EQ(Load(Agent("7") + Category("2", "Books") + Agent("3") + Category("1", "Groceries")), 0);
  EXPECT_THAT(Categories(), ElementsAre("2 Books", "1 Groceries"));
  EXPECT_THAT(Agents(), ElementsAre(7, 3));
}

TEST_F(AgentConfigurationTest, EveryFieldOfAnAgentIsTaken) {
  ASSERT_EQ(Load(Agent("7")), 0);
  ASSERT_THAT(Agents(), ElementsAre(7));
  const WebAgent& agent = *configuration_.agents[0];
  for (const AgentField& field : kAgentFields) {
    EXPECT_EQ(agent.*field.text, field.name + "7"s);
  }
}

TEST_F(AgentConfigurationTest, EmptyFileAndFileWithoutBlocksLoadWithNothing) {
  for (const char* text :
       {"", "<?xml version=\"1.0\"?>\r\n<Agents></Agents>", "<html>404</html>"}) {
    EXPECT_EQ(Load(text), 0) << text;
    EXPECT_THAT(Categories(), IsEmpty());
    EXPECT_THAT(Agents(), IsEmpty());
  }
}

TEST_F(AgentConfigurationTest, BadLastCategoryKeepsOutEveryAgent) {
  EXPECT_EQ(Load(Agent("7") + Category("1", "Groceries") + Category("0", "Bad")), -14);
  EXPECT_THAT(Categories(), ElementsAre("1 Groceries"));
  EXPECT_THAT(Agents(), IsEmpty());
}

TEST_F(AgentConfigurationTest, BadCategoryBeforeAGoodOneIsOnlyMissing) {
  EXPECT_EQ(Load(Category("0", "Bad") + "<AgentType><TypeId>3</TypeId></AgentType>" +
                 Category("-1", "Bad") + Category("x", "Bad") + Category("1", "") + Agent("7")),
            0);
  EXPECT_THAT(Categories(), ElementsAre("1 ")) << "an empty name is a name";
  EXPECT_THAT(Agents(), ElementsAre(7));
}

TEST_F(AgentConfigurationTest, BadFirstAgentIsOnlyMissing) {
  EXPECT_EQ(Load(Category("1", "Groceries") + Agent("1", "EndURL") + Agent("2")), 0);
  EXPECT_THAT(Agents(), ElementsAre(2));
}

TEST_F(AgentConfigurationTest, BadLastAgentIsAnErrorAndLeavesThoseBeforeIt) {
  EXPECT_EQ(Load(Category("1", "Groceries") + Agent("2") + Agent("1", "EndURL")), -14);
  EXPECT_THAT(Categories(), ElementsAre("1 Groceries"));
  EXPECT_THAT(Agents(), ElementsAre(2));
  EXPECT_EQ(Load(Agent("2") + Agent("0")), -14);
}

TEST_F(AgentConfigurationTest, EachFieldMayOrMayNotBeMissing) {
  for (const AgentField& field : kAgentFields) {
    EXPECT_EQ(Load(Agent("1", field.name)), field.required ? -14 : 0) << field.name;
    if (field.required) {
      EXPECT_THAT(Agents(), IsEmpty()) << field.name;
    } else {
      ASSERT_THAT(Agents(), ElementsAre(1)) << field.name;
      EXPECT_FALSE(((*configuration_.agents[0]).*field.text).has_value()) << field.name;
    }
  }
}

TEST_F(AgentConfigurationTest, FieldsKeepEveryByte) {
  std::string block = Agent("7");
  const std::string name = "<SiteName>SiteName7</SiteName>";
  block.replace(block.find(name), name.size(), "<SiteName> Caf\xE9 &amp;\r\n<b> Shop </SiteName>");
  ASSERT_EQ(Load(block), 0);
  EXPECT_EQ(configuration_.agents[0]->SiteName, " Caf\xE9 &amp;\r\n<b> Shop ");
}

TEST_F(AgentConfigurationTest, EmptyFieldIsPresent) {
  std::string block = Agent("7", "EndURL");
  block.insert(block.find("</WebAgent>"), "<EndURL></EndURL>");
  ASSERT_EQ(Load(block), 0);
  EXPECT_EQ(configuration_.agents[0]->EndURL, "");
}

TEST_F(AgentConfigurationTest, TagsInAnotherLetterCaseAreNoTags) {
  std::string block = Agent("7");
  block.replace(block.find("<SiteId>"), 8, "<siteid>");
  EXPECT_EQ(Load(block), -14);
  EXPECT_EQ(Load("<webagent></webagent><agenttype></agenttype>"), 0);
}

TEST_F(AgentConfigurationTest, TagsInTheWrongOrderAreMissing) {
  std::string block = Agent("7", "EndURL");
  block.insert(block.find("</WebAgent>"), "</EndURL>x<EndURL>");
  EXPECT_EQ(Load(block), -14);
  EXPECT_THAT(Agents(), IsEmpty());
}

TEST_F(AgentConfigurationTest, StrayClosingTagBeforeABlockDoesNoHarm) {
  EXPECT_EQ(Load("</AgentType></WebAgent>" + Category("1", "Groceries") + Agent("7")), 0);
  EXPECT_THAT(Categories(), ElementsAre("1 Groceries"));
  EXPECT_THAT(Agents(), ElementsAre(7));
}

TEST_F(AgentConfigurationTest, BlockWithoutAnEndIsNone) {
  EXPECT_EQ(Load(Category("1", "Groceries") + Agent("7") + "<AgentType><TypeId>2" + "<WebAgent>"),
            0);
  EXPECT_THAT(Agents(), ElementsAre(7));
}

TEST_F(AgentConfigurationTest, NumbersAreReadUpToTheFirstOtherCharacter) {
  EXPECT_EQ(Load(Category(" 3rd", "Third") + Category("99999999999", "Many") + Agent("7.5")), 0);
  EXPECT_THAT(Categories(), ElementsAre("3 Third", "2147483647 Many"));
  EXPECT_THAT(Agents(), ElementsAre(7));
}

TEST_F(AgentConfigurationTest, ZeroEndsTheFile) {
  EXPECT_EQ(Load(Agent("7") + "\0"s + Agent("8")), 0);
  EXPECT_THAT(Agents(), ElementsAre(7));
}

TEST_F(AgentConfigurationTest, EveryLoadStartsFromEmptyLists) {
  ASSERT_EQ(Load(Category("1", "Groceries") + Agent("7")), 0);
  ASSERT_EQ(Load(Category("2", "Books")), 0);
  EXPECT_THAT(Categories(), ElementsAre("2 Books"));
  EXPECT_THAT(Agents(), IsEmpty());
}

TEST_F(AgentConfigurationTest, FileThatDoesNotOpenLeavesTheListsEmpty) {
  ASSERT_EQ(Load(Category("1", "Groceries") + Agent("7")), 0);
  EXPECT_EQ(LoadAgentConfiguration(folder_.File("missing"), configuration_), -11);
  EXPECT_THAT(Categories(), IsEmpty());
  EXPECT_THAT(Agents(), IsEmpty());
  platform::File holder;
  ASSERT_TRUE(holder.Open(path(), platform::File::Mode::kRead));
  EXPECT_EQ(LoadAgentConfiguration(path(), configuration_), ERR_OPEN);
}

TEST_F(AgentConfigurationTest, FileThatIsTooLargeLeavesTheListsEmpty) {
  ASSERT_EQ(Load(Category("1", "Groceries") + Agent("7")), 0);
  std::filesystem::resize_file(path(), platform::kLargestWholeFile + 1);
  EXPECT_EQ(LoadAgentConfiguration(path(), configuration_), -12);
  EXPECT_THAT(Categories(), IsEmpty());
  EXPECT_THAT(Agents(), IsEmpty());
}

TEST_F(AgentConfigurationTest, FileThatGivesFewerBytesThanItHasLeavesTheListsEmpty) {
  class ShortCalls : public platform::SystemCalls {
    ssize_t Read(int, void*, std::size_t) override { return 0; }
  };
  ASSERT_EQ(Load(Category("1", "Groceries") + Agent("7")), 0);
  ShortCalls calls;
  const platform::SystemCallsInUse in_use(calls);
  EXPECT_EQ(LoadAgentConfiguration(path(), configuration_), -12);
  EXPECT_THAT(Categories(), IsEmpty());
  EXPECT_THAT(Agents(), IsEmpty());
}

TEST_F(AgentConfigurationTest, FileWhoseSizeCannotBeReadLeavesTheListsEmpty) {
  // The first look at the open file belongs to its opening.
  class SizelessCalls : public platform::SystemCalls {
    int StatusOf(int descriptor, struct stat* status) override {
      if (looks_++ == 0) return SystemCalls::StatusOf(descriptor, status);
      errno = EIO;
      return -1;
    }
    int looks_ = 0;
  };
  ASSERT_EQ(Load(Category("1", "Groceries") + Agent("7")), 0);
  SizelessCalls calls;
  const platform::SystemCallsInUse in_use(calls);
  EXPECT_EQ(LoadAgentConfiguration(path(), configuration_), -14);
  EXPECT_THAT(Categories(), IsEmpty());
  EXPECT_THAT(Agents(), IsEmpty());
}

TEST_F(AgentConfigurationTest, AgentOutlivesItsConfiguration) {
  ASSERT_EQ(Load(Agent("7")), 0);
  const std::shared_ptr<const WebAgent> running = configuration_.agents[0];
  ASSERT_EQ(Load(""), 0);
  EXPECT_EQ(running->SiteName, "SiteName7");
}

TEST_F(AgentConfigurationTest, FileCutAnywhereLoadsTheWholeBlocksBeforeTheCut) {
  const std::string whole = Category("1", "Groceries") + Agent("7") + Agent("8");
  const std::size_t first = whole.find("</WebAgent>") + 11;
  const std::size_t second = whole.rfind("</WebAgent>") + 11;
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    EXPECT_EQ(Load(whole.substr(0, size)), 0) << size;
    std::vector<int> expected;
    if (size >= first) expected.push_back(7);
    if (size >= second) expected.push_back(8);
    EXPECT_EQ(Agents(), expected) << size;
  }
}

TEST_F(AgentConfigurationTest, AnyOrderOfTagsLoads) {
  std::mt19937 random(7);
  std::vector<std::string> tags{"<AgentType>",        "</AgentType>", "<WebAgent>",  "</WebAgent>",
                                "<TypeId>1</TypeId>", "<TypeName>",   "</TypeName>", "1"};
  for (int round = 0; round < 300; ++round) {
    std::string text;
    for (int i = 0; i < 60; ++i) text += tags[random() % tags.size()];
    const int code = Load(text);
    EXPECT_TRUE(code == 0 || code == ERR_FORMAT) << text;
    EXPECT_THAT(Agents(), IsEmpty());
  }
}

// The page about the format.
std::string Page() {
  std::ifstream in(std::string(BROVANTA_SOURCE_FOLDER) + "/docs/formats/agents.md");
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

TEST_F(AgentConfigurationTest, PageOfTheFormatNamesEveryFieldInItsOrder) {
  const std::string page = Page();
  std::size_t at = page.find("| `SiteId` | number | yes, 1 or more |");
  for (const AgentField& field : kAgentFields) {
    ASSERT_NE(at, std::string::npos) << "before " << field.name;
    const std::size_t next = page.find("\n| `", at + 1);
    const std::string row =
        "\n| `" + std::string(field.name) + "` | text | " + (field.required ? "yes" : "no") + " |";
    EXPECT_EQ(page.substr(next, row.size()), row);
    at = next;
  }
}

TEST_F(AgentConfigurationTest, ExampleOfThePageLoads) {
  const std::string page = Page();
  const std::size_t start = page.find("```\n") + 4;
  ASSERT_EQ(Load(page.substr(start, page.find("```", start) - start)), 0);
  EXPECT_THAT(Categories(), ElementsAre("1 Groceries"));
  ASSERT_THAT(Agents(), ElementsAre(4));
  const WebAgent& agent = *configuration_.agents[0];
  EXPECT_EQ(agent.FormatString, "http://shop.example/find?q= KEYWORD &sort=price");
  EXPECT_EQ(agent.EndPrice, "<");
  EXPECT_FALSE(agent.EndHeader);
  EXPECT_TRUE(agent.Serves(3));
}

}  // namespace
}  // namespace brovanta

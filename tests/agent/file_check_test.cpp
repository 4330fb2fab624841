#include "agent/file_check.h"

#include <gmock/gmock.h>

#include "search/agent_configuration.h"
#include "tests/agent/agent_text.h"

namespace brovanta::agent_tool {
namespace {

using std::string_literals::operator""s;
using test::AgentBlockText;
using test::kBooks;
using test::ShopFields;
using test::ShopWith;
using test::ShopWithout;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::string Good() { return kBooks + AgentBlockText(ShopFields()); }

std::vector<MissingField> RequiredOnesMissing(const BlockReport& block) {
  std::vector<MissingField> fields;
  for (const MissingField& field : block.missing) {
    if (field.required) fields.push_back(field);
  }
  return fields;
}

TEST(CheckAgentFileTest, ReportsEveryBlockInTheOrderOfTheFile) {
  const FileReport report =
      CheckAgentFile(std::string("\n").append(AgentBlockText(ShopFields())) + kBooks);
  EXPECT_TRUE(report.IsGood());
  EXPECT_EQ(report.result, 0);
  EXPECT_EQ(report.categories, 1U);
  EXPECT_EQ(report.agents, 1U);
  ASSERT_THAT(report.blocks, SizeIs(2));
  EXPECT_EQ(report.blocks[0].kind, BlockKind::kAgent);
  EXPECT_EQ(report.blocks[0].start, 1U);
  EXPECT_EQ(report.blocks[0].line, 2U);
  EXPECT_EQ(report.blocks[0].number, 4);
  EXPECT_EQ(report.blocks[0].name, "Corner Shop");
  EXPECT_TRUE(report.blocks[0].taken);
  EXPECT_EQ(report.blocks[1].kind, BlockKind::kCategory);
  EXPECT_EQ(report.blocks[1].line, 3U);
  EXPECT_EQ(report.blocks[1].name, "Books");
}

TEST(CheckAgentFileTest, ListsTheOptionalFieldsThatAreNotThere) {
  const FileReport report = CheckAgentFile(Good());
  std::vector<std::string> names;
  for (const MissingField& field : report.blocks.at(1).missing) {
    EXPECT_FALSE(field.required);
    names.push_back(field.field);
  }
  EXPECT_THAT(names, ElementsAre("EndHeader", "StartText", "EndText", "StartPromo", "EndPromo"));
}

TEST(CheckAgentFileTest, NamesEachRequiredFieldThatIsNotThere) {
  for (const char* name : {"SiteType", "SiteName", "SiteAddress", "FormatString", "StartResult",
                           "EndResult", "StartItem", "EndItem", "StartURL", "EndURL", "SiteId"}) {
    const FileReport report = CheckAgentFile(kBooks + ShopWithout(name));
    EXPECT_EQ(report.result, -14);
    EXPECT_FALSE(report.IsGood());
    EXPECT_FALSE(report.blocks.at(1).taken);
    EXPECT_THAT(RequiredOnesMissing(report.blocks.at(1)),
                ElementsAre(MissingField{name, true, "there is no <"s + name + ">"}));
  }
}

TEST(CheckAgentFileTest, NamesWhatACategoryLacks) {
  FileReport report = CheckAgentFile("<AgentType><TypeId>x</TypeId></AgentType>" + Good());
  EXPECT_EQ(report.result, 0);  // the last category is good
  EXPECT_FALSE(report.IsGood());
  EXPECT_THAT(report.blocks.at(0).missing,
              ElementsAre(MissingField{"TypeId", true, "\"x\" is no number of 1 or more"},
                          MissingField{"TypeName", true, "there is no <TypeName>"}));
  report =
      CheckAgentFile(Good() + "<AgentType><TypeId>0</TypeId><TypeName>A</TypeName></AgentType>");
  EXPECT_EQ(report.result, -14);
  EXPECT_EQ(report.categories, 1U);
  EXPECT_EQ(report.agents, 0U);
  EXPECT_TRUE(report.blocks.at(1).taken);  // it would be, if it were not for the category
}

TEST(CheckAgentFileTest, SaysWhatStandsInThePlaceOfATag) {
  const auto why = [](const std::string& fields) {
    const FileReport report = CheckAgentFile("<AgentType>" + fields + "</AgentType>");
    return report.blocks.at(0).missing.back().why;
  };
  EXPECT_EQ(why("<TypeId>1</TypeId><typename>A</typename>"),
            "there is no <TypeName>, only <typename>");
  EXPECT_EQ(why("<TypeId>1</TypeId><TypeName>A"), "there is no </TypeName>");
  EXPECT_EQ(why("<TypeId>1</TypeId><TypeName>A</Typename>"),
            "there is no </TypeName>, only </Typename>");
  EXPECT_EQ(why("<TypeId>1</TypeId></TypeName>A<TypeName>"),
            "</TypeName> stands before <TypeName>");
  EXPECT_EQ(why("<TypeName>A</TypeName><TypeId>-7</TypeId>"), "\"-7\" is no number of 1 or more");
}

TEST(CheckAgentFileTest, TellsOfABlockThatIsNeverClosed) {
  const FileReport report = CheckAgentFile(Good() + "<WebAgent><SiteId>5</SiteId>");
  EXPECT_EQ(report.result, 0);
  EXPECT_FALSE(report.IsGood());
  ASSERT_THAT(report.blocks, SizeIs(3));
  EXPECT_FALSE(report.blocks[2].closed);
  EXPECT_FALSE(report.blocks[2].taken);
  EXPECT_EQ(report.blocks[2].line, 3U);
}

TEST(CheckAgentFileTest, NotesABlockThatHoldsTheNextOne) {
  std::string first = AgentBlockText(ShopFields());
  first.resize(first.find("</WebAgent>"));
  const FileReport report = CheckAgentFile(kBooks + first + ShopWith("SiteId", "5"));
  ASSERT_THAT(report.blocks, SizeIs(2));
  EXPECT_THAT(report.blocks[1].notes, Contains(HasSubstr("holds another <WebAgent>")));
  EXPECT_THAT(report.blocks[1].notes, Contains(HasSubstr("<SiteId> stands there more than once")));
}

TEST(CheckAgentFileTest, NotesNumbersThatAreGivenTwice) {
  const FileReport report = CheckAgentFile(Good() + AgentBlockText(ShopFields()) + kBooks);
  EXPECT_TRUE(report.IsGood());
  EXPECT_THAT(report.blocks.at(0).notes, IsEmpty());
  EXPECT_THAT(report.blocks.at(1).notes, IsEmpty());
  EXPECT_THAT(report.blocks.at(2).notes, ElementsAre("the number 4 stands in a block before"));
  EXPECT_THAT(report.blocks.at(3).notes, ElementsAre("the number 1 stands in a block before"));
}

TEST(CheckAgentFileTest, NotesWhatWillNotWork) {
  const FileReport report = CheckAgentFile(kBooks + ShopWith("SiteType", "7"));
  EXPECT_TRUE(report.IsGood());
  EXPECT_THAT(report.blocks.at(0).notes, ElementsAre(HasSubstr("no agent")));
  EXPECT_THAT(report.blocks.at(1).notes, ElementsAre(HasSubstr("serves no category")));
}

TEST(CheckAgentFileTest, NotesAboutOneBlockDoNotDependOnAFaultInAnother) {
  const FileReport report = CheckAgentFile(Good() + "<AgentType></AgentType>");
  EXPECT_EQ(report.agents, 0U);
  EXPECT_THAT(report.blocks.at(0).notes, IsEmpty());
  EXPECT_THAT(report.blocks.at(1).notes, IsEmpty());
}

TEST(CheckAgentFileTest, FileWithoutAnAgentIsNotGood) {
  for (const char* text : {"", "<html></html>", kBooks}) {
    const FileReport report = CheckAgentFile(text);
    EXPECT_EQ(report.result, 0);
    EXPECT_FALSE(report.IsGood());
  }
}

TEST(CheckAgentFileTest, ZeroByteEndsTheFile) {
  const FileReport report = CheckAgentFile(Good() + "\0<AgentType></AgentType>"s);
  EXPECT_TRUE(report.IsGood());
  EXPECT_THAT(report.blocks, SizeIs(2));
  EXPECT_THAT(report.notes,
              ElementsAre(HasSubstr("zero byte at byte " + std::to_string(Good().size()))));
}

// What the report says of each block is what the loader does, wherever the file is cut.
TEST(CheckAgentFileTest, AgreesWithTheLoaderOnAFileCutAnywhere) {
  const std::string whole = Good() + kBooks + ShopWith("SiteId", "5");
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const std::string text = whole.substr(0, length);
    const FileReport report = CheckAgentFile(text);
    AgentConfiguration configuration;
    EXPECT_EQ(report.result, ReadAgentConfiguration(text, configuration));
    std::size_t categories = 0;
    std::size_t agents = 0;
    for (const BlockReport& block : report.blocks) {
      if (block.taken) ++(block.kind == BlockKind::kCategory ? categories : agents);
      EXPECT_EQ(block.taken, block.closed && RequiredOnesMissing(block).empty()) << length;
    }
    EXPECT_EQ(categories, configuration.categories.size()) << length;
    EXPECT_EQ(agents, configuration.agents.size()) << length;
  }
}

}  // namespace
}  // namespace brovanta::agent_tool

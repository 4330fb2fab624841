#include "search/agent_blocks.h"

#include <gtest/gtest.h>

#include <string>

#include "search/agent_fields.h"

namespace brovanta {
namespace {

constexpr char kCategory[] = "<AgentType><TypeId>1</TypeId><TypeName>Books</TypeName></AgentType>";

TEST(AgentBlocksTest, GivesTheBlocksOfOneKindWithTheirPlaces) {
  AgentBlocks blocks("..<a>1</a><b>2</b>\n<a>3</a>", "a");
  auto block = blocks.Next();
  ASSERT_TRUE(block);
  EXPECT_EQ(block->start, 2U);
  EXPECT_EQ(block->text, "<a>1</a>");
  block = blocks.Next();
  ASSERT_TRUE(block);
  EXPECT_EQ(block->start, 19U);
  EXPECT_EQ(block->text, "<a>3</a>");
  EXPECT_FALSE(blocks.Next());
  EXPECT_EQ(blocks.unclosed(), std::nullopt);
}

TEST(AgentBlocksTest, BlockRunsToTheFirstClosingTagEvenOverAnotherOpeningOne) {
  AgentBlocks blocks("<a>1<a>2</a>3</a>", "a");
  const auto block = blocks.Next();
  ASSERT_TRUE(block);
  EXPECT_EQ(block->text, "<a>1<a>2</a>");
  EXPECT_FALSE(blocks.Next());
}

TEST(AgentBlocksTest, TellsOfABlockThatIsNeverClosed) {
  AgentBlocks blocks("</a><a>1</a> <a>2", "a");
  EXPECT_TRUE(blocks.Next());
  EXPECT_EQ(blocks.unclosed(), std::nullopt);
  EXPECT_FALSE(blocks.Next());
  EXPECT_EQ(blocks.unclosed(), 13U);
}

TEST(AgentBlocksTest, FieldsAreWhatStandsBetweenTheirTags) {
  const AgentBlock block{0, "<x> A\n</x><y></y></z><z>1<n> 12a</n><m>a</m>"};
  EXPECT_EQ(BlockText(block, "x"), " A\n");
  EXPECT_EQ(BlockText(block, "y"), "");
  EXPECT_EQ(BlockText(block, "z"), std::nullopt);
  EXPECT_EQ(BlockText(block, "X"), std::nullopt);
  EXPECT_EQ(BlockNumber(block, "n"), 12);
  EXPECT_EQ(BlockNumber(block, "m"), 0);
  EXPECT_EQ(BlockNumber(block, "z"), 0);
}

TEST(AgentBlocksTest, CategoryNeedsItsNumberAndItsName) {
  const auto category = CategoryOf({0, kCategory});
  ASSERT_TRUE(category);
  EXPECT_EQ(category->TypeId, 1);
  EXPECT_EQ(category->TypeName, "Books");
  EXPECT_FALSE(CategoryOf({0, "<AgentType><TypeName>Books</TypeName></AgentType>"}));
  EXPECT_FALSE(CategoryOf({0, "<AgentType><TypeId>1</TypeId></AgentType>"}));
  EXPECT_FALSE(CategoryOf({0, "<TypeId>0</TypeId><TypeName>Books</TypeName>"}));
}

TEST(AgentBlocksTest, AgentIsReadWhetherCompleteOrNot) {
  EXPECT_FALSE(AgentOfBlock({0, ""}).IsComplete());
  std::string text = "<SiteId>3</SiteId>";
  for (const AgentField& field : kAgentFields) {
    const std::string name = field.name;
    text += "<" + name + ">" + name + "</" + name + ">";
  }
  const WebAgent agent = AgentOfBlock({0, text});
  EXPECT_TRUE(agent.IsComplete());
  EXPECT_EQ(agent.SiteId, 3);
  for (const AgentField& field : kAgentFields) EXPECT_EQ(agent.*field.text, field.name);
}

}  // namespace
}  // namespace brovanta

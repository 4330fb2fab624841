#include "agent/search_words.h"

#include <gtest/gtest.h>

namespace brovanta::agent_tool {
namespace {

TEST(SearchWordsOfTest, AreWindows1252AsInTheProgram) {
  EXPECT_EQ(SearchWordsOf("red shoes"), "red shoes");
  EXPECT_EQ(SearchWordsOf("caf\xC3\xA9"), "caf\xE9");
  EXPECT_EQ(SearchWordsOf("\xE6\x9C\xAC"), "?");
  EXPECT_EQ(SearchWordsOf("caf\xE9"), "caf\xE9");
}

}  // namespace
}  // namespace brovanta::agent_tool

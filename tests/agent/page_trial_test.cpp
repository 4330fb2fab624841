#include "agent/page_trial.h"

#include <gmock/gmock.h>

#include "tests/search/agents.h"

namespace brovanta::agent_tool {
namespace {

using test::Block;
using test::PlainAgent;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using State = Sighting::State;

Sighting SightingIn(const TriedBlock& block, const std::string& marker) {
  for (const Sighting& sighting : block.markers) {
    if (sighting.marker == marker) return sighting;
  }
  ADD_FAILURE() << marker;
  return {};
}

TEST(TryAgentTest, TellsWhereEachMarkerWasFound) {
  //                    0         1         2         3         4         5
  //                    0123456789012345678901234567890123456789012345678901
  const Trial trial = TryAgent("..<i><t>Hat</t><u>/1</u><p>$5</p></i>", PlainAgent(), "hat");
  EXPECT_EQ(trial.header.state, State::kNotDefined);
  ASSERT_THAT(trial.blocks, SizeIs(1));
  const TriedBlock& block = trial.blocks[0];
  EXPECT_EQ(block.start, 2U);
  EXPECT_EQ(block.length, 35U);
  EXPECT_EQ(SightingIn(block, "StartResult").match, (MarkerMatch{2, 3}));
  EXPECT_EQ(SightingIn(block, "EndResult").match, (MarkerMatch{33, 4}));
  EXPECT_EQ(SightingIn(block, "StartItem").match, (MarkerMatch{5, 3}));
  EXPECT_EQ(SightingIn(block, "EndItem").match, (MarkerMatch{11, 4}));
  EXPECT_EQ(SightingIn(block, "StartURL").match, (MarkerMatch{15, 3}));
  EXPECT_EQ(SightingIn(block, "EndURL").match, (MarkerMatch{20, 4}));
  EXPECT_EQ(SightingIn(block, "StartPrice").match, (MarkerMatch{24, 3}));
  EXPECT_EQ(SightingIn(block, "EndPrice").match, (MarkerMatch{29, 4}));
  EXPECT_EQ(SightingIn(block, "StartText").state, State::kNotFound);
  EXPECT_EQ(SightingIn(block, "EndText").state, State::kNotLookedFor);
  ASSERT_TRUE(block.item);
  EXPECT_EQ(*block.item,
            (SearchResultItem{0, "Hat", std::nullopt, "http://shop.example/1", "Shop 1", 5.0, 0}));
  EXPECT_THAT(block.reasons, IsEmpty());
}

TEST(TryAgentTest, ListsTheMarkersInTheOrderOfTheAgentFile) {
  const Trial trial = TryAgent(Block("A", "/a", "1"), PlainAgent(), "a");
  std::vector<std::string> names;
  for (const Sighting& sighting : trial.blocks.at(0).markers) names.emplace_back(sighting.marker);
  EXPECT_THAT(
      names, ElementsAre("StartResult", "EndResult", "StartItem", "EndItem", "StartText", "EndText",
                         "StartURL", "EndURL", "StartPrice", "EndPrice", "StartPromo", "EndPromo"));
}

TEST(TryAgentTest, TellsOfMarkersThatAreNotDefined) {
  WebAgent agent = PlainAgent();
  agent.EndText.reset();
  agent.StartPromo.reset();
  agent.EndPromo.reset();
  const Trial trial = TryAgent("<i><t>A</t><x>b</x><u>/1</u></i>", agent, "a");
  const TriedBlock& block = trial.blocks.at(0);
  EXPECT_EQ(SightingIn(block, "StartText").state, State::kNotLookedFor);
  EXPECT_EQ(SightingIn(block, "EndText").state, State::kNotDefined);
  EXPECT_EQ(SightingIn(block, "StartPromo").state, State::kNotDefined);
}

TEST(TryAgentTest, TellsWhereTheHeaderEnds) {
  WebAgent agent = PlainAgent();
  agent.EndHeader = "<hr>";
  const Trial trial = TryAgent("abc<hr>" + Block("A", "/a", "1"), agent, "a");
  EXPECT_EQ(trial.header.state, State::kFound);
  EXPECT_EQ(trial.header.match, (MarkerMatch{3, 4}));
  EXPECT_EQ(trial.items, 1U);
}

TEST(TryAgentTest, TellsWhichItemsAreDroppedAndWhy) {
  const std::string page = Block("Red Shoe", "/1", "2") + Block("Hat", "/2", "2") +
                           Block("Shoe", "/3", "0") + Block("Hat", "/4", "ask");
  const Trial trial = TryAgent(page, PlainAgent(), "shoe");
  EXPECT_EQ(trial.items, 4U);
  EXPECT_EQ(trial.kept, 1U);
  EXPECT_THAT(trial.blocks.at(0).reasons, IsEmpty());
  EXPECT_THAT(trial.blocks.at(1).reasons, ElementsAre(DropReason::kNoWord));
  EXPECT_THAT(trial.blocks.at(2).reasons, ElementsAre(DropReason::kNoPrice));
  EXPECT_THAT(trial.blocks.at(3).reasons, ElementsAre(DropReason::kNoWord, DropReason::kNoPrice));
}

TEST(TryAgentTest, WithoutWordsThePriceAloneDecides) {
  const Trial trial =
      TryAgent(Block("A", "/1", "2") + Block("B", "/2", "0"), PlainAgent(), std::nullopt);
  EXPECT_THAT(trial.blocks.at(0).reasons, IsEmpty());
  EXPECT_THAT(trial.blocks.at(1).reasons, ElementsAre(DropReason::kNoPrice));
}

TEST(TryAgentTest, WordsOfBlanksKeepNothing) {
  EXPECT_EQ(TryAgent(Block("A", "/1", "2"), PlainAgent(), " ").kept, 0U);
}

// What is kept is what the program's search keeps, on a page cut anywhere.
TEST(TryAgentTest, AgreesWithTheSearchOnAPageCutAnywhere) {
  const std::string whole = "x" + Block("Shoe", "/1", "2") + Block("Hat", "/2", "2") +
                            Block("Shoes", "/3", "0") + Block("SHOE", "/4", "1.5");
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const std::string page = whole.substr(0, length);
    std::vector<SearchResultItem> kept;
    const Trial trial = TryAgent(page, PlainAgent(), "shoe");
    for (const TriedBlock& block : trial.blocks) {
      if (block.item && block.reasons.empty()) kept.push_back(*block.item);
    }
    EXPECT_EQ(kept, ScrapePage(page, PlainAgent(), "shoe")) << length;
    EXPECT_EQ(trial.kept, kept.size());
  }
}

struct End {
  PageEnd why;
  std::string marker;
  bool missing;
  std::size_t from;
  friend bool operator==(const End&, const End&) = default;
};
void PrintTo(const End& end, std::ostream* out) {
  *out << static_cast<int>(end.why) << " " << end.marker << " " << end.missing << " " << end.from;
}

End EndOf(const std::string& page, const WebAgent& agent = PlainAgent()) {
  const Trial trial = TryAgent(page, agent, "a");
  return {trial.end, trial.end_marker, trial.end_marker_missing, trial.end_from};
}

TEST(TryAgentTest, TellsAtWhichBlockMarkerThePageEnded) {
  const std::string block = Block("A", "/a", "2");
  EXPECT_EQ(EndOf("."), (End{PageEnd::kNoStart, "StartResult", true, 0}));
  EXPECT_EQ(EndOf(block + "."), (End{PageEnd::kNoStart, "StartResult", true, block.size()}));
  EXPECT_EQ(EndOf(block + ".<i>"), (End{PageEnd::kNoEnd, "EndResult", true, block.size() + 1}));
  WebAgent agent = PlainAgent();
  agent.EndHeader = "<hr>";
  EXPECT_EQ(EndOf(block, agent), (End{PageEnd::kNoHeader, "EndHeader", true, 0}));
  EXPECT_EQ(EndOf("<hr>.", agent), (End{PageEnd::kNoStart, "StartResult", true, 4}));
  agent = PlainAgent();
  agent.EndResult = "<";
  EXPECT_EQ(EndOf("." + block, agent), (End{PageEnd::kShortBlock, "EndResult", false, 1}));
}

TEST(TryAgentTest, TellsAtWhichFieldMarkerThePageEnded) {
  EXPECT_EQ(EndOf(".<i><u>/1</u></i>"), (End{PageEnd::kNoTitle, "StartItem", true, 1}));
  EXPECT_EQ(EndOf(".<i><t>A<u>/1</u></i>"), (End{PageEnd::kNoTitle, "EndItem", true, 7}));
  EXPECT_EQ(EndOf(".<i><t></t><u>/1</u></i>"), (End{PageEnd::kNoTitle, "EndItem", false, 7}));
  EXPECT_EQ(EndOf(".<i><t>A</t></i>"), (End{PageEnd::kNoUrl, "StartURL", true, 1}));
  EXPECT_EQ(EndOf(".<i><t>A</t><u>/1</i>"), (End{PageEnd::kNoUrl, "EndURL", true, 15}));
  EXPECT_EQ(EndOf(".<i><t>A</t><u></u></i>"), (End{PageEnd::kNoUrl, "EndURL", false, 15}));
}

TEST(TryAgentTest, BlockThatEndedThePageIsListedWithoutAnItem) {
  const Trial trial = TryAgent("<i><u>/1</u></i>", PlainAgent(), "a");
  ASSERT_THAT(trial.blocks, SizeIs(1));
  EXPECT_EQ(trial.blocks[0].item, std::nullopt);
  EXPECT_EQ(trial.items, 0U);
}

}  // namespace
}  // namespace brovanta::agent_tool

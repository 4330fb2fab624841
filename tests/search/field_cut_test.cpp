#include "search/field_cut.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "search/web_agent.h"

namespace brovanta {
namespace {

using Cut = std::optional<std::string_view>;

class FieldCutTest : public testing::Test {
 protected:
  // What the markers cut out of the block.
  Cut CutOf(std::string_view block, std::optional<std::string> start,
            std::optional<std::string> end) {
    WebAgent agent;
    agent.StartItem = std::move(start);
    agent.EndItem = std::move(end);
    FieldCut cut(agent, &WebAgent::StartItem, &WebAgent::EndItem);
    return cut.Cut(block, 0, nullptr);
  }
};

TEST_F(FieldCutTest, FieldStandsBetweenTheMarkers) {
  EXPECT_EQ(CutOf("<b>Soap</b>", "<b>", "</b>"), "Soap");
}

TEST_F(FieldCutTest, WildcardsBelongToTheStartMarker) {
  EXPECT_EQ(CutOf("<a href=\"/p\" class=x>Soap</a>", "<a*>", "<"), "Soap");
  EXPECT_EQ(CutOf("<a>Soap</a>", "<a*>", "<"), "Soap");
}

TEST_F(FieldCutTest, EndMarkerIsLookedForBehindTheStartMarker) {
  EXPECT_EQ(CutOf("</b><b>Soap</b>", "<b>", "</b>"), "Soap");
  EXPECT_EQ(CutOf("\"Soap\"", "\"", "\""), "Soap");
}

TEST_F(FieldCutTest, MissingMarkerGivesNothing) {
  EXPECT_EQ(CutOf("Soap</b>", "<b>", "</b>"), Cut());
  EXPECT_EQ(CutOf("<b>Soap", "<b>", "</b>"), Cut());
  EXPECT_EQ(CutOf("", "<b>", "</b>"), Cut());
}

TEST_F(FieldCutTest, MarkerThatIsNotDefinedGivesNothing) {
  EXPECT_EQ(CutOf("<b>Soap</b>", std::nullopt, "</b>"), Cut());
  EXPECT_EQ(CutOf("<b>Soap</b>", "<b>", std::nullopt), Cut());
}

TEST_F(FieldCutTest, EmptyFieldIsNothing) {
  EXPECT_EQ(CutOf("<b></b><b>Soap</b>", "<b>", "</b>"), Cut());
}

TEST_F(FieldCutTest, EmptyMarkersStandAtTheStart) {
  EXPECT_EQ(CutOf("Soap</b>", "", "<"), "Soap");
  EXPECT_EQ(CutOf("<b>Soap", "<b>", ""), Cut());
}

TEST_F(FieldCutTest, StarAtTheEndTakesOneCharacterOfTheField) {
  EXPECT_EQ(CutOf("<b>Soap</b>", "<b>*", "</b>"), "oap");
  EXPECT_EQ(CutOf("<b>", "<b>*", ""), Cut());
}

TEST_F(FieldCutTest, OneCutServesAllBlocks) {
  WebAgent agent;
  agent.StartItem = "<b*>";
  agent.EndItem = "</b>";
  FieldCut cut(agent, &WebAgent::StartItem, &WebAgent::EndItem);
  EXPECT_EQ(cut.Cut("....<b x>Soap</b>", 0, nullptr), "Soap");
  EXPECT_EQ(cut.Cut("<b>Milk</b>", 0, nullptr), "Milk");
  EXPECT_EQ(cut.Cut("<b", 0, nullptr), Cut());
}

class Recorder : public ScrapeObserver {
 public:
  void OnMarker(AgentText marker, const std::optional<MarkerMatch>& match) override {
    seen.emplace_back(marker == &WebAgent::StartItem ? "start" : "end", match);
  }
  void OnBlock(std::size_t, std::size_t) override {}
  std::vector<std::pair<std::string, std::optional<MarkerMatch>>> seen;
};

TEST_F(FieldCutTest, ObserverHearsOfPlacesInThePage) {
  WebAgent agent;
  agent.StartItem = "<b>";
  agent.EndItem = "</b>";
  FieldCut cut(agent, &WebAgent::StartItem, &WebAgent::EndItem);
  Recorder recorder;
  (void)cut.Cut("<b>Soap</b>", 100, &recorder);
  (void)cut.Cut("<b>Soap", 200, &recorder);
  ASSERT_EQ(recorder.seen.size(), 4U);
  EXPECT_EQ(recorder.seen[0], std::pair(std::string("start"), std::optional(MarkerMatch{100, 3})));
  EXPECT_EQ(recorder.seen[1], std::pair(std::string("end"), std::optional(MarkerMatch{107, 4})));
  EXPECT_EQ(recorder.seen[2], std::pair(std::string("start"), std::optional(MarkerMatch{200, 3})));
  EXPECT_EQ(recorder.seen[3], std::pair(std::string("end"), std::optional<MarkerMatch>()));
}

}  // namespace
}  // namespace brovanta

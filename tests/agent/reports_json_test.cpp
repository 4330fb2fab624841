#include <gmock/gmock.h>

#include "agent/reports.h"
#include "tests/agent/agent_text.h"
#include "tests/search/agents.h"
#include "tests/support/json_reader.h"

namespace brovanta::agent_tool {
namespace {

using test::AgentBlockText;
using test::Block;
using test::kBooks;
using test::PlainAgent;
using test::ReadJson;
using test::ShopFields;
using test::ShopWithout;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Key;
using testing::Not;
using testing::Pair;

using Values = std::map<std::string, std::string>;

Values Read(const std::string& json) {
  const auto values = ReadJson(json);
  EXPECT_TRUE(values) << json;
  return values.value_or(Values());
}

Values Tried(const std::string& stored, const WebAgent& agent = PlainAgent(),
             const std::optional<std::string>& words = "a") {
  const Page page = PageOf(stored);
  return Read(TrialAsJson(TryAgent(page.text, agent, words), {"p\"age", page, agent, words}));
}

TEST(CheckAsJsonTest, HoldsWhatTheCheckFound) {
  const std::string text = kBooks + ShopWithout("EndURL");
  EXPECT_THAT(
      Read(CheckAsJson(CheckAgentFile(text), "a\\b.xml")),
      AllOf(Contains(Pair("file", "a\\b.xml")), Contains(Pair("result", "-14")),
            Contains(Pair("good", "false")), Contains(Pair("categories", "1")),
            Contains(Pair("agents", "0")), Contains(Pair("blocks[0].kind", "category")),
            Contains(Pair("blocks[0].taken", "true")), Contains(Pair("blocks[0].missing", "[]")),
            Contains(Pair("blocks[0].notes[0]", HasSubstr("no agent"))),
            Contains(Pair("blocks[1].kind", "agent")), Contains(Pair("blocks[1].line", "2")),
            Contains(Pair("blocks[1].byte", "68")), Contains(Pair("blocks[1].number", "4")),
            Contains(Pair("blocks[1].name", "Corner Shop")),
            Contains(Pair("blocks[1].closed", "true")),
            Contains(Pair("blocks[1].taken", "false"))));
}

TEST(CheckAsJsonTest, HoldsWhatIsMissing) {
  const Values values = Read(CheckAsJson(CheckAgentFile(ShopWithout("EndURL")), "a"));
  EXPECT_EQ(values.at("blocks[0].missing[0].field"), "EndURL");
  EXPECT_EQ(values.at("blocks[0].missing[0].required"), "true");
  EXPECT_EQ(values.at("blocks[0].missing[0].why"), "there is no <EndURL>");
  EXPECT_EQ(values.at("blocks[0].missing[1].required"), "false");
}

TEST(CheckAsJsonTest, AnyBytesMakeValidJson) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string name(1, static_cast<char>(byte));
    const std::string text = "<AgentType><TypeId>" + name + "</TypeId><TypeName>" + name +
                             "</TypeName></AgentType><WebAgent><SiteName>" + name;
    EXPECT_TRUE(ReadJson(CheckAsJson(CheckAgentFile(text), name))) << byte;
    EXPECT_TRUE(ReadJson(CheckAsJson(CheckAgentFile(text + "\"\\</SiteName></WebAgent>"), name)));
  }
}

TEST(TrialAsJsonTest, HoldsMarkersItemsAndEnd) {
  const Values values = Tried("\n<i><t>A \"b\"</t><u>/1</u><p>$5.5</p></i>");
  EXPECT_THAT(
      values,
      AllOf(Contains(Pair("page.file", "p\"age")), Contains(Pair("page.bytes", "40")),
            Contains(Pair("page.stored_bytes", "40")), Contains(Pair("page.cut", "false")),
            Contains(Pair("page.zero_bytes", "false")), Contains(Pair("agent.number", "1")),
            Contains(Pair("agent.name", "Shop 1")), Contains(Pair("words", "a")),
            Contains(Pair("header.marker", "EndHeader")),
            Contains(Pair("header.state", "not defined")), Contains(Pair("results[0].byte", "1")),
            Contains(Pair("results[0].line", "2")), Contains(Pair("results[0].length", "39")),
            Contains(Pair("results[0].item.title", "A \"b\"")),
            Contains(Pair("results[0].item.text", "null")),
            Contains(Pair("results[0].item.link", "http://shop.example/1")),
            Contains(Pair("results[0].item.price", "5.5")),
            Contains(Pair("results[0].item.kept", "true")),
            Contains(Pair("results[0].item.dropped_for", "[]"))));
  EXPECT_EQ(values.at("results[0].markers[2].marker"), "StartItem");
  EXPECT_EQ(values.at("results[0].markers[2].state"), "found");
  EXPECT_EQ(values.at("results[0].markers[2].byte"), "4");
  EXPECT_EQ(values.at("results[0].markers[2].line"), "2");
  EXPECT_EQ(values.at("results[0].markers[2].length"), "3");
  EXPECT_EQ(values.at("results[0].markers[4].state"), "not found");
  EXPECT_THAT(values, Not(Contains(Key("results[0].markers[4].byte"))));
  EXPECT_EQ(values.at("results[0].markers[5].state"), "not looked for");
  EXPECT_EQ(values.at("items"), "1");
  EXPECT_EQ(values.at("kept"), "1");
}

TEST(TrialAsJsonTest, HoldsWhyItemsAreDroppedAndThePageEnded) {
  Values values = Tried(Block("X", "/1", "0") + "<i><t></t></i>");
  EXPECT_EQ(values.at("results[0].item.dropped_for[0]"), "no word");
  EXPECT_EQ(values.at("results[0].item.dropped_for[1]"), "no price");
  EXPECT_EQ(values.at("results[1].item"), "null");
  EXPECT_EQ(values.at("end.why"), "no title");
  EXPECT_EQ(values.at("end.marker"), "EndItem");
  EXPECT_EQ(values.at("end.marker_found"), "true");
  EXPECT_EQ(values.at("end.byte"), "38");
  EXPECT_EQ(values.at("end.line"), "1");
  values = Tried("", PlainAgent(), std::nullopt);
  EXPECT_EQ(values.at("words"), "null");
  EXPECT_EQ(values.at("results"), "[]");
  EXPECT_EQ(values.at("end.why"), "no further result");
  EXPECT_EQ(values.at("end.marker_found"), "false");
}

TEST(TrialAsJsonTest, EveryEndHasItsName) {
  WebAgent agent = PlainAgent();
  EXPECT_EQ(Tried("<i>").at("end.why"), "no end of the result");
  EXPECT_EQ(Tried("<i><t>A</t></i>").at("end.why"), "no link");
  agent.EndResult = "<";
  EXPECT_EQ(Tried("<i>", agent).at("end.why"), "short result");
  agent.EndHeader = "<hr>";
  EXPECT_EQ(Tried("<i>", agent).at("end.why"), "no header");
  agent.EndResult.reset();
  EXPECT_EQ(Tried("<hr>", agent).at("end.why"), "markers missing");
}

TEST(TrialAsJsonTest, AnyBytesMakeValidJson) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string title(1, static_cast<char>(byte));
    EXPECT_EQ(Tried(Block("A" + title, "/1", "1")).at("items"), byte == 0 ? "0" : "1") << byte;
  }
}

TEST(AddressAsJsonTest, HoldsTheAddressOrNull) {
  WebAgent agent = PlainAgent();
  EXPECT_THAT(Read(AddressAsJson(AddressOf(agent, "a b"), agent, "a b")),
              AllOf(Contains(Pair("agent.number", "1")), Contains(Pair("words", "a b")),
                    Contains(Pair("status", "0")),
                    Contains(Pair("address", "http://shop.example/find?q=a+b")),
                    Contains(Pair("cut", "false")), Contains(Pair("downloadable", "true"))));
  agent.FormatString = "x";
  EXPECT_THAT(Read(AddressAsJson(AddressOf(agent, "a"), agent, "a")),
              AllOf(Contains(Pair("status", "-63")), Contains(Pair("address", "null")),
                    Contains(Pair("downloadable", "false"))));
}

}  // namespace
}  // namespace brovanta::agent_tool

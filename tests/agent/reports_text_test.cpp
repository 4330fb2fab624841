#include <gmock/gmock.h>

#include "agent/reports.h"
#include "tests/agent/agent_text.h"
#include "tests/search/agents.h"

namespace brovanta::agent_tool {
namespace {

using test::AgentBlockText;
using test::Block;
using test::kBooks;
using test::PlainAgent;
using test::ShopFields;
using test::ShopWithout;
using testing::EndsWith;
using testing::HasSubstr;

std::string Checked(const std::string& text) {
  return CheckAsText(CheckAgentFile(text), "agents.xml");
}

std::string Tried(const std::string& stored, const WebAgent& agent = PlainAgent(),
                  const std::optional<std::string>& words = "a") {
  const Page page = PageOf(stored);
  return TrialAsText(TryAgent(page.text, agent, words), {"page.html", page, agent, words});
}

TEST(CheckAsTextTest, ShowsAGoodFile) {
  EXPECT_EQ(Checked(kBooks + AgentBlockText(ShopFields())),
            "agents.xml\n"
            "line 1: category 1 \"Books\": good\n"
            "line 2: agent 4 \"Corner Shop\": good\n"
            "  without EndHeader, StartText, EndText, StartPromo, EndPromo, which may be missing\n"
            "The program takes 1 category and 1 agent (0).\n");
}

TEST(CheckAsTextTest, SaysWhyTheProgramRefusesTheFile) {
  EXPECT_THAT(Checked(kBooks + AgentBlockText(ShopFields()) + "<AgentType></AgentType>"),
              EndsWith("line 3: category: REFUSED\n"
                       "  lacks TypeId: there is no <TypeId>\n"
                       "  lacks TypeName: there is no <TypeName>\n"
                       "The program refuses the file (-14): the last category is refused, which "
                       "keeps out every agent. It reads 1 category and 0 agents.\n"));
  EXPECT_THAT(Checked(kBooks + AgentBlockText(ShopFields()) + ShopWithout("EndURL")),
              EndsWith("The program refuses the file (-14): the last agent is refused. "
                       "It reads 1 category and 1 agent.\n"));
}

TEST(CheckAsTextTest, SaysWhatBecomesOfAFileWithoutAgents) {
  EXPECT_EQ(Checked(""),
            "agents.xml\nThe program reads 0 categories and 0 agents; the update refuses the "
            "file.\n");
}

TEST(CheckAsTextTest, ShowsBlocksThatAreNeverClosedAndNotes) {
  const std::string text = Checked(kBooks + std::string("<WebAgent>"));
  EXPECT_THAT(text, HasSubstr("line 2: agent that is never closed: not seen by the program\n"));
  EXPECT_THAT(text, HasSubstr("  note: no agent of the file serves it"));
  EXPECT_THAT(Checked(std::string("\0", 1)), HasSubstr("\nnote: a zero byte at byte 0"));
}

// A file from elsewhere cannot write to the terminal as it likes.
TEST(CheckAsTextTest, NamesAreQuoted) {
  EXPECT_THAT(Checked("<AgentType><TypeId>1</TypeId><TypeName>\x1B[2J</TypeName></AgentType>"),
              HasSubstr("category 1 \"\\x1B[2J\""));
}

TEST(TrialAsTextTest, ShowsEveryMarkerAndTheItem) {
  EXPECT_EQ(Tried("\n<i><t>A</t><x>b\n</x><u>/1</u><p>$5</p></i>"),
            "agent 1 \"Shop 1\" over page.html, 43 bytes\n"
            "EndHeader: not defined\n"
            "result 1: byte 1, line 2, 42 bytes long\n"
            "  StartResult: byte 1, line 2, 3 bytes long\n"
            "  EndResult: byte 39, line 3, 4 bytes long\n"
            "  StartItem: byte 4, line 2, 3 bytes long\n"
            "  EndItem: byte 8, line 2, 4 bytes long\n"
            "  StartText: byte 12, line 2, 3 bytes long\n"
            "  EndText: byte 17, line 3, 4 bytes long\n"
            "  StartURL: byte 21, line 3, 3 bytes long\n"
            "  EndURL: byte 26, line 3, 4 bytes long\n"
            "  StartPrice: byte 30, line 3, 3 bytes long\n"
            "  EndPrice: byte 35, line 3, 4 bytes long\n"
            "  StartPromo: not found\n"
            "  EndPromo: not looked for\n"
            "  title: \"A\"\n"
            "  text: \"b \"\n"
            "  link: \"http://shop.example/1\"\n"
            "  price: 5.00\n"
            "  kept\n"
            "The page ended at StartResult, which is not found from byte 43, line 3 on.\n"
            "1 item, 1 kept, 0 dropped\n");
}

TEST(TrialAsTextTest, SaysWhyItemsAreDropped) {
  EXPECT_THAT(Tried(Block("X", "/1", "0")),
              HasSubstr("  DROPPED: no search word in the title, no price above 0\n"));
}

TEST(TrialAsTextTest, PriceHasAsManyDecimalsAsItNeeds) {
  EXPECT_THAT(Tried(Block("A", "/1", "1.299,00")), HasSubstr("  price: 1.299"));
  EXPECT_THAT(Tried(Block("A", "/1", "1,299.5")), HasSubstr("  price: 1299.50\n"));
}

TEST(TrialAsTextTest, NotesWhatIsNotAsInASearch) {
  EXPECT_THAT(Tried(std::string(400'000, '.')),
              HasSubstr("note: the page has 400000 bytes, more than the program keeps of one\n"));
  EXPECT_THAT(Tried(std::string("\0", 1)), HasSubstr("note: zero bytes"));
  EXPECT_THAT(Tried("", PlainAgent(), std::nullopt), HasSubstr("note: without --words"));
}

TEST(TrialAsTextTest, SaysAtWhichMarkerThePageEnded) {
  WebAgent agent = PlainAgent();
  agent.EndHeader = "<hr>";
  EXPECT_THAT(Tried("x", agent),
              HasSubstr("The page ended at EndHeader, which is not in the page.\n"));
  EXPECT_THAT(Tried(".<i>"), HasSubstr("ended at EndResult, which is not found behind the "
                                       "StartResult at byte 1, line 1.\n"));
  agent = PlainAgent();
  agent.EndResult = "<";
  EXPECT_THAT(Tried("<i>", agent), HasSubstr("ended at EndResult, which makes result 1 at byte 0, "
                                             "line 1 a block of one byte or none.\n"));
  EXPECT_THAT(Tried("<i><t></t><u>/1</u></i>"),
              HasSubstr("ended at EndItem, in front of which, at byte 6, line 1, stands nothing: "
                        "result 1 has no title, which ends the page.\n"));
  EXPECT_THAT(Tried(Block("A", "/a", "1") + "<i><t>A</t></i>"),
              HasSubstr("ended at StartURL, which is not found from byte 32, line 1 on: "
                        "result 2 has no link, which ends the page.\n"));
}

TEST(AddressAsTextTest, IsTheAddressOrNothing) {
  EXPECT_EQ(AddressAsText(AddressOf(PlainAgent(), "a b")), "http://shop.example/find?q=a+b\n");
  EXPECT_EQ(AddressAsText(AddressOf(PlainAgent(), "")), "");
}

}  // namespace
}  // namespace brovanta::agent_tool

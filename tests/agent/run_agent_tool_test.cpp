#include "agent/run_agent_tool.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "tests/agent/agent_program.h"
#include "tests/agent/agent_text.h"
#include "tests/support/json_reader.h"

namespace brovanta::agent_tool {
namespace {

using test::AgentBlockText;
using test::kBooks;
using test::ProgramEnd;
using test::ReadJson;
using test::ShopFields;
using test::ShopWith;
using test::ShopWithout;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr char kPage[] =
    "<ul>\n<li><a href=\"/1\">Red Shoe</a> $5 </li>\n<li><a href=\"/2\">Hat</a> $7 </li>\n</ul>";

class RunAgentToolTest : public testing::Test {
 protected:
  RunAgentToolTest() {
    Write(kBooks + AgentBlockText(ShopFields()));
    folder_.WriteText("page.html", kPage);
  }
  void Write(const std::string& agents) { folder_.WriteText("agents.xml", agents); }
  [[nodiscard]] ProgramEnd Run(const std::vector<std::string>& arguments) const {
    return test::RunProgram(folder_, arguments);
  }
  [[nodiscard]] ProgramEnd Check() const { return Run({"check", file_}); }
  [[nodiscard]] ProgramEnd Try(const std::string& words, const std::string& site = "4") const {
    return Run({"try", file_, "--site", site, page_, "--words", words});
  }
  [[nodiscard]] ProgramEnd Address(const std::string& words, const std::string& site = "4") const {
    return Run({"address", file_, "--site", site, "--words", words});
  }

  test::TempFolder folder_;
  const std::string file_ = folder_.File("agents.xml");
  const std::string page_ = folder_.File("page.html");
};

TEST_F(RunAgentToolTest, CheckEndsWithZeroForAGoodFile) {
  const ProgramEnd end = Check();
  EXPECT_EQ(end.status, 0);
  EXPECT_THAT(end.output, HasSubstr("agent 4 \"Corner Shop\": good"));
  EXPECT_EQ(end.errors, "");
}

TEST_F(RunAgentToolTest, CheckEndsWithOneForAFileWithAFault) {
  Write(kBooks + ShopWithout("EndURL") + ShopWith("SiteId", "5"));
  const ProgramEnd end = Check();
  EXPECT_EQ(end.status, 1);
  EXPECT_THAT(end.output, AllOf(HasSubstr("line 2: agent 4 \"Corner Shop\": REFUSED\n"),
                                HasSubstr("lacks EndURL: there is no <EndURL>\n")));
}

TEST_F(RunAgentToolTest, TryShowsWhatIsKeptAndWhatIsDropped) {
  const ProgramEnd end = Try("shoe");
  EXPECT_EQ(end.status, 0);
  EXPECT_THAT(end.output,
              AllOf(HasSubstr("title: \"Red Shoe\""), HasSubstr("link: \"http://shop.example/1\""),
                    HasSubstr("price: 5.00\n  kept\n"),
                    HasSubstr("price: 7.00\n  DROPPED: no search word in the title\n"),
                    EndsWith("2 items, 1 kept, 1 dropped\n")));
  EXPECT_EQ(end.errors, "");
}

TEST_F(RunAgentToolTest, TryEndsWithOneWhenNothingIsKept) {
  EXPECT_EQ(Try("coat").status, 1);
  folder_.WriteText("page.html", "");
  EXPECT_EQ(Try("shoe").status, 1);
  EXPECT_EQ(Run({"try", file_, "--site", "4", page_}).status, 1);
}

TEST_F(RunAgentToolTest, AddressPrintsTheAddressAlone) {
  const ProgramEnd end = Address("red caf\xC3\xA9");
  EXPECT_EQ(end.status, 0);
  EXPECT_EQ(end.output, "http://shop.example/find?q=red+caf%ff&n=9\n");
  EXPECT_EQ(end.errors, "");
}

TEST_F(RunAgentToolTest, AddressEndsWithOneWhereTheProgramCouldNotUseIt) {
  Write(kBooks + ShopWith("FormatString", "http://shop.example/KEYWORD"));
  ProgramEnd end = Address("shoe");
  EXPECT_EQ(end.status, 1);
  EXPECT_EQ(end.output, "");
  EXPECT_THAT(end.errors, HasSubstr("(-63)"));
  Write(kBooks + ShopWith("FormatString", "https://shop.example/ KEYWORD "));
  end = Address("shoe");
  EXPECT_EQ(end.status, 1);
  EXPECT_EQ(end.output, "https://shop.example/shoe\n");
  EXPECT_THAT(end.errors, HasSubstr("no http:// address"));
}

TEST_F(RunAgentToolTest, AddressThatIsCutIsNoted) {
  std::string accented;
  for (int i = 0; i < 100; ++i) accented += "\u00E9";  // three bytes each in the address
  const ProgramEnd end = Address(accented);
  EXPECT_EQ(end.status, 0);
  EXPECT_EQ(end.output.size(), 250U);  // 249 bytes and the line feed
  EXPECT_THAT(end.errors, HasSubstr("the address is cut"));
}

TEST_F(RunAgentToolTest, OnlyTheFirst100BytesAreSearchedForAsInTheProgram) {
  Write(kBooks + ShopWith("FormatString", "http://shop.example/ KEYWORD "));
  EXPECT_EQ(Address(std::string(150, 'x')).output,
            "http://shop.example/" + std::string(100, 'x') + "\n");
}

TEST_F(RunAgentToolTest, MissingFilesEndWithThreeAndTheirNames) {
  ProgramEnd end = Run({"check", folder_.File("none.xml")});
  EXPECT_EQ(end.status, 3);
  EXPECT_EQ(end.output, "");
  EXPECT_THAT(end.errors, AllOf(HasSubstr("none.xml"), HasSubstr("No such file")));
  end = Run({"try", file_, "--site", "4", folder_.File("none.html")});
  EXPECT_EQ(end.status, 3);
  EXPECT_THAT(end.errors, HasSubstr("none.html"));
  end = Run({"try", file_, "--site", "4", folder_.path()});
  EXPECT_EQ(end.status, 3);
  EXPECT_THAT(end.errors, HasSubstr("directory"));
}

TEST_F(RunAgentToolTest, UnknownAgentEndsWithThree) {
  const ProgramEnd end = Try("shoe", "9");
  EXPECT_EQ(end.status, 3);
  EXPECT_THAT(end.errors, HasSubstr("there is no agent 9"));
}

TEST_F(RunAgentToolTest, AgentThatTheProgramDoesNotTakeIsNotTried) {
  Write(kBooks + ShopWithout("EndURL") + ShopWith("SiteId", "5"));
  ProgramEnd end = Try("shoe");
  EXPECT_EQ(end.status, 3);
  EXPECT_THAT(end.errors, HasSubstr("does not take the agent 4"));
  Write(kBooks + AgentBlockText(ShopFields()) + "<AgentType></AgentType>");
  end = Address("shoe");
  EXPECT_EQ(end.status, 3);
  EXPECT_THAT(end.errors, HasSubstr("does not take the agent 4"));
}

TEST_F(RunAgentToolTest, NotesThatTheFileIsRefusedOrTheNumberIsNotAlone) {
  Write(kBooks + AgentBlockText(ShopFields()) + ShopWithout("EndURL"));
  ProgramEnd end = Try("shoe");
  EXPECT_EQ(end.status, 0);
  EXPECT_THAT(end.errors, HasSubstr("the program refuses the file"));
  Write(kBooks + AgentBlockText(ShopFields()) + ShopWith("SiteName", "Other"));
  end = Try("shoe");
  EXPECT_THAT(end.errors, HasSubstr("2 agents have the number 4"));
  EXPECT_THAT(end.output, StartsWith("agent 4 \"Corner Shop\""));
}

TEST_F(RunAgentToolTest, PageOverTheLimitIsCutAsInTheProgramAndSaidSo) {
  const std::string item = "<li><a href=\"/2\">Hat</a> $7 </li>";
  std::string page(319'488 - item.size(), '.');
  page += item + item + std::string(2000, '.');
  folder_.WriteText("page.html", page);
  const ProgramEnd end = Try("hat");
  EXPECT_EQ(end.status, 0);
  EXPECT_THAT(end.output, AllOf(HasSubstr("page.html, 319488 bytes\n"),
                                HasSubstr("note: the page has " + std::to_string(page.size()) +
                                          " bytes, more than the program keeps"),
                                EndsWith("1 item, 1 kept, 0 dropped\n")));
}

TEST_F(RunAgentToolTest, NonsenseEndsWithTwo) {
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {}, {"check"}, {"try", file_, page_}, {"address", file_, "--site", "4"}, {"--what"}}) {
    const ProgramEnd end = Run(arguments);
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.output, "");
    EXPECT_THAT(end.errors, HasSubstr("See brovanta-agent --help."));
  }
  EXPECT_THAT(Address("").errors, HasSubstr("at least one word"));
}

TEST_F(RunAgentToolTest, HelpAndVersionGoToStandardOutput) {
  const ProgramEnd help = Run({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, StartsWith("Usage:\n"));
  EXPECT_EQ(Run({"--version"}).output, "brovanta-agent " BROVANTA_VERSION "\n");
}

TEST_F(RunAgentToolTest, JsonIsOneDocumentOnStandardOutput) {
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {"check", file_, "--json"},
           {"try", file_, "--site", "4", page_, "--json"},
           {"try", file_, "--site", "4", page_, "--words", "sh\"oe\\", "--json"},
           {"address", file_, "--site", "4", "--words", "\"\\\n", "--json"}}) {
    const ProgramEnd end = Run(arguments);
    EXPECT_TRUE(ReadJson(end.output)) << end.output;
    EXPECT_THAT(end.output, EndsWith("}\n"));
  }
  EXPECT_EQ(Run({"try", file_, "--site", "9", page_, "--json"}).output, "");
}

TEST_F(RunAgentToolTest, ReportThatCannotBeWrittenIsAFault) {
  const auto write_to_full_disk = [] {
    if (std::freopen("/dev/full", "w", stdout) == nullptr) std::_Exit(99);
    const std::array<std::string_view, 1> arguments = {"--help"};
    std::_Exit(RunAgentTool(arguments, "1"));
  };
  EXPECT_EXIT(write_to_full_disk(), testing::ExitedWithCode(1), "cannot be written");
}

}  // namespace
}  // namespace brovanta::agent_tool

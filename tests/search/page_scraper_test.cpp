#include "search/page_scraper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/search/agents.h"

namespace brovanta {
namespace {

using test::Block;
using test::PlainAgent;
using testing::ElementsAre;
using testing::IsEmpty;
using std::string_literals::operator""s;

std::vector<SearchResultItem> AllItems(std::string_view page, const WebAgent& agent) {
  std::vector<SearchResultItem> items;
  PageScraper scraper(page, agent);
  for (auto item = scraper.FirstItem(); item; item = scraper.NextItem()) items.push_back(*item);
  return items;
}

std::vector<std::string> Titles(std::string_view page, const WebAgent& agent) {
  std::vector<std::string> titles;
  for (const SearchResultItem& item : AllItems(page, agent)) titles.push_back(*item.Title);
  return titles;
}

PageEnd EndOf(std::string_view page, const WebAgent& agent) {
  PageScraper scraper(page, agent);
  for (auto item = scraper.FirstItem(); item; item = scraper.NextItem()) {
  }
  return scraper.end();
}

TEST(PageScraperTest, ItemHasAllFields) {
  const auto items = AllItems(
      "<i><t> Red <b>Shoe</b></t><x>Size&nbsp;9</x><u>/p/12</u><p>$19.95</p></i>", PlainAgent(7));
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0], (SearchResultItem{0, "Red Shoe", "Size 9", "http://shop.example/p/12",
                                        "Shop 7", 19.95, 0}));
}

TEST(PageScraperTest, BlocksComeInTheOrderOfThePage) {
  EXPECT_THAT(Titles("x" + Block("A", "/a", "2") + "y" + Block("B", "/b", "1"), PlainAgent()),
              ElementsAre("A", "B"));
}

TEST(PageScraperTest, AWalkCanBeginAgain) {
  WebAgent agent = PlainAgent();
  agent.EndHeader = "<hr>";
  agent.StartResult = "<*i>";
  const std::string page = "<hr>" + Block("A", "/a", "2") + Block("B", "/b", "1");
  PageScraper scraper(page, agent);
  for (int walk = 0; walk < 2; ++walk) {
    std::vector<std::string> titles;
    for (auto item = scraper.FirstItem(); item; item = scraper.NextItem()) {
      titles.push_back(*item->Title);
    }
    EXPECT_THAT(titles, ElementsAre("A", "B")) << walk;
  }
}

TEST(PageScraperTest, PageWithoutTheHeaderMarkerYieldsNothing) {
  WebAgent agent = PlainAgent();
  agent.EndHeader = "<hr>";
  EXPECT_THAT(Titles(Block("A", "/a", "2"), agent), IsEmpty());
  EXPECT_EQ(EndOf(Block("A", "/a", "2"), agent), PageEnd::kNoHeader);
}

TEST(PageScraperTest, HeaderIsSkippedUpToItsMarker) {
  WebAgent agent = PlainAgent();
  agent.EndHeader = "<hr>";
  EXPECT_THAT(Titles(Block("A", "/a", "2") + "<hr>" + Block("B", "/b", "1"), agent),
              ElementsAre("B"));
}

TEST(PageScraperTest, HeaderMarkerHasNoWildcards) {
  WebAgent agent = PlainAgent();
  agent.EndHeader = "<h*>";
  EXPECT_THAT(Titles("<hr>" + Block("A", "/a", "2"), agent), IsEmpty());
  EXPECT_THAT(Titles("<h*>" + Block("A", "/a", "2"), agent), ElementsAre("A"));
}

// Keeps where the blocks stand.
class BlockRecorder : public ScrapeObserver {
 public:
  void OnMarker(AgentText, const std::optional<MarkerMatch>&) override {}
  void OnBlock(std::size_t start, std::size_t length) override {
    blocks.emplace_back(start, length);
  }
  std::vector<std::pair<std::size_t, std::size_t>> blocks;
};

TEST(PageScraperTest, HeaderMarkerItselfOpensNoBlock) {
  WebAgent agent = PlainAgent();
  agent.EndHeader = agent.StartResult = "<i>";
  const std::string block = Block("A", "/a", "2");
  const std::string page = "<i>head" + block;
  BlockRecorder recorder;
  PageScraper scraper(page, agent, &recorder);
  const auto item = scraper.FirstItem();
  ASSERT_TRUE(item);
  EXPECT_EQ(item->Title, "A");
  EXPECT_THAT(recorder.blocks, ElementsAre(std::pair(std::size_t{7}, block.size())));
  EXPECT_FALSE(scraper.NextItem());
}

TEST(PageScraperTest, AgentWithoutHeaderMarkerStartsAtThePagesBeginning) {
  EXPECT_THAT(Titles(Block("A", "/a", "2"), PlainAgent()), ElementsAre("A"));
  WebAgent agent = PlainAgent();
  agent.EndHeader = "";
  EXPECT_THAT(Titles(Block("A", "/a", "2"), agent), ElementsAre("A"));
}

TEST(PageScraperTest, WildcardOfTheBlockMarkerSwallowsTheAttributes) {
  WebAgent agent = PlainAgent();
  agent.StartResult = "<tr*>";
  agent.EndResult = "</tr>";
  agent.StartItem = ">";
  agent.EndItem = "<u>";
  EXPECT_THAT(Titles("<table><tr class=\"odd\">Soap<u>/1</u></tr><tr>Milk<u>/2</u></tr>", agent),
              ElementsAre("Soap", "Milk"));
}

// The end is looked for from the start of the block's first marker, not from behind it.
TEST(PageScraperTest, MarkersOfABlockMayOverlap) {
  WebAgent agent = PlainAgent();
  agent.StartResult = "<i><t>";
  agent.EndResult = "<t>A</t><u>/a</u>";
  EXPECT_THAT(Titles("<i><t>A</t><u>/a</u><i><t>A</t><u>/a</u>", agent), ElementsAre("A", "A"));
}

TEST(PageScraperTest, EqualMarkersGiveTheMarkerAsBlock) {
  WebAgent agent = PlainAgent();
  agent.StartResult = agent.EndResult = "<t>A</t><u>/a</u>";
  EXPECT_THAT(Titles("<t>A</t><u>/a</u>  <t>A</t><u>/a</u>", agent), ElementsAre("A", "A"));
}

// What the wildcards of EndResult swallow is not part of the block.
TEST(PageScraperTest, BlockEndsByTheEndMarkersWrittenLength) {
  WebAgent agent = PlainAgent();
  agent.EndResult = "<e*>";  // four bytes: "<e c" of "<e class=x>"
  agent.StartItem = "<i>";
  agent.EndItem = "<u>";
  agent.StartURL = "<u>";
  agent.EndURL = "<e c";
  EXPECT_THAT(Titles("<i>A<u>/a<e class=x><i>B<u>/b<e class=x>", agent), ElementsAre("A", "B"));
  agent.EndURL = "<e cl";
  EXPECT_EQ(EndOf("<i>A<u>/a<e class=x>", agent), PageEnd::kNoUrl);
}

TEST(PageScraperTest, BlockDoesNotRunPastThePagesEnd) {
  WebAgent agent = PlainAgent();
  agent.EndResult = "</i*>";  // five bytes as written, four in the page
  EXPECT_THAT(Titles(Block("A", "/a", "2"), agent), ElementsAre("A"));
  EXPECT_THAT(Titles(Block("A", "/a", "2") + Block("B", "/b", "2"), agent), ElementsAre("A"));
}

TEST(PageScraperTest, BlockOfOneByteOrNoneEndsThePage) {
  WebAgent agent = PlainAgent();
  agent.EndResult = "<";
  EXPECT_EQ(EndOf(Block("A", "/a", "2"), agent), PageEnd::kShortBlock);
  agent.EndResult = "";
  EXPECT_EQ(EndOf(Block("A", "/a", "2"), agent), PageEnd::kShortBlock);
}

TEST(PageScraperTest, BlockOfTwoBytesIsOne) {
  WebAgent agent = PlainAgent();
  agent.StartResult = agent.EndResult = "ab";
  agent.StartItem = agent.StartURL = "";
  agent.EndItem = agent.EndURL = "b";
  EXPECT_THAT(Titles("ab", agent), ElementsAre("a"));
}

TEST(PageScraperTest, MissingBlockMarkerEndsThePage) {
  EXPECT_EQ(EndOf(Block("A", "/a", "2"), PlainAgent()), PageEnd::kNoStart);
  EXPECT_EQ(EndOf(Block("A", "/a", "2") + "<i><t>B</t>", PlainAgent()), PageEnd::kNoEnd);
  EXPECT_EQ(EndOf("", PlainAgent()), PageEnd::kNoStart);
}

TEST(PageScraperTest, AgentWithoutBlockMarkerFindsNothing) {
  WebAgent agent = PlainAgent();
  agent.StartResult.reset();
  EXPECT_EQ(EndOf(Block("A", "/1", "2"), agent), PageEnd::kMarkersMissing);
}

TEST(PageScraperTest, BlockWithEmptyTitleEndsThePage) {
  const std::string page = Block("A", "/a", "2") + Block("", "/b", "2") + Block("C", "/c", "2");
  EXPECT_THAT(Titles(page, PlainAgent()), ElementsAre("A"));
  EXPECT_EQ(EndOf(page, PlainAgent()), PageEnd::kNoTitle);
}

TEST(PageScraperTest, BlockWithoutLinkEndsThePage) {
  const std::string page = Block("A", "/a", "2") + "<i><t>B</t></i>" + Block("C", "/c", "2");
  EXPECT_THAT(Titles(page, PlainAgent()), ElementsAre("A"));
  EXPECT_EQ(EndOf(page, PlainAgent()), PageEnd::kNoUrl);
}

TEST(PageScraperTest, AfterTheEndNothingComes) {
  const std::string page = "<i></i>" + Block("A", "/a", "2");
  const WebAgent agent = PlainAgent();
  PageScraper scraper(page, agent);
  EXPECT_EQ(scraper.FirstItem(), std::nullopt);
  EXPECT_EQ(scraper.NextItem(), std::nullopt);
}

// The cut is what counts: a title of tags only is there, and empty when it is cleaned.
TEST(PageScraperTest, TitleThatIsEmptyOnceCleanedIsATitle) {
  EXPECT_THAT(Titles(Block("<b></b>", "/a", "2"), PlainAgent()), ElementsAre(""));
}

TEST(PageScraperTest, DescriptionMayBeMissing) {
  const auto items = AllItems(Block("A", "/a", "2"), PlainAgent());
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0].Text, std::nullopt);
  WebAgent agent = PlainAgent();
  agent.EndText.reset();
  EXPECT_EQ(AllItems("<i><t>A</t><x>a</x><u>/a</u></i>", agent)[0].Text, std::nullopt);
}

double PriceIn(const std::string& fields, const WebAgent& agent = PlainAgent()) {
  const auto items = AllItems("<i><t>A</t><u>/a</u>" + fields + "</i>", agent);
  return items.size() == 1 ? items[0].Price : -1.0;
}

TEST(PageScraperTest, PromotionWinsOverThePrice) {
  EXPECT_EQ(PriceIn("<p>19.95</p><o>14.95</o>"), 14.95);
  EXPECT_EQ(PriceIn("<o>24.95</o><p>19.95</p>"), 24.95);
}

TEST(PageScraperTest, PromotionOfNothingGivesWayToThePrice) {
  EXPECT_EQ(PriceIn("<p>19.95</p><o>0.00</o>"), 19.95);
  EXPECT_EQ(PriceIn("<p>19.95</p><o>now!</o>"), 19.95);
  EXPECT_EQ(PriceIn("<p>19.95</p><o></o>"), 19.95);
}

TEST(PageScraperTest, PromotionOfLessThanACentWinsAsWell) {
  EXPECT_EQ(PriceIn("<p>19.95</p><o>0.004</o>"), 0.004);
}

TEST(PageScraperTest, ItemWithoutReadablePriceCostsNothing) {
  EXPECT_EQ(PriceIn(""), 0.0);
  EXPECT_EQ(PriceIn("<p>ask us</p>"), 0.0);
}

TEST(PageScraperTest, PriceNeedsBothOfItsMarkers) {
  WebAgent agent = PlainAgent();
  agent.EndPromo.reset();
  EXPECT_EQ(PriceIn("<p>19.95</p><o>14.95</o>", agent), 19.95);
  agent.StartPrice.reset();
  EXPECT_EQ(PriceIn("<p>19.95</p><o>14.95</o>", agent), 0.0);
}

TEST(PageScraperTest, LinksAreCleanedAndCompleted) {
  const auto link = [](const std::string& cut) {
    return *AllItems(Block("A", cut, "1"), PlainAgent()).at(0).Url;
  };
  EXPECT_EQ(link("/p/12"), "http://shop.example/p/12");
  EXPECT_EQ(link(" www.a.example/?x=1&amp;y=2"), "http://www.a.example/?x=1&y=2");
  EXPECT_EQ(link("https://a.example"), "http://shop.examplehttps://a.example");
}

TEST(PageScraperTest, PageEndsAtItsFirstZero) {
  EXPECT_THAT(Titles(Block("A", "/a", "2") + "\0"s + Block("B", "/b", "2"), PlainAgent()),
              ElementsAre("A"));
  EXPECT_THAT(Titles("\0"s + Block("B", "/b", "2"), PlainAgent()), IsEmpty());
}

TEST(PageScraperTest, PageCutAnywhereGivesTheWholeBlocksInFrontOfTheCut) {
  const std::string block = Block("Soap", "/s", "2.50");
  const std::string page = block + block + block;
  for (std::size_t length = 0; length <= page.size(); ++length) {
    // On the heap and no longer than that, so that a look beyond it is noticed.
    const std::vector<char> cut(page.begin(), page.begin() + static_cast<std::ptrdiff_t>(length));
    EXPECT_EQ(AllItems({cut.data(), cut.size()}, PlainAgent()).size(), length / block.size());
  }
}

TEST(PageScraperTest, PagesOfMarkersOnlyAndOddMarkersEnd) {
  const std::string markers = "<i><t></t><u></u><p></p></i>*?*?<i*>";
  std::string page;
  for (int i = 0; i < 50; ++i) page += markers.substr(static_cast<std::size_t>(i) % 20);
  for (const char* start : {"", "*", "?", "**", "*?", "<*", "*<i", "<i>*", "???", "?*?"}) {
    for (const char* end : {"", "*", "?", "**", "*?", ">*", "*</i>", "</?>", "*>"}) {
      WebAgent agent = PlainAgent();
      agent.StartResult = agent.StartItem = agent.StartURL = start;
      agent.EndResult = agent.EndItem = agent.EndURL = end;
      // A block is two bytes at least, so that there are no more items than that.
      EXPECT_LE(AllItems(page, agent).size(), page.size() / 2) << start << " " << end;
    }
  }
}

// An item for every two bytes of the page, behind a start marker that is half as long as the page,
// and an end marker whose wildcard reaches to the page's end from each of them.
TEST(PageScraperTest, PagesMadeToBeSlowAreNot) {
  std::string page;
  while (page.size() < 100'000) page += "<a";
  page += "z";
  WebAgent agent = PlainAgent();
  agent.StartItem = agent.StartURL = "";
  agent.EndItem = agent.EndURL = "a";
  agent.StartResult = page.substr(0, page.size() / 2 / 2 * 2);
  agent.EndResult = "<a";
  EXPECT_GT(AllItems(page, agent).size(), 24'000U);
  agent.StartResult = "<";
  agent.EndResult = "<*z";
  agent.EndItem = agent.EndURL = "<a<";
  agent.StartItem = agent.StartURL = "";
  agent.EndItem = agent.EndURL = "a";
  EXPECT_GT(AllItems(page, agent).size(), 24'000U);
}

// Markers with so many "*" that looking at each of them for every block would take minutes.
TEST(PageScraperTest, AgentsMadeToBeSlowAreNot) {
  std::string page;
  while (page.size() < 319'000) page += "<i>a</i>";
  std::string letters;
  while (letters.size() < 320'000) letters += "*a";
  for (const std::string& huge : {std::string(160'000, '*'), letters}) {
    WebAgent agent = PlainAgent();
    agent.StartItem = agent.StartURL = "<i>";
    agent.EndItem = agent.EndURL = "</i>";
    agent.StartText = agent.EndText = agent.StartPrice = agent.EndPrice = huge;
    agent.StartPromo = agent.EndPromo = huge;
    EXPECT_EQ(AllItems(page, agent).size(), page.size() / 8);
    agent.StartResult = huge;
    agent.EndResult = huge + "x";
    EXPECT_EQ(EndOf(page, agent), PageEnd::kNoStart);
  }
}

// Sets the flag at the nth search for a marker.
class Stopper : public ScrapeObserver {
 public:
  explicit Stopper(int nth) : left_(nth) {}
  void OnMarker(AgentText, const std::optional<MarkerMatch>&) override {
    if (--left_ == 0) flag = 1;
  }
  void OnBlock(std::size_t, std::size_t) override {}
  std::atomic<std::int32_t> flag{0};

 private:
  int left_;
};

const std::string kThreeBlocks =
    Block("A", "/1", "2") + Block("B", "/2", "2") + Block("C", "/3", "2");

TEST(PageScraperTest, SetFlagEndsThePageWithinAnyBlock) {
  for (int nth = 1; nth <= 30; ++nth) {
    Stopper stopper(nth);
    const WebAgent agent = PlainAgent();
    PageScraper scraper(kThreeBlocks, agent, &stopper, &stopper.flag);
    std::size_t items = 0;
    for (auto item = scraper.FirstItem(); item; item = scraper.NextItem()) ++items;
    EXPECT_LT(items, 3U) << nth;
    EXPECT_EQ(stopper.flag, 1) << nth;
    EXPECT_EQ(scraper.end(), PageEnd::kNotYet) << nth;
    EXPECT_FALSE(scraper.NextItem()) << nth;
  }
}

TEST(PageScraperTest, FlagThatIsSetBehindTheLastSearchChangesNothing) {
  Stopper stopper(31);  // ten for each block, and one that finds no further block
  const WebAgent agent = PlainAgent();
  PageScraper scraper(kThreeBlocks, agent, &stopper, &stopper.flag);
  std::size_t items = 0;
  for (auto item = scraper.FirstItem(); item; item = scraper.NextItem()) ++items;
  EXPECT_EQ(stopper.flag, 1);
  EXPECT_EQ(items, 3U);
  EXPECT_EQ(scraper.end(), PageEnd::kNoStart);
}

}  // namespace
}  // namespace brovanta

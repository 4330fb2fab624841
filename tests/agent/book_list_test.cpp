// A page of a shop as it really is, if it lies beside the project: what an agent finds there was
// read off the page by eye.
#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "agent/input.h"
#include "agent/page_trial.h"
#include "search/agent_configuration.h"
#include "tests/agent/agent_program.h"

namespace brovanta::agent_tool {
namespace {

constexpr char kAgents[] = BROVANTA_SOURCE_FOLDER "/tests/data/book_list_agents.xml";
constexpr char kPage[] = BROVANTA_SOURCE_FOLDER "/../shared/pages/book_list.html";

struct Book {
  std::string title;
  std::string link;
  double price;
  friend bool operator==(const Book&, const Book&) = default;
};
void PrintTo(const Book& book, std::ostream* out) {
  *out << book.title << " " << book.link << " " << book.price;
}

Book Read(const std::string& title, const std::string& folder, double price) {
  return {title, "http://books.example/catalogue/" + folder + "/index.html", price};
}

// "&#39;" stays as it stands in the page: the program decodes no such entity.
std::vector<Book> BooksOfThePage() {
  return {
      Read("A Light in the Attic", "a-light-in-the-attic_1000", 51.77),
      Read("Tipping the Velvet", "tipping-the-velvet_999", 53.74),
      Read("Soumission", "soumission_998", 50.10),
      Read("Sharp Objects", "sharp-objects_997", 47.82),
      Read("Sapiens: A Brief History of Humankind", "sapiens-a-brief-history-of-humankind_996",
           54.23),
      Read("The Requiem Red", "the-requiem-red_995", 22.65),
      Read("The Dirty Little Secrets of Getting Your Dream Job",
           "the-dirty-little-secrets-of-getting-your-dream-job_994", 33.34),
      Read(
          "The Coming Woman: A Novel Based on the Life of the Infamous Feminist, Victoria Woodhull",
          "the-coming-woman-a-novel-based-on-the-life-of-the-infamous-feminist-victoria-"
          "woodhull_993",
          17.93),
      Read("The Boys in the Boat: Nine Americans and Their Epic Quest for Gold at the 1936 Berlin "
           "Olympics",
           "the-boys-in-the-boat-nine-americans-and-their-epic-quest-for-gold-at-the-1936-berlin-"
           "olympics_992",
           22.60),
      Read("The Black Maria", "the-black-maria_991", 52.15),
      Read("Starving Hearts (Triangular Trade Trilogy, #1)",
           "starving-hearts-triangular-trade-trilogy-1_990", 13.99),
      Read("Shakespeare&#39;s Sonnets", "shakespeares-sonnets_989", 20.66),
      Read("Set Me Free", "set-me-free_988", 17.46),
      Read("Scott Pilgrim&#39;s Precious Little Life (Scott Pilgrim #1)",
           "scott-pilgrims-precious-little-life-scott-pilgrim-1_987", 52.29),
      Read("Rip it Up and Start Again", "rip-it-up-and-start-again_986", 35.02),
      Read("Our Band Could Be Your Life: Scenes from the American Indie Underground, 1981-1991",
           "our-band-could-be-your-life-scenes-from-the-american-indie-underground-1981-1991_985",
           57.25),
      Read("Olio", "olio_984", 23.88),
      Read("Mesaerion: The Best Science Fiction Stories 1800-1849",
           "mesaerion-the-best-science-fiction-stories-1800-1849_983", 37.59),
      Read("Libertarianism for Beginners", "libertarianism-for-beginners_982", 51.33),
      Read("It&#39;s Only the Himalayas", "its-only-the-himalayas_981", 45.17),
  };
}

class BookListTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(kPage)) GTEST_SKIP() << "the page is not there: " << kPage;
  }
};

TEST_F(BookListTest, AgentFindsEveryBookWithTitleLinkAndPrice) {
  std::string error;
  const auto agents = ReadInput(kAgents, error);
  const auto stored = ReadInput(kPage, error);
  ASSERT_TRUE(agents && stored) << error;
  AgentConfiguration configuration;
  ASSERT_EQ(ReadAgentConfiguration(*agents, configuration), 0);
  ASSERT_EQ(configuration.agents.size(), 1U);
  const Page page = PageOf(*stored);
  std::vector<Book> books;
  const Trial trial = TryAgent(page.text, *configuration.agents[0], std::nullopt);
  for (const TriedBlock& block : trial.blocks) {
    ASSERT_TRUE(block.item);
    books.push_back({*block.item->Title, *block.item->Url, block.item->Price});
  }
  EXPECT_THAT(books, testing::ElementsAreArray(BooksOfThePage()));
  EXPECT_EQ(trial.end, PageEnd::kNoStart);
  EXPECT_EQ(trial.kept, 20U);
}

// Titles with "sharp", "red" or "free" in them, wherever: three of the twenty.
TEST_F(BookListTest, ProgramKeepsTheBooksOfASearch) {
  const test::TempFolder folder;
  const test::ProgramEnd end =
      test::RunProgram(folder, {"try", kAgents, "--site", "1", kPage, "--words", "sharp red FREE"});
  EXPECT_EQ(end.status, 0) << end.errors;
  EXPECT_THAT(end.output, testing::EndsWith("20 items, 3 kept, 17 dropped\n"));
}

}  // namespace
}  // namespace brovanta::agent_tool

#include "search/saved_searches.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "db/journal_format.h"
#include "platform/file.h"
#include "tests/search/raw_searches.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_limit.h"
#include "tests/support/zone_guard.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Hex;
using test::Join;
using test::Little;
using test::Padded;
using test::Raw;
using test::RawEntry;
using test::RawIndex;
using test::RawResult;
using test::RawResults;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kAfternoon = 1112801400;  // 2005-04-06 15:30:00
constexpr DateStamp kToday = 1112749200;         // 2005-04-06 01:00:00
constexpr DateStamp kDay = 86400;

SearchResultItem Item(const char* title, double price) {
  return {9, title, std::nullopt, title, title, price, 0};
}

class SavedSearchesTest : public testing::Test {
 protected:
  SavedSearchesTest() { saved_.SetPaths(Path("websearch.dat"), Path("WebSearch")); }

  [[nodiscard]] std::string Path(const std::string& name) const {
    return folder_.path() + "\\" + name;
  }
  void WriteIndex(const Bytes& bytes) const { folder_.Write("websearch.dat", bytes); }
  [[nodiscard]] std::optional<Bytes> Index() const { return folder_.Read("websearch.dat"); }
  [[nodiscard]] std::vector<std::int32_t> Numbers() const {
    std::vector<std::int32_t> numbers;
    for (const SavedSearch& search : saved_.searches()) numbers.push_back(search.Number);
    return numbers;
  }
  [[nodiscard]] int LoadAll() { return saved_.LoadSavedSearches({}); }

  const test::ZoneGuard zone_{"UTC"};
  const test::FixedClock clock_{kAfternoon};
  const test::TempFolder folder_;
  SavedSearches saved_;
};

using SaveSearchTest = SavedSearchesTest;
using LoadSavedSearchesTest = SavedSearchesTest;
using DeleteSavedSearchTest = SavedSearchesTest;

TEST_F(SaveSearchTest, FirstSearchMakesTheIndexAndGetsNumberTwo) {
  EXPECT_EQ(saved_.SaveSearch(3, "red shoes", nullptr), 2);
  EXPECT_EQ(Index(),
            Join({Hex("81 38 01 00"), Hex("02 00 00 00"), Hex("82 38 01 00"), Hex("00 00 00 00"),
                  Hex("02 00 00 00"), Hex("03 00 00 00"), Hex("90 34 53 42"),
                  Padded("red shoes", 50), Hex("00 00"), Hex("83 38 01 00")}));
}

TEST_F(SaveSearchTest, NextSearchGetsTheNextNumber) {
  EXPECT_EQ(saved_.SaveSearch(1, "a", nullptr), 2);
  EXPECT_EQ(saved_.SaveSearch(2, "b", nullptr), 3);
  EXPECT_EQ(Index(), RawIndex(3, {{2, 1, kToday, "a"}, {3, 2, kToday, "b"}}));
}

TEST_F(SaveSearchTest, NumbersOfDeletedSearchesAreNotUsedAgain) {
  WriteIndex(RawIndex(9, {{9, 1, kToday, "a", 1}}));
  EXPECT_EQ(saved_.SaveSearch(1, "b", nullptr), 10);
}

TEST_F(SaveSearchTest, WordsAreCutTo49Bytes) {
  const std::string words(60, 'w');
  ASSERT_EQ(saved_.SaveSearch(1, words, nullptr), 2);
  EXPECT_EQ(Index(), RawIndex(2, {{2, 1, kToday, std::string(49, 'w')}}));
  EXPECT_EQ(saved_.searches().at(0).Words, std::string(49, 'w'));
}

TEST_F(SaveSearchTest, WordsEndAtAZero) {
  ASSERT_EQ(saved_.SaveSearch(1, std::string("a\0b", 3), nullptr), 2);
  EXPECT_EQ(Index(), RawIndex(2, {{2, 1, kToday, "a"}}));
}

TEST_F(SaveSearchTest, DateIsTodayAtOneInTheMorning) {
  const test::ZoneGuard zone("America/New_York");
  ASSERT_EQ(saved_.SaveSearch(1, "a", nullptr), 2);
  EXPECT_EQ(saved_.searches().at(0).Date, kToday + 4 * 3600);
}

TEST_F(SaveSearchTest, EntryJoinsTheListWhenItPassesTheFilter) {
  WriteIndex(RawIndex(1, {}));
  ASSERT_EQ(saved_.LoadSavedSearches({kToday - 3600, kToday + 3600}), 0);
  ASSERT_EQ(saved_.SaveSearch(3, "a", nullptr), 2);
  EXPECT_THAT(saved_.searches(), ElementsAre(SavedSearch{2, 3, kToday, "a"}));
}

TEST_F(SaveSearchTest, EntryOutsideTheFilterIsWrittenOnly) {
  WriteIndex(RawIndex(1, {}));
  ASSERT_EQ(saved_.LoadSavedSearches({kToday + 1, kNoDate}), 0);
  ASSERT_EQ(saved_.SaveSearch(3, "a", nullptr), 2);
  EXPECT_THAT(saved_.searches(), IsEmpty());
  EXPECT_EQ(Index(), RawIndex(2, {{2, 3, kToday, "a"}}));
}

TEST_F(SaveSearchTest, ResultsAreWrittenByPriceAndNumbered) {
  SearchResultList results;
  results.Append({Item("five", 5), Item("one", 1), Item("cinq", 5)});
  ASSERT_EQ(saved_.SaveSearch(1, "a", &results), 2);
  EXPECT_EQ(folder_.Read("WebSearch/2.dat"),
            RawResults({RawResult(1, 1, "one"), RawResult(2, 5, "five"), RawResult(3, 5, "cinq")}));
  EXPECT_EQ(results.items()[0].Title, "five");  // those given stay as they are
}

TEST_F(SaveSearchTest, NoResultsAreAFileWithoutResults) {
  const SearchResultList none;
  ASSERT_EQ(saved_.SaveSearch(1, "a", &none), 2);
  EXPECT_EQ(folder_.Read("WebSearch/2.dat"), RawResults({}));
}

TEST_F(SaveSearchTest, WithoutResultsThereIsNoFile) {
  ASSERT_EQ(saved_.SaveSearch(1, "a", nullptr), 2);
  EXPECT_EQ(folder_.Read("WebSearch/2.dat"), std::nullopt);
}

TEST_F(SaveSearchTest, ResultsPathIsThatOfTheNumber) {
  EXPECT_EQ(saved_.ResultsPath(7), folder_.path() + "\\WebSearch\\7.dat");
}

// The entry is there before the results are.
TEST_F(SaveSearchTest, FailedResultsLeaveTheEntry) {
  folder_.WriteText("WebSearch", "no folder");
  const SearchResultList none;
  EXPECT_EQ(saved_.SaveSearch(1, "a", &none), ERR_OPEN);
  EXPECT_EQ(Index(), RawIndex(2, {{2, 1, kToday, "a"}}));
  EXPECT_THAT(Numbers(), ElementsAre(2));
}

TEST_F(SaveSearchTest, IndexThatCannotBeMadeIsAnOpenError) {
  saved_.SetPaths(Path("none\\websearch.dat"), Path("WebSearch"));
  EXPECT_EQ(saved_.SaveSearch(1, "a", nullptr), ERR_OPEN);
  EXPECT_THAT(Numbers(), IsEmpty());
}

TEST_F(SaveSearchTest, IndexHeldBySomeoneElseIsAnOpenError) {
  WriteIndex(RawIndex(1, {}));
  platform::File held;
  ASSERT_TRUE(held.Open(Path("websearch.dat"), platform::File::Mode::kRead));
  EXPECT_EQ(saved_.SaveSearch(1, "a", nullptr), ERR_OPEN);
}

TEST_F(SaveSearchTest, WrongMagicIsAnIoError) {
  Bytes index = RawIndex(1, {});
  index[0] = std::byte{0x80};
  WriteIndex(index);
  EXPECT_EQ(saved_.SaveSearch(1, "a", nullptr), ERR_IO);
  EXPECT_EQ(Index(), index);
}

// A new entry behind a stray mark would be out of every load's reach.
TEST_F(SaveSearchTest, NothingIsAddedToAnIndexWithoutEndMark) {
  for (const Bytes& tail : {Hex("84 38 01 00"), Hex("83 38 01 00 00"), Bytes()}) {
    const Bytes index = Join({Hex("81 38 01 00 05 00 00 00 82 38 01 00"), Raw(RawEntry{5}), tail});
    WriteIndex(index);
    EXPECT_EQ(saved_.SaveSearch(1, "a", nullptr), ERR_FORMAT);
    EXPECT_EQ(Index(), index);
  }
}

TEST_F(SaveSearchTest, UsedUpNumbersAreAnIoError) {
  WriteIndex(RawIndex(0x7FFFFFFF, {}));
  EXPECT_EQ(saved_.SaveSearch(1, "a", nullptr), ERR_IO);
  EXPECT_EQ(Index(), RawIndex(0x7FFFFFFF, {}));
}

TEST_F(SaveSearchTest, FullDiskLeavesTheOldIndex) {
  const Bytes index = RawIndex(3, {{2}, {3}});
  WriteIndex(index);
  for (const std::int64_t room : {0, 3, 7, 155, 156, 157, 200, 227}) {
    std::int32_t code = 0;
    {
      const test::WriteLimit full(room);
      code = saved_.SaveSearch(1, "a", nullptr);
    }
    EXPECT_EQ(code, ERR_IO) << room;
    EXPECT_EQ(Index(), index) << room;
  }
  EXPECT_THAT(Numbers(), IsEmpty());
}

TEST_F(LoadSavedSearchesTest, EntriesComeInTheOrderOfTheIndex) {
  WriteIndex(RawIndex(9, {{7, 3, kToday, "red shoes", 0, 0xDEADBEEF}, {2, 1, 99, "soap"}}));
  EXPECT_EQ(LoadAll(), 0);
  EXPECT_THAT(saved_.searches(),
              ElementsAre(SavedSearch{7, 3, kToday, "red shoes"}, SavedSearch{2, 1, 99, "soap"}));
}

TEST_F(LoadSavedSearchesTest, DeletedEntriesAreLeftOut) {
  WriteIndex(RawIndex(4, {{2, 1, 99, "a", 1}, {3, 1, 99, "b"}, {4, 1, 99, "c", 255}}));
  EXPECT_EQ(LoadAll(), 0);
  EXPECT_THAT(Numbers(), ElementsAre(3));
}

TEST_F(LoadSavedSearchesTest, BoundsOfTheFilterAreIncluded) {
  WriteIndex(RawIndex(4, {{2, 1, kToday - kDay}, {3, 1, kToday}, {4, 1, kToday + kDay}}));
  EXPECT_EQ(saved_.LoadSavedSearches({kToday, kToday}), 0);
  EXPECT_THAT(Numbers(), ElementsAre(3));
  EXPECT_EQ(saved_.LoadSavedSearches({kToday - kDay + 1, kToday + kDay}), 0);
  EXPECT_THAT(Numbers(), ElementsAre(3, 4));
}

TEST_F(LoadSavedSearchesTest, BoundThatIsNotSetDoesNotApply) {
  WriteIndex(RawIndex(4, {{2, 1, kToday - kDay}, {3, 1, kToday}, {4, 1, kToday + kDay}}));
  EXPECT_EQ(saved_.LoadSavedSearches({kToday, kNoDate}), 0);
  EXPECT_THAT(Numbers(), ElementsAre(3, 4));
  EXPECT_EQ(saved_.LoadSavedSearches({kNoDate, kToday}), 0);
  EXPECT_THAT(Numbers(), ElementsAre(2, 3));
}

// A search saved on a day is in that day's period, whatever the clock said.
TEST_F(LoadSavedSearchesTest, SearchOfTodayIsInTodaysPeriod) {
  ASSERT_EQ(saved_.SaveSearch(1, "a", nullptr), 2);
  EXPECT_EQ(saved_.LoadSavedSearches({kToday - 3600, kToday - 3600 + kDay - 1}), 0);
  EXPECT_THAT(Numbers(), ElementsAre(2));
}

TEST_F(LoadSavedSearchesTest, MissingIndexIsAnOpenErrorAndEmptiesTheList) {
  ASSERT_EQ(saved_.SaveSearch(1, "a", nullptr), 2);
  saved_.SetPaths(Path("none.dat"), Path("WebSearch"));
  EXPECT_EQ(LoadAll(), ERR_OPEN);
  EXPECT_THAT(Numbers(), IsEmpty());
}

TEST_F(LoadSavedSearchesTest, WrongMagicIsAFormatError) {
  WriteIndex(Hex("82 38 01 00 01 00 00 00 83 38 01 00"));
  EXPECT_EQ(LoadAll(), ERR_FORMAT);
}

TEST_F(LoadSavedSearchesTest, StrayMarkIsAFormatErrorBehindTheEarlierEntries) {
  WriteIndex(
      Join({Hex("81 38 01 00 02 00 00 00 82 38 01 00"), Raw(RawEntry{2}), Hex("84 38 01 00")}));
  EXPECT_EQ(LoadAll(), ERR_FORMAT);
  EXPECT_THAT(Numbers(), ElementsAre(2));
}

TEST_F(LoadSavedSearchesTest, IndexCutAnywhereKeepsTheWholeEntriesInFront) {
  const Bytes whole = RawIndex(3, {{2}, {3}});  // 8, twice 72, 4
  for (std::size_t length = 0; length < whole.size(); ++length) {
    WriteIndex({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
    const std::size_t within = length < 8 ? 0 : (length - 8) % 72;
    EXPECT_EQ(LoadAll(), within >= 4 && length < 152 ? ERR_IO : ERR_FORMAT) << length;
    EXPECT_EQ(Numbers().size(), length < 8 ? 0 : (length - 8) / 72) << length;
  }
}

TEST_F(LoadSavedSearchesTest, IndexChangedAtAnyByteGivesItsCodes) {
  const Bytes whole = RawIndex(3, {{2}, {3}});
  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const int value : {0x00, 0x7F, 0xFF}) {
      Bytes changed = whole;
      changed[place] = static_cast<std::byte>(value);
      WriteIndex(changed);
      const int loaded = LoadAll();
      EXPECT_TRUE(loaded == 0 || loaded == ERR_FORMAT || loaded == ERR_IO) << place;
      EXPECT_LE(Numbers().size(), 2U) << place;
      const std::int32_t deleted = saved_.DeleteSavedSearch(3);
      EXPECT_TRUE(deleted == 3 || deleted == 0 || deleted == ERR_FORMAT) << place;
      EXPECT_TRUE(deleted == 3 || Index() == changed) << place;
    }
  }
}

TEST_F(LoadSavedSearchesTest, WordsWithoutZeroAreAllFiftyBytes) {
  WriteIndex(RawIndex(2, {{2, 1, kToday, std::string(50, 'w')}}));
  EXPECT_EQ(LoadAll(), 0);
  EXPECT_EQ(saved_.searches().at(0).Words, std::string(50, 'w'));
}

TEST_F(DeleteSavedSearchTest, EntryIsMarkedAndLeavesTheList) {
  WriteIndex(RawIndex(3, {{2, 1, kToday, "a", 0, 0xDEADBEEF}, {3}}));
  ASSERT_EQ(LoadAll(), 0);
  EXPECT_EQ(saved_.DeleteSavedSearch(2), 2);
  EXPECT_THAT(Numbers(), ElementsAre(3));
  EXPECT_EQ(Index(), RawIndex(3, {{2, 1, kToday, "a", 1, 0xDEADBEEF}, {3}}));
}

TEST_F(DeleteSavedSearchTest, UnknownNumberChangesNothing) {
  WriteIndex(RawIndex(3, {{2}, {3}}));
  ASSERT_EQ(LoadAll(), 0);
  EXPECT_EQ(saved_.DeleteSavedSearch(4), 0);
  EXPECT_THAT(Numbers(), ElementsAre(2, 3));
  EXPECT_EQ(Index(), RawIndex(3, {{2}, {3}}));
}

TEST_F(DeleteSavedSearchTest, DeletedNumberIsFoundAgain) {
  WriteIndex(RawIndex(2, {{2, 1, kToday, "a", 1}}));
  EXPECT_EQ(saved_.DeleteSavedSearch(2), 2);
  EXPECT_EQ(Index(), RawIndex(2, {{2, 1, kToday, "a", 1}}));
}

TEST_F(DeleteSavedSearchTest, ResultsFileStays) {
  const SearchResultList none;
  ASSERT_EQ(saved_.SaveSearch(1, "a", &none), 2);
  ASSERT_EQ(saved_.DeleteSavedSearch(2), 2);
  EXPECT_EQ(folder_.Read("WebSearch/2.dat"), RawResults({}));
}

TEST_F(DeleteSavedSearchTest, EntryNotInTheListIsDeletedAllTheSame) {
  WriteIndex(RawIndex(2, {{2}}));
  EXPECT_EQ(saved_.DeleteSavedSearch(2), 2);
  EXPECT_EQ(LoadAll(), 0);
  EXPECT_THAT(Numbers(), IsEmpty());
}

TEST_F(DeleteSavedSearchTest, ErrorsInFrontOfTheEntryAreReported) {
  EXPECT_EQ(saved_.DeleteSavedSearch(2), ERR_OPEN);
  WriteIndex(Hex("82 38 01 00 01 00 00 00 83 38 01 00"));
  EXPECT_EQ(saved_.DeleteSavedSearch(2), ERR_FORMAT);
  const Bytes start = Join({Hex("81 38 01 00 02 00 00 00 82 38 01 00"), Raw(RawEntry{2})});
  WriteIndex(Join({start, Hex("84 38 01 00")}));
  EXPECT_EQ(saved_.DeleteSavedSearch(3), ERR_FORMAT);
  WriteIndex(Join({start, Hex("82 38 01 00"), test::Run(67)}));
  EXPECT_EQ(saved_.DeleteSavedSearch(3), ERR_IO);
}

TEST_F(DeleteSavedSearchTest, DamageBehindTheEntryDoesNotMatter) {
  WriteIndex(
      Join({Hex("81 38 01 00 02 00 00 00 82 38 01 00"), Raw(RawEntry{2}), Hex("84 38 01 00")}));
  EXPECT_EQ(saved_.DeleteSavedSearch(2), 2);
}

TEST_F(DeleteSavedSearchTest, FailedWriteLeavesTheEntry) {
  WriteIndex(RawIndex(2, {{2}}));
  ASSERT_EQ(LoadAll(), 0);
  std::int32_t code = 0;
  {
    const test::WriteLimit full(10);
    code = saved_.DeleteSavedSearch(2);
  }
  EXPECT_EQ(code, ERR_IO);
  EXPECT_THAT(Numbers(), ElementsAre(2));
  EXPECT_EQ(Index(), RawIndex(2, {{2}}));
}

TEST_F(SavedSearchesTest, HalfAChangeIsRolledBackBeforeTheIndexIsReadOrSought) {
  const Bytes whole = RawIndex(2, {{}});
  const auto tear = [&] {
    const auto size = static_cast<std::int64_t>(whole.size());
    folder_.Write("backup.dat", EncodeJournal(std::vector<UndoRecord>{
                                    {UndoKind::kOverwritten, "websearch.dat", size, 0, whole}}));
    WriteIndex(Join({test::Run(whole.size(), 0xEE), test::Run(30)}));
  };
  tear();
  EXPECT_EQ(LoadAll(), 0);
  EXPECT_THAT(Numbers(), ElementsAre(2));
  EXPECT_EQ(Index(), whole);
  tear();
  EXPECT_EQ(saved_.DeleteSavedSearch(9), 0);
  EXPECT_EQ(Index(), whole);
  tear();
  platform::File holder;
  ASSERT_TRUE(holder.Open(Path("backup.dat"), platform::File::Mode::kReadWrite));
  EXPECT_EQ(LoadAll(), ERR_OPEN);
  EXPECT_THAT(Numbers(), IsEmpty());
}

}  // namespace
}  // namespace brovanta

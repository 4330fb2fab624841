// A saved search is one unit of work: its entry in the index and its results.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "db/journal.h"
#include "platform/file.h"
#include "search/saved_searches.h"
#include "tests/search/raw_searches.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::RawIndex;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kAfternoon = 1112801400;  // 2005-04-06 15:30:00
constexpr DateStamp kToday = 1112749200;         // 2005-04-06 01:00:00

class SaveSearchUnitTest : public testing::Test {
 protected:
  SaveSearchUnitTest() { saved_.SetPaths(Path("websearch.dat"), Path("WebSearch")); }

  std::string Path(const char* name) const { return folder_.path() + "\\" + name; }
  void WriteIndex(const Bytes& bytes) const { folder_.Write("websearch.dat", bytes); }
  Bytes Index() const { return folder_.Read("websearch.dat").value_or(Bytes()); }
  std::vector<std::int32_t> Numbers() const {
    std::vector<std::int32_t> numbers;
    for (const SavedSearch& search : saved_.searches()) numbers.push_back(search.Number);
    return numbers;
  }

  const test::ZoneGuard zone_{"UTC"};
  const test::FixedClock clock_{kAfternoon};
  test::TempFolder folder_;
  SavedSearches saved_;
};

TEST_F(SaveSearchUnitTest, ResultsHeldBySomeoneElseLeaveTheEntry) {
  WriteIndex(RawIndex(1, {}));
  std::filesystem::create_directory(folder_.File("WebSearch"));
  folder_.WriteText("WebSearch/2.dat", "of someone else");
  platform::File held;
  ASSERT_TRUE(held.Open(Path("WebSearch\\2.dat"), platform::File::Mode::kRead));
  const SearchResultList none;
  EXPECT_EQ(saved_.SaveSearch(1, "a", &none), ERR_OPEN);
  EXPECT_EQ(Index(), RawIndex(2, {{2, 1, kToday, "a"}}));
  EXPECT_EQ(folder_.ReadText("WebSearch/2.dat"), "of someone else");
}

// A disk on which nothing can be written any more.
class FullDisk : public test::FaultyCalls {
 public:
  ssize_t WriteAt(int, const void*, std::size_t, off_t) override {
    errno = ENOSPC;
    return -1;
  }
};

// The results find no folder, and then there is no room for the entry alone either.
TEST_F(SaveSearchUnitTest, WhereNeitherResultsNorEntryCanBeWrittenTheEntrysFailureCounts) {
  const Bytes index = RawIndex(1, {});
  WriteIndex(index);
  folder_.WriteText("WebSearch", "a file where the folder should be");
  ASSERT_EQ(saved_.LoadSavedSearches({}), 0);
  const SearchResultList none;
  {
    FullDisk calls;
    const platform::SystemCallsInUse in_use(calls);
    EXPECT_EQ(saved_.SaveSearch(1, "a", &none), ERR_IO);
  }
  EXPECT_EQ(Index(), index);
  EXPECT_THAT(Numbers(), IsEmpty());
  ASSERT_EQ(saved_.LoadSavedSearches({}), 0);
  EXPECT_THAT(Numbers(), IsEmpty());
}

TEST_F(SaveSearchUnitTest, WhileSomeoneHoldsTheJournalThereIsNeitherEntryNorResults) {
  const Bytes index = RawIndex(1, {});
  WriteIndex(index);
  folder_.Write("backup.dat", EncodeEmptyJournal());
  platform::File held;
  ASSERT_TRUE(held.Open(Path("backup.dat"), platform::File::Mode::kRead));
  const SearchResultList none;
  EXPECT_EQ(saved_.SaveSearch(1, "a", &none), ERR_OPEN);
  EXPECT_EQ(Index(), index);
  EXPECT_FALSE(folder_.Read("WebSearch/2.dat"));
  EXPECT_THAT(Numbers(), IsEmpty());
}

TEST_F(SaveSearchUnitTest, WhereverTheProgramEndsEntryAndResultsAreThereOrNeither) {
  int with_journal = 0;
  for (int k = 1;; ++k) {
    std::filesystem::remove_all(folder_.File("WebSearch"));
    std::filesystem::remove(folder_.File("backup.dat"));
    WriteIndex(RawIndex(1, {}));
    test::FaultyCalls calls(test::Fault::kStop, k);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      const platform::SystemCallsInUse in_use(calls);
      const SearchResultList none;
      (void)saved_.SaveSearch(1, "a", &none);
      _exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    if (MayHoldRecords(Path("backup.dat"))) ++with_journal;
    ASSERT_EQ(saved_.LoadSavedSearches({}), 0) << k;
    EXPECT_EQ(Numbers().size(), folder_.Read("WebSearch/2.dat") ? 1U : 0U) << k;
    if (status != 0) break;
  }
  EXPECT_GE(with_journal, 5);
  EXPECT_THAT(Numbers(), ElementsAre(2));
}

}  // namespace
}  // namespace brovanta

// Saving into a damaged index and deleting from it; saved_searches_test.cpp loads damaged ones.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "search/saved_searches.h"
#include "tests/search/raw_searches.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Little;
using test::RawIndex;

class DamagedIndexTest : public testing::Test {
 protected:
  DamagedIndexTest() {
    saved_.SetPaths(folder_.path() + "\\websearch.dat", folder_.path() + "\\WebSearch");
  }

  void WriteIndex(const Bytes& bytes) const { folder_.Write("websearch.dat", bytes); }
  [[nodiscard]] std::optional<Bytes> Index() const { return folder_.Read("websearch.dat"); }

  // Adds the entry behind whatever else the index holds, or leaves every byte of it as it is.
  void SaveInto(const Bytes& damaged) {
    WriteIndex(damaged);
    const std::int32_t code = saved_.SaveSearch(1, "new", nullptr);
    if (code < 0) {
      EXPECT_TRUE(code == ERR_IO || code == ERR_FORMAT) << code;
      EXPECT_EQ(Index(), damaged);
      ++refused_;
      return;
    }
    Bytes expected(damaged.begin(), damaged.end() - 4);
    const Bytes number = Little(static_cast<std::uint32_t>(code));
    std::copy(number.begin(), number.end(), expected.begin() + 4);
    const Bytes added = RawIndex(static_cast<std::uint32_t>(code),
                                 {{static_cast<std::uint32_t>(code), 1, 1112749200, "new"}});
    expected.insert(expected.end(), added.begin() + 8, added.end());
    EXPECT_EQ(Index(), expected);
    ++added_;
  }

  const test::ZoneGuard zone_{"UTC"};
  const test::FixedClock clock_{1112801400};  // 2005-04-06 15:30:00
  const test::TempFolder folder_;
  SavedSearches saved_;
  const Bytes whole_ = RawIndex(3, {{2}, {3}});  // 8, twice 72, 4
  int added_ = 0;
  int refused_ = 0;
};

TEST_F(DamagedIndexTest, NothingIsAddedToOneThatIsCutAnywhere) {
  for (std::size_t length = 0; length < whole_.size(); ++length) {
    SaveInto({whole_.begin(), whole_.begin() + static_cast<std::ptrdiff_t>(length)});
  }
  EXPECT_EQ(added_, 0) << "each lacks its end mark";
}

TEST_F(DamagedIndexTest, ChangedAtAnyByteItGrowsAtItsEndOrStays) {
  for (std::size_t place = 0; place < whole_.size(); ++place) {
    for (const int value : {0x00, 0x7F, 0xFF}) {
      Bytes changed = whole_;
      changed[place] = static_cast<std::byte>(value);
      SaveInto(changed);
    }
  }
  EXPECT_GT(added_, 0);
  EXPECT_GT(refused_, 0);
}

TEST_F(DamagedIndexTest, DeletingFromOneThatIsCutAnywhereChangesOneByteOrNone) {
  for (std::size_t length = 0; length < whole_.size(); ++length) {
    const Bytes cut(whole_.begin(), whole_.begin() + static_cast<std::ptrdiff_t>(length));
    WriteIndex(cut);
    const std::int32_t code = saved_.DeleteSavedSearch(2);
    if (length < 80) {
      EXPECT_TRUE(code == ERR_IO || code == ERR_FORMAT) << length;
      EXPECT_EQ(Index(), cut) << length;
    } else {
      Bytes marked = cut;
      marked[8 + 4 + 66] = std::byte{1};
      EXPECT_EQ(code, 2) << length;
      EXPECT_EQ(Index(), marked) << length;
    }
  }
}

}  // namespace
}  // namespace brovanta

// Files cut at every byte and changed at every byte, looked at in memory.
#include <gtest/gtest.h>

#include <functional>

#include "data/check_records.h"
#include "data/check_searches.h"
#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

/// A file by its documented layout and the look at it.
struct Kind {
  const char* name;
  std::size_t first_mark;
  std::size_t record_size;
  std::function<void(FileBytes, FileReport&, FileNotes&)> look;
};

const std::vector<Kind>& Kinds() {
  static const KnownNames kNoNames;
  static const std::vector<Kind> kinds = {
      {"store.lst", 4, 64,
       [](FileBytes bytes, FileReport& report, FileNotes& notes) {
         (void)CheckNameList(bytes, report, notes);
       }},
      {"discount.dat", 8, 400,
       [](FileBytes bytes, FileReport& report, FileNotes& notes) {
         (void)CheckDiscounts(bytes, kNoNames, report, notes);
       }},
      {"product.dat", 8, 456,
       [](FileBytes bytes, FileReport& report, FileNotes& notes) {
         CheckProducts(bytes, kNoNames, nullptr, report, notes);
       }},
      {"websearch.dat", 8, 68, [](FileBytes bytes, FileReport& report, FileNotes& notes) {
         (void)CheckSearchIndex(bytes, report, notes);
       }}};
  return kinds;
}

class EveryByteTest : public testing::TestWithParam<std::size_t> {
 protected:
  EveryByteTest() : kind_(Kinds()[GetParam()]) {
    const test::TempFolder folder;
    test::MakeHousehold(folder.path());
    whole_ = folder.Read(kind_.name).value();
  }

  /// Whether something is said to be wrong.
  bool IsBad(const test::Bytes& bytes) const {
    FolderReport folder;
    FileReport report;
    FileNotes notes(kind_.name, folder.findings);
    kind_.look(bytes, report, notes);
    return !folder.IsWhole();
  }

  /// Magic and marks, worked out from the layout.
  bool IsInFrame(std::size_t at) const {
    if (at < 4) return true;
    return at >= kind_.first_mark && (at - kind_.first_mark) % (4 + kind_.record_size) < 4;
  }

  const Kind& kind_;
  test::Bytes whole_;
};

TEST_P(EveryByteTest, TheWholeFileIsGood) {
  EXPECT_FALSE(IsBad(whole_));
  EXPECT_EQ((whole_.size() - kind_.first_mark - 4) % (4 + kind_.record_size), 0U);
}

TEST_P(EveryByteTest, ACutFileIsBad) {
  for (std::size_t size = 0; size < whole_.size(); ++size) {
    const test::Bytes cut(whole_.begin(), whole_.begin() + static_cast<std::ptrdiff_t>(size));
    ASSERT_TRUE(IsBad(cut)) << size;
  }
}

TEST_P(EveryByteTest, AChangeInTheFrameIsBad) {
  for (std::size_t at = 0; at < whole_.size(); ++at) {
    for (int value = 0; value < 256; value += IsInFrame(at) ? 1 : 15) {
      test::Bytes bytes = whole_;
      bytes[at] = static_cast<std::byte>(value);
      const bool is_bad = IsBad(bytes);  // must not crash, wherever the change is
      ASSERT_TRUE(is_bad || !IsInFrame(at) || bytes == whole_) << at << " " << value;
    }
  }
}

TEST_P(EveryByteTest, BytesBehindTheEndAreBad) {
  for (std::size_t more = 1; more < 20; ++more) {
    EXPECT_TRUE(IsBad(test::Join({whole_, test::Run(more)})));
  }
}

INSTANTIATE_TEST_SUITE_P(Files, EveryByteTest, testing::Values(0, 1, 2, 3));

}  // namespace
}  // namespace brovanta::data_tool

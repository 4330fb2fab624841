#include "db/journal_fit.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temp_folder.h"
#include "util/crc32.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Hex;

PresentFile FileOf(const std::string& text) {
  return {static_cast<std::int64_t>(text.size()),
          [text](std::int64_t offset, std::span<std::byte> bytes) {
            const auto all = std::as_bytes(std::span(text));
            const auto from = all.subspan(static_cast<std::size_t>(offset));
            const auto piece = from.first(std::min(bytes.size(), from.size()));
            std::copy(piece.begin(), piece.end(), bytes.begin());
            return static_cast<std::int64_t>(piece.size());
          }};
}

PresentFile MissingFile() { return {}; }

PresentFile UnreadableFile(std::int64_t size) {
  return {size, [](std::int64_t, std::span<std::byte>) { return std::int64_t{-1}; }};
}

Bytes BytesOf(const std::string& text) {
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

std::string TextOf(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

RecordsOfFile All(const std::vector<UndoRecord>& records) {
  RecordsOfFile all;
  for (const UndoRecord& record : records) all.push_back(&record);
  return all;
}

Fit FitOf(const std::vector<UndoRecord>& records, const PresentFile& file) {
  return brovanta::FitOf(All(records), file);
}

// "0123456789" becomes "01AB45678XYZ": four bytes overwritten, two of them at the end.
std::vector<UndoRecord> Change() {
  // The CRC-32 of "01", two zeros, "45678" and a zero.
  constexpr std::uint32_t kSum = 0xA7E2A401;
  return {
      {UndoKind::kOverwritten, "a", 10, 2, BytesOf("23"), AfterChange{12, kSum, BytesOf("AB")}},
      {UndoKind::kOverwritten, "a", 10, 9, BytesOf("9"), AfterChange{12, kSum, BytesOf("XYZ")}}};
}

TEST(JournalFitTest, EveryHalfOfAChangeFits) {
  const std::string old = "0123456789";
  const std::string changed = "01AB45678XYZ";
  int seen = 0;
  for (std::size_t size = old.size(); size <= changed.size(); ++size) {
    // Which of the bytes 2, 3, 9, 10 and 11 have their new value; behind the old end the others
    // are zeros.
    for (unsigned is_new = 0; is_new < 32; ++is_new) {
      std::string half = old + std::string(2, '\0');
      const std::size_t places[] = {2, 3, 9, 10, 11};
      for (unsigned bit = 0; bit < 5; ++bit) {
        if ((is_new >> bit & 1U) != 0) half[places[bit]] = changed[places[bit]];
      }
      half.resize(size);
      EXPECT_EQ(FitOf(Change(), FileOf(half)), Fit::kFits) << half;
      ++seen;
    }
  }
  EXPECT_EQ(seen, 96);
}

TEST(JournalFitTest, AFileThatHasGrownOrShrunkIsAnother) {
  EXPECT_EQ(FitOf(Change(), FileOf("01AB45678XYZ!")), Fit::kOther);
  EXPECT_EQ(FitOf(Change(), FileOf("012345678")), Fit::kOther);
  EXPECT_EQ(FitOf(Change(), MissingFile()), Fit::kOther);
}

TEST(JournalFitTest, AFileOfAFittingSizeWithAnyOtherByteBeforeItsOldEndIsAnother) {
  for (const std::string& file : {std::string("0123456789"), std::string("01AB45678XYZ")}) {
    for (std::size_t i = 0; i < file.size(); ++i) {
      std::string other = file;
      other[i] = '?';
      EXPECT_EQ(FitOf(Change(), FileOf(other)), i < 10 ? Fit::kOther : Fit::kFits) << other;
    }
  }
}

TEST(JournalFitTest, RecordsThatDisagreeFitNothing) {
  std::vector<UndoRecord> other_size = Change();
  other_size[1].old_size = 9;
  EXPECT_EQ(FitOf(other_size, FileOf("0123456789")), Fit::kOther);
  std::vector<UndoRecord> other_sum = Change();
  ++other_sum[1].after->sum;
  EXPECT_EQ(FitOf(other_sum, FileOf("0123456789")), Fit::kOther);
  std::vector<UndoRecord> half_told = Change();
  half_told[1].after.reset();
  EXPECT_EQ(FitOf(half_told, FileOf("0123456789")), Fit::kOther);
}

TEST(JournalFitTest, ChangesThatOverlapFitWithTheBytesOfEither) {
  std::vector<UndoRecord> change = Change();
  change.resize(1);
  change.push_back(change[0]);
  change[1].after->bytes = BytesOf("CD");
  std::uint32_t sum = 0;
  ASSERT_TRUE(SumOfUntouched(All(change), FileOf("0123456789"), sum));
  for (UndoRecord& record : change) record.after->sum = sum;
  for (const char* file : {"0123456789", "01AB456789", "01CD456789", "01AD456789", "012D456789"}) {
    EXPECT_EQ(FitOf(change, FileOf(std::string(file))), Fit::kFits) << file;
  }
  EXPECT_EQ(FitOf(change, FileOf("01AE456789")), Fit::kOther);
}

TEST(JournalFitTest, OfAReplacedFileTheOldOneTheNewOneOrNoneFits) {
  // The CRC-32 of "new".
  const std::vector<UndoRecord> change = {
      {UndoKind::kReplaced, "a", 5, 0, BytesOf("older"), AfterChange{3, 0x6BE34445, {}}}};
  EXPECT_EQ(FitOf(change, FileOf("older")), Fit::kFits);
  EXPECT_EQ(FitOf(change, FileOf("new")), Fit::kFits);
  EXPECT_EQ(FitOf(change, MissingFile()), Fit::kFits);
  for (const char* other : {"oldeR", "neW", "new!", "", "older!"}) {
    EXPECT_EQ(FitOf(change, FileOf(std::string(other))), Fit::kOther) << other;
  }
}

TEST(JournalFitTest, OfAMadeFileAnyPartFits) {
  const std::vector<UndoRecord> change = {
      {UndoKind::kMade, "a", 0, 0, {}, AfterChange{6, 0, BytesOf("abcd")}},
      {UndoKind::kMade, "a", 0, 3, {}, AfterChange{6, 0, BytesOf("XYZ")}}};
  EXPECT_EQ(FitOf(change, MissingFile()), Fit::kFits);
  using namespace std::string_literals;
  for (const std::string& part : {""s, "abcd"s, "abcXYZ"s, "a\0c"s, "\0\0\0XYZ"s, "abcdYZ"s}) {
    EXPECT_EQ(FitOf(change, FileOf(part)), Fit::kFits) << part;
  }
  EXPECT_EQ(FitOf(change, FileOf("abcXYZ!")), Fit::kOther);
}

TEST(JournalFitTest, AFileThatCameByARenameHasNoBytesOfTheDevice) {
  const std::vector<UndoRecord> change = {
      {UndoKind::kMade, "a", 0, 0, {}, AfterChange{4, 0, BytesOf("abcd")}}};
  EXPECT_EQ(FitOf(change, FileOf("abcd")), Fit::kFits);
  for (const char* other : {"b", "abce", "zzzz"}) {
    EXPECT_EQ(FitOf(change, FileOf(std::string(other))), Fit::kOther) << other;
  }
}

// A device may publish the size of a new record file before its bytes.
TEST(JournalFitTest, AMadeFileMayHoldWhatTheDeviceHeldUnlessItIsWhole) {
  const Bytes empty = Hex("81 38 01 00 00 00 00 00 83 38 01 00");
  const Bytes record = Hex("82 38 01 00 72 65 63 6f 83 38 01 00");
  const std::vector<UndoRecord> change = {
      {UndoKind::kMade, "a", 0, 0, {}, AfterChange{20, 0, empty}},
      {UndoKind::kMade, "a", 0, 8, {}, AfterChange{20, 0, record}}};
  EXPECT_EQ(FitOf(change, FileOf("zzzz")), Fit::kDoubtful);
  EXPECT_EQ(FitOf(change, FileOf("zzzzzzzzzzzzzzzzzzzz")), Fit::kDoubtful);
  // Somebody's own: a record, and no record but another LastId.
  Bytes other = Hex("81 38 01 00 00 00 00 00 82 38 01 00 6f 74 68 65 83 38 01 00");
  EXPECT_EQ(FitOf(change, FileOf(TextOf(other))), Fit::kOther);
  other = Hex("80 38 01 00 00 00 00 00 82 38 01 00 6f 74 68 65 83 38 01 00");
  EXPECT_EQ(FitOf(change, FileOf(TextOf(other))), Fit::kDoubtful) << "no file begins like that";
  other = Hex("81 38 01 00 09 00 00 00 83 38 01 00");
  EXPECT_EQ(FitOf(change, FileOf(TextOf(other))), Fit::kOther);
}

/// 460 bytes end with an end mark; records of 'n' up to byte 1600 are added, 'o' stands before.
struct Addition {
  Addition() {
    const Bytes old_mark = Hex("83 38 01 00");
    const Bytes written =
        test::Join({Hex("82 38 01 00"), Bytes(1136, std::byte{'n'}), Hex("83 38 01 00")});
    old = std::string(456, 'o') + TextOf(old_mark);
    done = std::string(456, 'o') + TextOf(written);
    change = {{UndoKind::kOverwritten, "a", 460, 456, old_mark,
               AfterChange{1600, 0, Bytes(written.begin(), written.begin() + 1024)}}};
    EXPECT_TRUE(SumOfUntouched(All(change), FileOf(old), change[0].after->sum));
  }
  std::string old;
  std::string done;
  std::vector<UndoRecord> change;
};

// A device loses sectors whole, of 512 bytes, and publishes the size before the bytes. What stands
// in the place of those that are lost may be zeros, noise, or what was cut off there before: the
// end of a record, its end mark included.
TEST(JournalFitTest, AnAdditionOfWhichSectorsAreLostFits) {
  const Addition addition;
  constexpr std::size_t kEnds[] = {512, 1024, 1536, 1600};
  std::string stale = addition.done;
  std::fill(stale.begin() + 460, stale.end() - 4, 's');
  const std::string noise(1600, '?');
  std::string zeros(1600, '\0');
  int doubtful = 0;
  for (const std::string& lost : {stale, noise, zeros}) {
    for (unsigned has = 0; has < 16; ++has) {
      std::string torn = addition.old + lost.substr(460);
      std::size_t begin = 456;
      for (unsigned sector = 0; sector < 4; ++sector) {
        if ((has >> sector & 1U) != 0) {
          std::copy(addition.done.begin() + static_cast<std::ptrdiff_t>(begin),
                    addition.done.begin() + static_cast<std::ptrdiff_t>(kEnds[sector]),
                    torn.begin() + static_cast<std::ptrdiff_t>(begin));
        }
        begin = kEnds[sector];
      }
      const Fit fit = FitOf(addition.change, FileOf(torn));
      EXPECT_TRUE(fit == Fit::kFits || fit == Fit::kDoubtful) << has << " of " << lost[500];
      if (fit == Fit::kDoubtful) ++doubtful;
    }
  }
  // With the first sector, its mark and an end mark at the very end: of `stale` without the second
  // or the third, of `noise` the same with the last.
  EXPECT_EQ(doubtful, 6 + 3);
}

TEST(JournalFitTest, ARecordOfSomebodyElseIsTakenForATearWhereASectorBegins) {
  const Addition addition;
  for (const std::size_t place : {460U, 500U, 511U}) {
    std::string other = addition.done;
    other[place] = '?';
    EXPECT_EQ(FitOf(addition.change, FileOf(other)), Fit::kOther) << place;
    other[512] = '?';
    EXPECT_EQ(FitOf(addition.change, FileOf(other)), Fit::kOther) << place;
    other[place] = '\0';  // no sector is half written
    EXPECT_EQ(FitOf(addition.change, FileOf(other)), Fit::kOther) << place;
  }
  for (const std::size_t place : {512U, 600U, 1024U}) {
    std::string other = addition.done;
    other[place] = '?';
    EXPECT_EQ(FitOf(addition.change, FileOf(other)), Fit::kDoubtful) << place;
  }
}

TEST(JournalFitTest, OfAFileThatCameByARenameEveryByteCounts) {
  const std::string whole(2000, 'n');
  const std::uint32_t sum = Crc32(std::as_bytes(std::span(whole)));
  const std::vector<UndoRecord> change = {
      {UndoKind::kMade, "a", 0, 0, {}, AfterChange{2000, sum, Bytes(1024, std::byte{'n'})}}};
  EXPECT_EQ(FitOf(change, FileOf(whole)), Fit::kFits);
  EXPECT_EQ(FitOf(change, MissingFile()), Fit::kFits);
  for (const std::size_t place : {0U, 1023U, 1024U, 1999U}) {
    std::string other = whole;
    other[place] = 'x';
    EXPECT_EQ(FitOf(change, FileOf(other)), Fit::kOther) << place;
  }
  EXPECT_EQ(FitOf(change, FileOf(whole.substr(1))), Fit::kOther);
}

TEST(JournalFitTest, OfALongWriteTheFirstBytesAreKnown) {
  const std::vector<UndoRecord> change = {
      {UndoKind::kMade, "a", 0, 0, {}, AfterChange{2000, 0, Bytes(1024, std::byte{'n'})}}};
  std::string file(2000, 'n');
  file[1500] = 'x';
  EXPECT_EQ(FitOf(change, FileOf(file)), Fit::kFits);
  file[1023] = 'x';
  EXPECT_EQ(FitOf(change, FileOf(file)), Fit::kOther);
}

TEST(JournalFitTest, OfALargeFileBothEndsAreLookedAt) {
  constexpr std::size_t kEnd = 65536;
  constexpr std::size_t kSize = 3 * kEnd;
  std::string file(kSize, 'a');
  std::vector<UndoRecord> change = {
      {UndoKind::kOverwritten, "a", kSize, 4, BytesOf("a"), AfterChange{kSize, 0, BytesOf("b")}}};
  ASSERT_TRUE(SumOfUntouched(All(change), FileOf(file), change[0].after->sum));
  EXPECT_EQ(FitOf(change, FileOf(file)), Fit::kFits);
  for (const std::size_t place : {std::size_t{0}, kEnd - 1, kSize - kEnd, kSize - 1}) {
    std::string other = file;
    other[place] = '?';
    EXPECT_EQ(FitOf(change, FileOf(other)), Fit::kOther) << place;
  }
  file[kEnd] = file[kSize - kEnd - 1] = '?';
  EXPECT_EQ(FitOf(change, FileOf(file)), Fit::kFits) << "not looked at, and not written to";
}

TEST(JournalFitTest, WhatCannotBeReadIsNotJudged) {
  EXPECT_EQ(FitOf(Change(), UnreadableFile(10)), Fit::kNotRead);
  const std::vector<UndoRecord> replaced = {
      {UndoKind::kReplaced, "a", 3, 0, BytesOf("old"), AfterChange{3, 0, {}}}};
  EXPECT_EQ(FitOf(replaced, UnreadableFile(3)), Fit::kNotRead);
  const std::vector<UndoRecord> made = {
      {UndoKind::kMade, "a", 0, 0, {}, AfterChange{1, 0, BytesOf("b")}}};
  EXPECT_EQ(FitOf(made, UnreadableFile(1)), Fit::kNotRead);
}

TEST(JournalFitTest, RecordsOfAFormerVersionFitWhatIsNotTooShort) {
  const std::vector<UndoRecord> change = {{UndoKind::kOverwritten, "a", 4, 0, BytesOf("01")}};
  EXPECT_EQ(FitOf(change, FileOf("????")), Fit::kFits);
  EXPECT_EQ(FitOf(change, FileOf("????????")), Fit::kFits);
  EXPECT_EQ(FitOf(change, FileOf("???")), Fit::kOther);
  EXPECT_EQ(FitOf(change, MissingFile()), Fit::kOther);
  EXPECT_EQ(FitOf({{UndoKind::kMade, "a", 0, 0, {}}}, FileOf("any")), Fit::kFits);
}

}  // namespace
}  // namespace brovanta

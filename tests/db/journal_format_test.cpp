#include "db/journal_format.h"

#include <gtest/gtest.h>

#include "tests/support/format_page.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::ExampleOf;
using test::Hex;
using test::Join;
using test::Rows;
using test::TableOf;

UndoRecord LastIdOfAnEmptyFile() {
  return {UndoKind::kOverwritten, "product.dat", 12, 4, Hex("00 00 00 00")};
}

std::vector<UndoRecord> OneOfEachKind() {
  return {LastIdOfAnEmptyFile(),
          {UndoKind::kReplaced, "store.lst", 3, 0, Hex("01 02 03")},
          {UndoKind::kMade, "discount.dat", 0, 0, {}},
          {UndoKind::kOverwritten, "purchase.dat", 12, 12, {}},
          {UndoKind::kOverwritten, "unit.dat", 12, 8, Hex("83"), AfterChange{14, 7, Hex("01 02")}},
          {UndoKind::kReplaced, "unit.lst", 1, 0, Hex("04"), AfterChange{9, 8, {}}},
          {UndoKind::kMade, "WebSearch/-2.dat", 0, 4, {}, AfterChange{5, 0, Hex("05")}}};
}

TEST(JournalFormatTest, ThePageAgrees) {
  namespace header = journal_layout;
  namespace undo = undo_layout;
  const Rows file = TableOf("journal.md", "File");
  EXPECT_EQ(file, (Rows{{"JOURNAL_MAGIC", header::kMagic, 4, "uint32"},
                        {"version", header::kVersion, 4, "uint32"},
                        {"count", header::kCount, 4, "uint32"},
                        {"length", header::kLength, 8, "uint64"},
                        {"checksum", header::kChecksum, 4, "uint32"}}));
  test::ExpectWithoutGap(file, header::kFirstRecord);
  const Rows record = TableOf("journal.md", "Record");
  EXPECT_EQ(record, (Rows{{"kind", undo::kKind, 4, "uint32"},
                          {"name length", undo::kNameLength, 4, "uint32"},
                          {"old size", undo::kOldSize, 8, "int64"},
                          {"offset", undo::kOffset, 8, "int64"},
                          {"byte count", undo::kByteCount, 8, "uint64"}}));
  test::ExpectWithoutGap(record, undo::kName);
  const Rows after = TableOf("journal.md", "State after the change");
  EXPECT_EQ(after, (Rows{{"new size", undo::kNewSize, 8, "int64"},
                         {"sum", undo::kSum, 4, "uint32"},
                         {"new byte count", undo::kNewByteCount, 4, "uint32"}}));
  test::ExpectWithoutGap(after, undo::kNewBytes);
  EXPECT_EQ(JOURNAL_MAGIC, 80101u);
}

TEST(JournalFormatTest, TheExampleIsWhatIsWritten) {
  std::vector records = {LastIdOfAnEmptyFile()};
  // The CRC-32 of 81 38 01 00, four zeros and 83 38 01 00.
  records[0].after = AfterChange{12, 0x3153b83b, Hex("01 00 00 00")};
  EXPECT_EQ(EncodeJournal(records), ExampleOf("journal.md"));
  EXPECT_EQ(DecodeJournal(ExampleOf("journal.md")), records);
}

// The 75 bytes that a former version wrote.
TEST(JournalFormatTest, ARecordOfAFormerVersionTellsNothingOfTheStateAfterwards) {
  const Bytes former =
      Hex("e5 38 01 00 01 00 00 00 01 00 00 00 4b 00 00 00 00 00 00 00 9c 1e a5 f2 01 00 00 00"
          "0b 00 00 00 0c 00 00 00 00 00 00 00 04 00 00 00 00 00 00 00 04 00 00 00 00 00 00 00"
          "70 72 6f 64 75 63 74 2e 64 61 74 00 00 00 00 f9 16 ea 56");
  EXPECT_EQ(DecodeJournal(former), std::vector{LastIdOfAnEmptyFile()});
}

TEST(JournalFormatTest, AnEmptyJournalIsItsFirstEightBytes) {
  EXPECT_EQ(EncodeEmptyJournal(), Hex("e5 38 01 00 01 00 00 00"));
  EXPECT_EQ(DecodeJournal(EncodeEmptyJournal()), std::vector<UndoRecord>());
}

TEST(JournalFormatTest, AnEmptiedJournalHasZerosBehindItsVersion) {
  const Bytes empty = Hex("e5 38 01 00 01 00 00 00");
  EXPECT_FALSE(IsEmptiedJournal(empty)) << "it is cut already";
  EXPECT_TRUE(IsEmptiedJournal(Join({empty, Hex("00")})));
  EXPECT_TRUE(IsEmptiedJournal(Join({empty, Bytes(16)})));
  for (std::size_t place = 0; place < 24; ++place) {
    Bytes other = Join({empty, Bytes(16)});
    other[place] ^= std::byte{1};
    EXPECT_FALSE(IsEmptiedJournal(other)) << place;
  }
  EXPECT_FALSE(IsEmptiedJournal(Bytes(24)));
  EXPECT_FALSE(IsEmptiedJournal(Bytes()));
}

TEST(JournalFormatTest, EveryKindComesBack) {
  EXPECT_EQ(DecodeJournal(EncodeJournal(OneOfEachKind())), OneOfEachKind());
}

TEST(JournalFormatTest, NoJournalCutShortIsFollowed) {
  const Bytes whole = EncodeJournal(OneOfEachKind());
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const auto records = DecodeJournal(std::span(whole).first(size));
    // At the empty header it is an empty one, which is not followed either.
    EXPECT_EQ(records.has_value(), size == journal_layout::kEmptySize) << size;
    EXPECT_TRUE(!records || records->empty());
  }
}

TEST(JournalFormatTest, NoJournalWithAnotherByteIsFollowed) {
  const Bytes whole = EncodeJournal(OneOfEachKind());
  for (std::size_t i = 0; i < whole.size(); ++i) {
    Bytes damaged = whole;
    damaged[i] ^= std::byte{0x10};
    EXPECT_FALSE(DecodeJournal(damaged)) << i;
  }
  EXPECT_FALSE(DecodeJournal(Join({whole, Hex("00")})));
}

TEST(JournalFormatTest, PiecesOfTwoJournalsAreNotFollowed) {
  std::vector<UndoRecord> other = OneOfEachKind();
  other[0].old_bytes = Hex("07 00 00 00");
  const Bytes one = EncodeJournal(OneOfEachKind());
  const Bytes two = EncodeJournal(other);
  ASSERT_EQ(one.size(), two.size());
  constexpr std::size_t kSecondRecord = 75;
  Bytes mixed = one;
  std::copy(two.begin() + kSecondRecord, two.end(), mixed.begin() + kSecondRecord);
  EXPECT_FALSE(DecodeJournal(mixed));
}

TEST(JournalFormatTest, ARecordThatLeadsOutOfTheFolderIsNotFollowed) {
  for (const std::string& name : {std::string("../product.dat"),
                                  std::string("..\\product.dat"),
                                  std::string("/etc/passwd"),
                                  std::string("folder/product.dat"),
                                  std::string("WebSearch/"),
                                  std::string("WebSearch/.."),
                                  std::string("WebSearch/a/b"),
                                  std::string("WebSearch\\2.dat"),
                                  std::string("WebSearch//2.dat"),
                                  std::string("WebSearch/2.txt"),
                                  std::string("WebSearch/.dat"),
                                  std::string("WebSearch/02.dat"),
                                  std::string("WebSearch/+2.dat"),
                                  std::string("WebSearch/2.dat.bad"),
                                  std::string("WebSearch/2147483648.dat"),
                                  std::string("WebSearch/product.dat"),
                                  std::string(".."),
                                  std::string("."),
                                  std::string(),
                                  std::string("a\0b", 3),
                                  std::string(249, 'a'),
                                  std::string("backup.dat")}) {
    UndoRecord record = LastIdOfAnEmptyFile();
    record.name = name;
    EXPECT_FALSE(DecodeJournal(EncodeJournal(std::span(&record, 1)))) << name;
  }
}

TEST(JournalFormatTest, ARecordMayNameAResultsFile) {
  UndoRecord record = LastIdOfAnEmptyFile();
  record.name = "WebSearch/2.dat";
  EXPECT_EQ(DecodeJournal(EncodeJournal(std::span(&record, 1))), std::vector{record});
}

TEST(JournalFormatTest, ARecordThatMakesNoSenseIsNotFollowed) {
  for (const UndoRecord& record :
       {UndoRecord{UndoKind::kOverwritten, "a", 12, 9, Hex("00 00 00 00")},
        UndoRecord{UndoKind::kOverwritten, "a", 12, -1, Hex("00")},
        UndoRecord{UndoKind::kOverwritten, "a", -1, 0, {}},
        UndoRecord{UndoKind::kOverwritten, "a", 12, INT64_MAX, Hex("00")},
        UndoRecord{UndoKind::kReplaced, "a", 2, 0, Hex("00")},
        UndoRecord{UndoKind::kMade, "a", 1, 0, Hex("00")},
        UndoRecord{UndoKind::kMade, "a", 0, 4, {}},
        UndoRecord{UndoKind::kOverwritten, "a", 12, 0, {}, AfterChange{11, 0, {}}},
        UndoRecord{UndoKind::kOverwritten, "a", 12, 12, {}, AfterChange{12, 0, Hex("00")}},
        UndoRecord{UndoKind::kReplaced, "a", 0, 0, {}, AfterChange{1, 0, Hex("00")}},
        UndoRecord{UndoKind::kReplaced, "a", 0, 0, {}, AfterChange{-1, 0, {}}},
        UndoRecord{UndoKind::kMade, "a", 0, 0, {}, AfterChange{0, 0, Hex("00")}},
        UndoRecord{UndoKind::kMade, "a", 0, 0, {}, AfterChange{2000, 0, Bytes(1025)}},
        UndoRecord{static_cast<UndoKind>(7), "a", 0, 0, {}},
        UndoRecord{static_cast<UndoKind>(0), "a", 0, 0, {}}}) {
    EXPECT_FALSE(DecodeJournal(EncodeJournal(std::span(&record, 1))));
  }
}

TEST(JournalFormatTest, AJournalOfNoRecordsIsNone) {
  EXPECT_FALSE(DecodeJournal(EncodeJournal({})));
}

TEST(JournalFormatTest, ANameMayBeAsLongAsThePageSays) {
  UndoRecord record = LastIdOfAnEmptyFile();
  record.name = std::string(248, 'a');
  EXPECT_TRUE(DecodeJournal(EncodeJournal(std::span(&record, 1))));
}

TEST(JournalFormatTest, AFileThatIsChangedInTwoWaysIsNotFollowed) {
  for (const UndoRecord& other : {UndoRecord{UndoKind::kReplaced, "product.dat", 0, 0, {}},
                                  UndoRecord{UndoKind::kMade, "product.dat", 0, 0, {}}}) {
    EXPECT_FALSE(DecodeJournal(EncodeJournal(std::vector{LastIdOfAnEmptyFile(), other})));
  }
  EXPECT_TRUE(
      DecodeJournal(EncodeJournal(std::vector{LastIdOfAnEmptyFile(), LastIdOfAnEmptyFile()})));
}

TEST(JournalFormatTest, LengthsBeyondTheEndAreNotFollowed) {
  const Bytes whole = EncodeJournal(std::vector{LastIdOfAnEmptyFile()});
  constexpr std::size_t kNameLength = 24 + 4;
  constexpr std::size_t kByteCount = 24 + 24;
  for (const std::size_t place : {kNameLength, kByteCount}) {
    Bytes damaged = whole;
    std::fill_n(damaged.begin() + static_cast<std::ptrdiff_t>(place), 4, std::byte{0xFF});
    EXPECT_FALSE(DecodeJournal(damaged)) << place;
  }
}

TEST(JournalFormatTest, TheFirstBytesTellAForeignFile) {
  const Bytes whole = EncodeJournal(OneOfEachKind());
  const auto start = std::span(whole).first(24);
  EXPECT_TRUE(IsJournalStart(start, whole.size()));
  EXPECT_FALSE(IsJournalStart(start, whole.size() + 1));
  EXPECT_FALSE(IsJournalStart(start.first(23), whole.size()));
  EXPECT_TRUE(IsJournalStart(EncodeEmptyJournal(), 8));
  EXPECT_FALSE(IsJournalStart(Hex("81 38 01 00 01 00 00 00"), 8));
  EXPECT_FALSE(IsJournalStart({}, 0));
}

}  // namespace
}  // namespace brovanta

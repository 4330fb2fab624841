#include "search/results_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "db/journal_format.h"
#include "platform/file.h"
#include "tests/search/raw_searches.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_limit.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Hex;
using test::Join;
using test::Little;
using test::RawNumbers;
using test::RawResult;
using test::RawResults;
using test::RawText;
using testing::ElementsAre;
using testing::IsEmpty;

// One result with every field set, and its bytes by hand.
SearchResultItem GoldenItem() {
  return {0x01020304, "Red Shoe", "Size 9", "http://a/1", "Caf\xE9", 10.5, -2};
}

Bytes GoldenBytes() {
  return Hex(
      "81 38 01 00"
      "82 38 01 00"
      "04 03 02 01"
      "00 00 00 00 00 00 25 40"  // 10.5 = 1.3125 * 2^3
      "FE FF"
      "09 00 00 00 52 65 64 20 53 68 6F 65 00"
      "07 00 00 00 53 69 7A 65 20 39 00"
      "0B 00 00 00 68 74 74 70 3A 2F 2F 61 2F 31 00"
      "05 00 00 00 43 61 66 E9 00"
      "83 38 01 00");
}

class ResultsFileTest : public testing::Test {
 protected:
  [[nodiscard]] int ReadBytes(const Bytes& bytes) {
    folder_.Write("7.dat", bytes);
    return ReadSearchResults(list_, Path());
  }
  [[nodiscard]] std::string Path() const { return folder_.path() + "\\7.dat"; }
  [[nodiscard]] std::vector<std::string> Titles() const {
    std::vector<std::string> titles;
    for (const auto& item : list_.items()) titles.push_back(item.Title.value_or("(none)"));
    return titles;
  }

  const test::TempFolder folder_;
  SearchResultList list_;
};

TEST_F(ResultsFileTest, WritesTheDocumentedBytes) {
  list_.Append({GoldenItem()});
  EXPECT_EQ(WriteSearchResults(list_, Path()), 0);
  EXPECT_EQ(folder_.Read("7.dat"), GoldenBytes());
}

TEST_F(ResultsFileTest, ReadsTheDocumentedBytes) {
  EXPECT_EQ(ReadBytes(GoldenBytes()), 0);
  EXPECT_THAT(list_.items(), ElementsAre(GoldenItem()));
}

TEST_F(ResultsFileTest, EmptyListIsMagicAndEndMark) {
  EXPECT_EQ(WriteSearchResults(list_, Path()), 0);
  EXPECT_EQ(folder_.Read("7.dat"), Hex("81 38 01 00 83 38 01 00"));
  EXPECT_EQ(ReadSearchResults(list_, Path()), 0);
  EXPECT_TRUE(list_.empty());
}

TEST_F(ResultsFileTest, MissingTextHasLengthZeroAndAnEmptyOneLengthOne) {
  SearchResultItem item;
  item.Text = "";
  list_.Append({item});
  EXPECT_EQ(WriteSearchResults(list_, Path()), 0);
  EXPECT_EQ(folder_.Read("7.dat"),
            RawResults({Join({RawNumbers(0, 0.0), Hex("00 00 00 00"), Hex("01 00 00 00 00"),
                              Hex("00 00 00 00"), Hex("00 00 00 00")})}));
  EXPECT_EQ(ReadSearchResults(list_, Path()), 0);
  EXPECT_THAT(list_.items(), ElementsAre(item));
}

TEST_F(ResultsFileTest, WritesInTheOrderOfTheListAndWithItsIds) {
  SearchResultItem dear = GoldenItem();
  dear.Id = 5;
  SearchResultItem cheap = GoldenItem();
  cheap.Price = 1;
  list_.Append({dear, cheap});
  EXPECT_EQ(WriteSearchResults(list_, Path()), 0);
  const std::string bytes = *folder_.ReadText("7.dat");
  EXPECT_EQ(bytes.substr(8, 4), std::string("\x05\0\0\0", 4));
  EXPECT_EQ(bytes.substr(bytes.find("Caf") + 5 + 4, 4), "\x04\x03\x02\x01");
}

TEST_F(ResultsFileTest, ReadsByPrice) {
  EXPECT_EQ(ReadBytes(RawResults({RawResult(1, 5, "five"), RawResult(2, 1, "one"),
                                  RawResult(3, 5, "five again"), RawResult(4, 3, "three")})),
            0);
  EXPECT_THAT(Titles(), ElementsAre("one", "three", "five", "five again"));
}

TEST_F(ResultsFileTest, ReadingTakesThePlaceOfWhatTheListHeld) {
  list_.Append({GoldenItem()});
  EXPECT_EQ(ReadBytes(RawResults({RawResult(1, 5, "five")})), 0);
  EXPECT_THAT(Titles(), ElementsAre("five"));
}

TEST_F(ResultsFileTest, MissingFileIsNotOpened) {
  list_.Append({GoldenItem()});
  EXPECT_EQ(ReadSearchResults(list_, Path()), ERR_OPEN);
  EXPECT_TRUE(list_.empty());
}

TEST_F(ResultsFileTest, FileHeldBySomeoneElseIsNotOpenedAndNotReplaced) {
  folder_.Write("7.dat", GoldenBytes());
  platform::File held;
  ASSERT_TRUE(held.Open(Path(), platform::File::Mode::kRead));
  EXPECT_EQ(ReadSearchResults(list_, Path()), ERR_OPEN);
  EXPECT_EQ(WriteSearchResults(list_, Path()), ERR_OPEN);
  held.Close();
  EXPECT_EQ(folder_.Read("7.dat"), GoldenBytes());
}

TEST_F(ResultsFileTest, AChangeLeftInTheMiddleIsRolledBackBeforeTheFileIsWritten) {
  std::filesystem::create_directory(folder_.File("WebSearch"));
  folder_.WriteText("product.dat", "XX");
  folder_.Write("backup.dat", EncodeJournal(std::vector<UndoRecord>{
                                  {UndoKind::kOverwritten, "product.dat", 2, 0, Hex("41 42")},
                                  {UndoKind::kReplaced, "WebSearch/7.dat", 1, 0, Hex("43")}}));
  list_.Clear();
  list_.Append({GoldenItem()});
  EXPECT_EQ(WriteSearchResults(list_, folder_.path() + "\\WebSearch\\7.dat"), 0);
  EXPECT_EQ(folder_.ReadText("product.dat"), "AB");
  EXPECT_EQ(folder_.Read("backup.dat"), EncodeEmptyJournal());
  EXPECT_EQ(folder_.Read("WebSearch/7.dat"), GoldenBytes());
}

TEST_F(ResultsFileTest, WhileSomeoneHoldsTheJournalNothingIsWritten) {
  std::filesystem::create_directory(folder_.File("WebSearch"));
  folder_.WriteText("WebSearch/7.dat", "old");
  folder_.Write("backup.dat", EncodeEmptyJournal());
  platform::File held;
  ASSERT_TRUE(held.Open(folder_.File("backup.dat"), platform::File::Mode::kRead));
  EXPECT_EQ(WriteSearchResults(list_, folder_.path() + "\\WebSearch\\7.dat"), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("WebSearch/7.dat"), "old");
}

TEST_F(ResultsFileTest, OutsideAFolderOfResultsThereIsNoJournal) {
  std::filesystem::create_directory(folder_.File("MyWebSearch"));
  for (const char* path : {"\\7.dat", "\\MyWebSearch\\7.dat"}) {
    EXPECT_EQ(WriteSearchResults(list_, folder_.path() + path), 0);
  }
  EXPECT_FALSE(folder_.Read("backup.dat"));
}

TEST_F(ResultsFileTest, FolderThatIsMissingIsAnError) {
  EXPECT_EQ(WriteSearchResults(list_, folder_.path() + "\\none\\7.dat"), ERR_OPEN);
}

TEST_F(ResultsFileTest, FullDiskLeavesTheOldFile) {
  folder_.Write("7.dat", GoldenBytes());
  for (std::int32_t i = 0; i < 100; ++i) list_.Append({GoldenItem()});
  int code = 0;
  {
    const test::WriteLimit full(500);
    code = WriteSearchResults(list_, Path());
  }
  EXPECT_EQ(code, ERR_OPEN);
  EXPECT_EQ(folder_.Read("7.dat"), GoldenBytes());
}

TEST_F(ResultsFileTest, WrongMagicIsAFormatError) {
  EXPECT_EQ(ReadBytes(Hex("82 38 01 00 83 38 01 00")), ERR_FORMAT);
  EXPECT_EQ(ReadBytes({}), ERR_FORMAT);
  EXPECT_EQ(ReadBytes(Hex("81 38 01")), ERR_FORMAT);
}

// What could be read is not kept: it would be written back without the rest.
TEST_F(ResultsFileTest, WrongMarkIsAFormatErrorAndEmptiesTheList) {
  const Bytes good = Join({Hex("81 38 01 00"), RawResult(1, 5, "five")});
  for (const char* mark : {"84 38 01 00", "81 38 01 00", "00 00 00 00", "83 38 01", ""}) {
    EXPECT_EQ(ReadBytes(Join({good, Hex(mark)})), ERR_FORMAT) << mark;
    EXPECT_THAT(list_.items(), IsEmpty()) << mark;
  }
}

TEST_F(ResultsFileTest, BytesBehindTheEndMarkAreNotRead) {
  EXPECT_EQ(ReadBytes(Join({RawResults({RawResult(1, 5, "five")}), test::Run(9, 0x82)})), 0);
  EXPECT_EQ(list_.size(), 1U);
}

TEST_F(ResultsFileTest, TextOfNegativeLengthIsMissingAndTakesNoBytes) {
  EXPECT_EQ(ReadBytes(RawResults({Join({RawNumbers(1, 5), Hex("FF FF FF FF"), RawText("b"),
                                        Hex("00 00 00 80"), RawText("d")})})),
            0);
  ASSERT_EQ(list_.size(), 1U);
  EXPECT_EQ(list_.items()[0].Title, std::nullopt);
  EXPECT_EQ(list_.items()[0].Text, "b");
  EXPECT_EQ(list_.items()[0].Url, std::nullopt);
  EXPECT_EQ(list_.items()[0].SiteName, "d");
}

// Nothing can be read behind a text that runs past the end, a mark neither.
TEST_F(ResultsFileTest, TextLongerThanTheFileIsMissing) {
  for (const char* length : {"FF FF FF 7F", "00 00 00 40", "20 00 00 00"}) {
    EXPECT_EQ(ReadBytes(RawResults({Join({RawNumbers(1, 5), Hex(length), RawText("b")})})),
              ERR_FORMAT)
        << length;
    EXPECT_TRUE(list_.empty());
  }
}

TEST_F(ResultsFileTest, TextEndsAtItsFirstZero) {
  EXPECT_EQ(ReadBytes(RawResults(
                {Join({RawNumbers(1, 5), Hex("04 00 00 00 61 00 62 00"), Hex("02 00 00 00 63 64"),
                       RawText(std::nullopt), RawText(std::nullopt)})})),
            0);
  EXPECT_EQ(list_.items().at(0).Title, "a");
  EXPECT_EQ(list_.items().at(0).Text, "cd");
}

TEST_F(ResultsFileTest, FileCutAnywhereIsAnErrorWithoutResults) {
  // Magic 4, two results of mark 4, numbers 14 and texts 9 + 4 + 9 + 9, end mark 4.
  const Bytes whole = RawResults({RawResult(1, 5, "five"), RawResult(2, 6, "six!")});
  constexpr std::size_t kResult = 49;
  ASSERT_EQ(whole.size(), 4 + 2 * kResult + 4);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    const bool in_results = length >= 4 && length < 4 + 2 * kResult;
    const std::size_t place = in_results ? (length - 4) % kResult : 0;
    const bool in_numbers = place >= 4 && place < 18;
    EXPECT_EQ(ReadBytes(cut), in_numbers ? ERR_IO : ERR_FORMAT) << length;
    EXPECT_TRUE(list_.empty()) << length;
  }
}

TEST_F(ResultsFileTest, FileChangedAtAnyByteIsReadOrRefused) {
  const Bytes whole = RawResults({RawResult(1, 5, "five"), RawResult(2, 6, "six")});
  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const int value : {0x00, 0x7F, 0xFF}) {
      Bytes changed = whole;
      changed[place] = static_cast<std::byte>(value);
      const int code = ReadBytes(changed);
      EXPECT_TRUE(code == 0 || code == ERR_FORMAT || code == ERR_IO) << place;
      EXPECT_TRUE(code == 0 || list_.empty()) << place;
      EXPECT_LE(list_.size(), 2U) << place;
    }
  }
}

}  // namespace
}  // namespace brovanta

#include "db/marked_reader.h"

#include <gtest/gtest.h>

#include <vector>

#include "db/error_codes.h"
#include "db/record_file.h"
#include "tests/db/golden_records.h"
#include "tests/db/raw_files.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::EndMark;
using test::FileMagic;
using test::Hex;
using test::Join;
using test::Raw;
using test::RawDiscountFile;
using test::RawRecordFile;
using test::RecordMark;
using test::Word;

class MarkedReaderTest : public testing::Test {
 protected:
  // The ids of the records that a scan hands out, and the code it ends with.
  struct Scanned {
    std::vector<std::int32_t> ids;
    int code = 0;
  };
  Scanned Scan() const {
    Scanned scanned;
    MarkedReader reader(400);
    scanned.code = reader.Open(path_, platform::File::Mode::kReadWrite, kFirstRecordMark);
    if (scanned.code != 0) return scanned;
    while (reader.Next()) scanned.ids.push_back(LoadLittle<std::int32_t>(reader.record() + 8));
    scanned.code = reader.code();
    EXPECT_FALSE(reader.Next());
    EXPECT_EQ(reader.code(), scanned.code);
    return scanned;
  }
  Scanned Scan(const Bytes& file) const {
    folder_.Write("discount.dat", file);
    return Scan();
  }

  test::TempFolder folder_;
  std::string path_ = folder_.path() + "\\discount.dat";
};

TEST_F(MarkedReaderTest, ScanHandsOutEveryRecordInPlace) {
  folder_.Write("discount.dat", RawRecordFile(7, {test::GoldenDiscountBytes(), Raw({.id = 9})}));
  RecordScanner<DiscountFormat> scan;
  ASSERT_EQ(scan.Open(path_), 0);
  EXPECT_EQ(scan.last_id(), 7);
  ASSERT_TRUE(scan.Next());
  EXPECT_EQ(scan.offset(), 12);
  EXPECT_EQ(scan.Decode(), test::GoldenDiscount());
  ASSERT_TRUE(scan.Next());
  EXPECT_EQ(scan.offset(), 416);
  EXPECT_EQ(Bytes(scan.bytes().begin(), scan.bytes().end()), Raw({.id = 9}));
  EXPECT_FALSE(scan.Next());
  EXPECT_EQ(scan.code(), 0);
}

TEST_F(MarkedReaderTest, ScanOfManyRecordsKeepsPlacesAndOrder) {
  std::vector<Bytes> records;
  for (std::int32_t id = 1; id <= 1000; ++id) records.push_back(Raw({.id = id}));
  Bytes file = Join({FileMagic(), Word(1000)});
  for (const Bytes& record : records) {
    file.insert(file.end(), {std::byte{0x82}, std::byte{0x38}, std::byte{1}, std::byte{0}});
    file.insert(file.end(), record.begin(), record.end());
  }
  folder_.Write("discount.dat", Join({file, EndMark()}));
  RecordScanner<DiscountFormat> scan;
  ASSERT_EQ(scan.Open(path_), 0);
  for (std::int32_t id = 1; id <= 1000; ++id) {
    ASSERT_TRUE(scan.Next());
    ASSERT_EQ(NumberAt<std::int32_t>(scan.bytes(), 8), id);
    ASSERT_EQ(scan.offset(), 12 + std::int64_t{404} * (id - 1));
  }
  EXPECT_FALSE(scan.Next());
  EXPECT_EQ(scan.code(), 0);
}

TEST_F(MarkedReaderTest, EmptyFileEndsAtOnce) {
  EXPECT_EQ(Scan(Hex("81 38 01 00 01 00 00 00 83 38 01 00")).code, 0);
}

TEST_F(MarkedReaderTest, MissingFileDoesNotOpen) {
  EXPECT_EQ(Scan().code, ERR_OPEN);
  EXPECT_FALSE(folder_.Read("discount.dat"));
}

TEST_F(MarkedReaderTest, WrongMagicIsAFormatError) {
  Bytes file = RawDiscountFile(2, {{}});
  file[0] = std::byte{0x82};
  EXPECT_EQ(Scan(file).code, ERR_FORMAT);
}

TEST_F(MarkedReaderTest, WrongFirstMarkIsAFormatError) {
  Bytes file = RawDiscountFile(2, {{}});
  file[8] = std::byte{0x84};
  const Scanned scanned = Scan(file);
  EXPECT_EQ(scanned.code, ERR_FORMAT);
  EXPECT_TRUE(scanned.ids.empty());
}

TEST_F(MarkedReaderTest, WrongLaterMarkIsAFormatErrorBehindTheRecordsBeforeIt) {
  Bytes file = RawDiscountFile(3, {{.id = 2}, {.id = 3}});
  file[412] = std::byte{0};
  const Scanned scanned = Scan(file);
  EXPECT_EQ(scanned.code, ERR_FORMAT);
  EXPECT_EQ(scanned.ids, std::vector<std::int32_t>{2});
}

// 0-11: no first mark; 12-411 and 416-815: within a record; 412-415 and 816-819: no next mark.
int CodeOfCut(std::size_t size) {
  if (size < 12) return ERR_FORMAT;
  if (size < 412) return ERR_IO;
  if (size < 416) return ERR_FORMAT;
  if (size < 816) return ERR_IO;
  return ERR_FORMAT;
}

TEST_F(MarkedReaderTest, CutAtEveryByteGivesItsCode) {
  const Bytes whole = RawDiscountFile(3, {{.id = 2}, {.id = 3}});
  ASSERT_EQ(whole.size(), 820u);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    const Scanned scanned = Scan(cut);
    ASSERT_EQ(scanned.code, CodeOfCut(size)) << size;
    ASSERT_EQ(scanned.ids.size(), size < 412 ? 0u : size < 816 ? 1u : 2u) << size;
    ASSERT_EQ(folder_.Read("discount.dat"), cut) << size;
  }
}

TEST_F(MarkedReaderTest, BytesBehindTheEndMarkAreIgnored) {
  const Scanned scanned = Scan(Join({RawDiscountFile(2, {{}}), RecordMark(), Hex("01 02 03")}));
  EXPECT_EQ(scanned.code, 0);
  EXPECT_EQ(scanned.ids, std::vector<std::int32_t>{2});
}

TEST_F(MarkedReaderTest, TextInPlaceEndsAtItsFieldWhenThereIsNoZero) {
  const Bytes record = Raw({.name = std::string_view("abc\0x", 5)});
  EXPECT_EQ(TextAt(record, 12, 50), "abc");
  EXPECT_EQ(TextAt(record, 12, 2), "ab");
  EXPECT_EQ(TextAt(record, 62, 50), "");
}

TEST_F(MarkedReaderTest, AListStartsItsRecordsBehindTheMagic) {
  folder_.Write("discount.dat", test::RawListFile({test::RawItem(5, "a")}));
  MarkedReader reader(64);
  ASSERT_EQ(reader.Open(path_, platform::File::Mode::kRead, kFirstListMark), 0);
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(reader.offset(), 8);
  EXPECT_EQ(LoadLittle<std::int32_t>(reader.record() + 4), 5);
  EXPECT_FALSE(reader.Next());
  EXPECT_EQ(reader.code(), 0);
}

TEST_F(MarkedReaderTest, TheFileStaysLockedForWhoeverTakesIt) {
  folder_.Write("discount.dat", RawDiscountFile(2, {{}}));
  MarkedReader reader(400);
  ASSERT_EQ(reader.Open(path_, platform::File::Mode::kReadWrite, kFirstRecordMark), 0);
  EXPECT_EQ(Scan().code, ERR_OPEN);
  platform::File file = reader.TakeFile();
  EXPECT_TRUE(file.is_open());
  EXPECT_EQ(Scan().code, ERR_OPEN);
  file.Close();
  EXPECT_EQ(Scan().code, 0);
}

}  // namespace
}  // namespace brovanta

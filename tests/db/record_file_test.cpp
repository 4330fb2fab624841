#include "db/record_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <vector>

#include "tests/db/golden_records.h"
#include "tests/db/raw_files.h"
#include "tests/support/plain_user.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_limit.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::EndMark;
using test::Hex;
using test::Join;
using test::Raw;
using test::RawDiscountFile;
using test::RawRecordFile;
using test::TempFolder;
using test::WriteLimit;

constexpr std::int32_t kMaxId = std::numeric_limits<std::int32_t>::max();

class RecordFileTest : public testing::Test {
 protected:
  // The ids of the records that a scan hands out, and the code it ends with.
  struct Scanned {
    std::vector<std::int32_t> ids;
    int code = 0;
  };
  Scanned Scan() const {
    Scanned scanned;
    RecordScanner<DiscountFormat> scan;
    scanned.code = scan.Open(path_);
    if (scanned.code != 0) return scanned;
    while (scan.Next()) scanned.ids.push_back(NumberAt<std::int32_t>(scan.bytes(), 8));
    scanned.code = scan.code();
    EXPECT_FALSE(scan.Next());
    EXPECT_EQ(scan.code(), scanned.code);
    return scanned;
  }
  Scanned Scan(const Bytes& file) const {
    folder_.Write("discount.dat", file);
    return Scan();
  }

  LocatedRecord<DiscountFormat> Locate(std::int32_t id) const {
    return LocateRecord<DiscountFormat>(path_, [id](RecordSpan<DiscountFormat> record) {
      return NumberAt<std::int32_t>(record, 8) == id;
    });
  }

  template <typename Format>
  int Append(typename Format::Record& record) const {
    UnitOfWork work(JournalBeside(path_));
    const int code = AppendRecord<Format>(work, path_, record);
    return code != 0 ? code : work.Commit();
  }
  int AppendGolden() const {
    DiscountRecord record = test::GoldenDiscount();
    record.Id = 0;
    return Append<DiscountFormat>(record);
  }
  // Appending gives the code, and the file keeps its bytes.
  void ExpectRefused(const Bytes& file, int code) const {
    folder_.Write("discount.dat", file);
    EXPECT_EQ(AppendGolden(), code);
    EXPECT_EQ(folder_.Read("discount.dat"), file);
  }

  TempFolder folder_;
  std::string path_ = folder_.path() + "\\discount.dat";
};

TEST_F(RecordFileTest, FolderInTheWayDoesNotOpen) {
  std::filesystem::create_directory(folder_.File("discount.dat"));
  EXPECT_EQ(Scan().code, ERR_OPEN);
  EXPECT_EQ(AppendGolden(), ERR_OPEN);
}

TEST_F(RecordFileTest, FileHeldBySomeoneElseDoesNotOpen) {
  folder_.Write("discount.dat", RawDiscountFile(2, {{}}));
  platform::File holder;
  ASSERT_TRUE(holder.Open(path_, platform::File::Mode::kRead));
  EXPECT_EQ(Scan().code, ERR_OPEN);
  EXPECT_EQ(Locate(2).code, ERR_OPEN);
  EXPECT_EQ(AppendGolden(), ERR_OPEN);
  holder.Close();
  EXPECT_EQ(Scan().code, 0);
}

TEST_F(RecordFileTest, ReadOnlyFileDoesNotOpen) {
  folder_.Write("discount.dat", RawDiscountFile(2, {{}}));
  std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
  std::filesystem::permissions(folder_.File("discount.dat"), std::filesystem::perms{0444});
  const test::PlainUser user;
  if (!user.active()) GTEST_SKIP() << "permissions do not count here";
  EXPECT_EQ(Scan().code, ERR_OPEN);
  EXPECT_EQ(AppendGolden(), ERR_OPEN);
}

TEST_F(RecordFileTest, LocateGivesPlaceBytesAndTheLockedFile) {
  folder_.Write("discount.dat", RawDiscountFile(3, {{.id = 2}, {.id = 3}}));
  const auto located = Locate(3);
  ASSERT_EQ(located.code, 0);
  EXPECT_EQ(located.offset, 416);
  EXPECT_EQ(Bytes(located.bytes.begin(), located.bytes.end()), Raw({.id = 3}));
  EXPECT_TRUE(located.file.is_open());
  EXPECT_EQ(Scan().code, ERR_OPEN);
}

TEST_F(RecordFileTest, LocateTakesTheFirstLiveRecordElseTheFirst) {
  folder_.Write("discount.dat", RawDiscountFile(2, {{.deleted = 1}, {.name = "a"}, {.name = "b"}}));
  EXPECT_EQ(Locate(2).offset, 416);
  folder_.Write("discount.dat", RawDiscountFile(2, {{.deleted = 1}, {.deleted = 9}}));
  EXPECT_EQ(Locate(2).offset, 12);
}

TEST_F(RecordFileTest, LocateReportsAbsenceOnlyOfASoundFile) {
  Bytes file = RawDiscountFile(2, {{.id = 2}, {.id = 3}});
  folder_.Write("discount.dat", file);
  EXPECT_EQ(Locate(4).code, ERR_NOT_FOUND);
  file[412] = std::byte{0};
  folder_.Write("discount.dat", file);
  EXPECT_EQ(Locate(4).code, ERR_FORMAT);
  EXPECT_EQ(Locate(3).code, ERR_FORMAT);
  EXPECT_EQ(Locate(2).code, 0);
}

TEST_F(RecordFileTest, DamageBehindADeletedMatchDoesNotHideIt) {
  Bytes file = RawDiscountFile(2, {{.id = 2, .deleted = 1}, {.id = 3}});
  file[412] = std::byte{0};
  folder_.Write("discount.dat", file);
  EXPECT_EQ(Locate(2).code, 0);
  EXPECT_EQ(Locate(2).offset, 12);
}

TEST_F(RecordFileTest, FreshDiscountFileIsTwelveBytesWithLastIdOne) {
  UnitOfWork work(JournalBeside(path_));
  AppendPlace place;
  ASSERT_EQ(
      OpenForAppend(work, path_, DiscountFormat::kSize, DiscountFormat::kInitialLastId, place), 0);
  ASSERT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.Read("discount.dat"), Hex("81 38 01 00 01 00 00 00 83 38 01 00"));
}

TEST_F(RecordFileTest, FreshProductFileDiffersOnlyInLastIdZero) {
  UnitOfWork work(JournalBeside(path_));
  AppendPlace place;
  ASSERT_EQ(OpenForAppend(work, path_, ProductFormat::kSize, ProductFormat::kInitialLastId, place),
            0);
  ASSERT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.Read("discount.dat"), Hex("81 38 01 00 00 00 00 00 83 38 01 00"));
}

TEST_F(RecordFileTest, NoFileIsMadeWhenNothingIsWritten) {
  {
    UnitOfWork work(JournalBeside(path_));
    DiscountRecord record;
    ASSERT_EQ(AppendRecord<DiscountFormat>(work, path_, record), 0);
  }
  EXPECT_FALSE(folder_.Read("discount.dat"));
}

TEST_F(RecordFileTest, FirstDiscountGetsIdTwoAndOverwritesTheEndMark) {
  DiscountRecord record = test::GoldenDiscount();
  record.Id = 0;
  ASSERT_EQ(Append<DiscountFormat>(record), 0);
  EXPECT_EQ(record.Id, 2);
  Bytes stored = test::GoldenDiscountBytes();
  test::Put(stored, 8, std::int32_t{2});
  const Bytes expected = Join({Hex("81 38 01 00 02 00 00 00 82 38 01 00"), stored, EndMark()});
  EXPECT_EQ(expected.size(), 12u + 400u + 4u);
  EXPECT_EQ(folder_.Read("discount.dat"), expected);
}

TEST_F(RecordFileTest, FirstProductGetsIdOne) {
  ProductRecord record = test::GoldenProduct();
  record.Id = 0;
  ASSERT_EQ(Append<ProductFormat>(record), 0);
  EXPECT_EQ(record.Id, 1);
  Bytes stored = test::GoldenProductBytes();
  test::Put(stored, 8, std::int32_t{1});
  const Bytes expected = Join({Hex("81 38 01 00 01 00 00 00 82 38 01 00"), stored, EndMark()});
  EXPECT_EQ(expected.size(), 12u + 456u + 4u);
  EXPECT_EQ(folder_.Read("discount.dat"), expected);
}

TEST_F(RecordFileTest, ASecondRecordFollowsTheFirst) {
  folder_.Write("discount.dat", RawDiscountFile(41, {{.id = 9}}));
  DiscountRecord record = test::GoldenDiscount();
  record.Id = 0;
  ASSERT_EQ(Append<DiscountFormat>(record), 0);
  EXPECT_EQ(record.Id, 42);
  Bytes stored = test::GoldenDiscountBytes();
  test::Put(stored, 8, std::int32_t{42});
  EXPECT_EQ(folder_.Read("discount.dat"), RawRecordFile(42, {Raw({.id = 9}), stored}));
}

TEST_F(RecordFileTest, AGivenIdIsKeptAndLastIdStays) {
  folder_.Write("discount.dat", RawDiscountFile(41, {}));
  DiscountRecord record = test::GoldenDiscount();
  ASSERT_EQ(Append<DiscountFormat>(record), 0);
  EXPECT_EQ(folder_.Read("discount.dat"), RawRecordFile(41, {test::GoldenDiscountBytes()}));
}

TEST_F(RecordFileTest, AppendRefusesAWrongMagicOrAFileThatIsTooShort) {
  Bytes file = RawDiscountFile(2, {{}});
  file[1] = std::byte{0x39};
  ExpectRefused(file, ERR_IO);
  const Bytes empty = RawDiscountFile(2, {});
  for (std::ptrdiff_t size = 0; size < 12; ++size) {
    ExpectRefused(Bytes(empty.begin(), empty.begin() + size), ERR_IO);
  }
}

TEST_F(RecordFileTest, AppendRefusesAFileThatDoesNotEndWithTheEndMark) {
  const Bytes whole = RawDiscountFile(3, {{.id = 2}, {.id = 3}});
  for (std::ptrdiff_t size = 12; size < 820; ++size) {
    ExpectRefused(Bytes(whole.begin(), whole.begin() + size), ERR_FORMAT);
  }
  ExpectRefused(Join({whole, Hex("00")}), ERR_FORMAT);
}

TEST_F(RecordFileTest, AppendRefusesAnEndMarkThatNoReaderReaches) {
  ExpectRefused(Join({RawDiscountFile(2, {{}}), Hex("01 02 03 04"), EndMark()}), ERR_FORMAT);
}

TEST_F(RecordFileTest, AppendDoesNotScanTheRecords) {
  Bytes file = RawDiscountFile(2, {{}});
  file[8] = std::byte{0};
  folder_.Write("discount.dat", file);
  EXPECT_EQ(AppendGolden(), 0);
  EXPECT_EQ(folder_.Read("discount.dat")->size(), 820u);
}

TEST_F(RecordFileTest, IdsAtTheirEndAreRefused) {
  ExpectRefused(RawDiscountFile(kMaxId, {}), ERR_IO);
  ExpectRefused(RawDiscountFile(-1, {}), ERR_IO);
  ExpectRefused(RawDiscountFile(std::numeric_limits<std::int32_t>::min(), {}), ERR_IO);
  folder_.Write("discount.dat", RawDiscountFile(kMaxId - 1, {}));
  EXPECT_EQ(AppendGolden(), 0);
}

TEST_F(RecordFileTest, AGivenIdNeedsNoLastId) {
  folder_.Write("discount.dat", RawDiscountFile(kMaxId, {}));
  DiscountRecord record = test::GoldenDiscount();
  EXPECT_EQ(Append<DiscountFormat>(record), 0);
}

TEST_F(RecordFileTest, AFullDiskAtAnyByteLeavesTheOldFile) {
  const Bytes file = RawDiscountFile(2, {{}});
  ASSERT_EQ(file.size(), 416u);
  folder_.Write("discount.dat", file);
  for (const std::int64_t limit : {0, 3, 4, 6, 8, 100, 412, 413, 416, 417, 600, 815, 819}) {
    {
      const WriteLimit full(limit);
      ASSERT_EQ(AppendGolden(), ERR_IO) << limit;
    }
    // Below the file's own size not even the old bytes can be put back before there is space again.
    ASSERT_EQ(RollBackJournal(JournalBeside(path_)), 0) << limit;
    ASSERT_EQ(folder_.Read("discount.dat"), file) << limit;
  }
  const WriteLimit enough(820);
  EXPECT_EQ(AppendGolden(), 0);
}

TEST_F(RecordFileTest, AFullDiskLeavesNoNewFile) {
  for (const std::int64_t limit : {0, 4, 11, 12, 200, 415}) {
    const WriteLimit full(limit);
    ASSERT_EQ(AppendGolden(), ERR_IO) << limit;
    ASSERT_FALSE(folder_.Read("discount.dat")) << limit;
    ASSERT_TRUE(std::filesystem::remove(folder_.File("backup.dat"))) << limit;
    ASSERT_TRUE(std::filesystem::is_empty(folder_.path())) << limit;
  }
}

TEST_F(RecordFileTest, AMissingFolderIsAnOpenError) {
  path_ = folder_.path() + "\\missing\\discount.dat";
  EXPECT_EQ(AppendGolden(), ERR_OPEN);
}

}  // namespace
}  // namespace brovanta

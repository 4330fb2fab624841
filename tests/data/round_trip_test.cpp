// Whatever stands in the files of a folder comes back from its document bit for bit.
#include <gmock/gmock.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "data/data_files.h"
#include "data/export_json.h"
#include "data/file_kind.h"
#include "data/import_json.h"
#include "data/stored_result.h"
#include "db/shopping_database.h"
#include "tests/data/sample_folder.h"
#include "tests/support/zone_guard.h"

namespace brovanta::data_tool {
namespace {

void ExpectRoundTrip(const DataSnapshot& files, const std::string& what) {
  std::string error;
  const auto back = ImportJson(ExportJson(files), error);
  ASSERT_TRUE(back) << what << ": " << error;
  for (const auto& [name, bytes] : files) {
    ASSERT_EQ(back->count(name), 1U) << what << ": " << name;
    ASSERT_TRUE(back->at(name) == bytes) << what << ": " << name;
  }
  ASSERT_EQ(back->size(), files.size()) << what;
}

/// Folders at random, the same ones each time: sound files whose records hold any bytes, and
/// damaged ones.
class RandomFolder {
 public:
  explicit RandomFolder(unsigned seed) : random_(seed) {}

  DataSnapshot Make() {
    DataSnapshot files;
    for (const std::string_view name : kDataFiles) Add(std::string(name), files);
    for (int i = 0; i < 3; ++i) Add("WebSearch/" + std::to_string(1 + Below(50)) + ".dat", files);
    return files;
  }

 private:
  std::size_t Below(std::size_t count) { return random_() % count; }

  std::string Bytes(std::size_t size) {
    // Many zeros and letters: texts with ends, gaps that are almost empty.
    constexpr std::string_view kLikely("\0\0\0\0aZ \xE9\xC3\xA9\x01\x02\xFF\n\"\\", 16);
    const bool likely = Below(4) != 0;
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) {
      bytes += likely ? kLikely[Below(kLikely.size())] : static_cast<char>(Below(256));
    }
    return bytes;
  }

  std::string Record(const FrameKind& frame) {
    if (frame.record_size != 0) return Bytes(frame.record_size);
    StoredResult result;
    result.Id = static_cast<std::int32_t>(random_());
    const std::string price = Bytes(sizeof(double));
    std::memcpy(&result.Price, price.data(), sizeof(double));
    for (StoredResultText& text : result.texts) {
      const std::size_t size = Below(8);
      text = {static_cast<std::int32_t>(size), Bytes(size)};
      if (size == 0 && Below(3) == 0) text.length = -1 - static_cast<std::int32_t>(Below(9));
      if (size > 0 && Below(2) == 0) text.bytes.back() = '\0';
    }
    return EncodeResult(result);
  }

  void Add(const std::string& name, DataSnapshot& files) {
    const std::size_t choice = Below(10);
    if (choice == 0) return;
    const auto frame = FrameOf(*KindOfFile(name));
    if (choice == 1 || !frame) {
      files[name] = Bytes(Below(300));
      return;
    }
    std::vector<std::string> records;
    for (std::size_t i = Below(6); i > 0; --i) records.push_back(Record(*frame));
    FramedFile file;
    file.last_id = static_cast<std::int32_t>(random_());
    file.records.assign(records.begin(), records.end());
    std::string bytes = PutTogether(file, *frame);
    if (choice == 2) bytes += Bytes(1 + Below(9));
    if (choice == 3) bytes.resize(Below(bytes.size()));
    files[name] = bytes;
  }

  std::mt19937 random_;
};

TEST(RoundTripTest, FoldersAtRandomComeBack) {
  for (unsigned seed = 0; seed < 400; ++seed) {
    const test::ZoneGuard zone(seed % 2 == 0 ? "UTC" : "America/St_Johns");
    ExpectRoundTrip(RandomFolder(seed).Make(), std::to_string(seed));
    if (HasFatalFailure()) return;
  }
}

// Each byte of each kind of record takes values that its field may not expect.
TEST(RoundTripTest, EveryByteOfARecordCounts) {
  for (const char* const name : {"store.lst", "discount.dat", "product.dat", "websearch.dat"}) {
    const FrameKind frame = *FrameOf(*KindOfFile(name));
    for (std::size_t at = 0; at < frame.record_size; ++at) {
      for (const char value : {'\x01', '\x80', '\xff'}) {
        std::string record(frame.record_size, '\0');
        record[at] = value;
        FramedFile file;
        file.records = {record};
        ExpectRoundTrip({{name, PutTogether(file, frame)}}, name + std::to_string(at));
        if (HasFatalFailure()) return;
      }
    }
  }
}

TEST(RoundTripTest, ExportedInOneZoneImportedInAnother) {
  const test::TempFolder folder;
  test::MakeHousehold(folder.path());
  DataSnapshot files;
  ASSERT_EQ(TakeDataSnapshot(folder.path(), files), SnapshotResult::kTaken);
  std::string document;
  {
    const test::ZoneGuard zone("Pacific/Auckland");
    document = ExportJson(files);
  }
  const test::ZoneGuard zone("America/Los_Angeles");
  std::string error;
  EXPECT_EQ(ImportJson(document, error), files) << error;
}

std::vector<std::string> Cells(const std::string& line) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (const char character : line) {
    if (character == '"') {
      quoted = !quoted;
    } else if (character == ',' && !quoted) {
      cells.emplace_back();
    } else {
      cells.back() += character;
    }
  }
  return cells;
}

// Names, prices and units as shops have them, from a table name,unit,quantity,price,category,store.
TEST(RoundTripTest, RealProductsComeBack) {
  const char* const path = std::getenv("BROVANTA_PRODUCTS_CSV");
  std::ifstream in(path != nullptr ? path : "");
  if (!in) GTEST_SKIP() << "BROVANTA_PRODUCTS_CSV names no table of products";
  const test::TempFolder folder;
  test::MakeEmptyLists(folder.path());
  ShoppingDatabase database;
  ASSERT_EQ(database.Open(folder.path()), 0);
  std::string line;
  std::getline(in, line);
  std::size_t count = 0;
  while (std::getline(in, line)) {
    const std::vector<std::string> cells = Cells(line);
    ASSERT_GE(cells.size(), 6U) << line;
    ProductFields fields;
    fields.name = cells[0];  // UTF-8 bytes, longer than the field at times: cut within a character
    fields.unit = NameRef{0, cells[1]};
    fields.quantity = std::atof(cells[2].c_str());
    fields.unit_price = std::atof(cells[3].c_str());
    fields.category = NameRef{0, cells[4]};
    fields.store = NameRef{0, cells[5]};
    ASSERT_TRUE(database.products().Add(kProductKind, fields)) << line;
    ++count;
  }
  DataSnapshot files;
  ASSERT_EQ(TakeDataSnapshot(folder.path(), files), SnapshotResult::kTaken);
  EXPECT_EQ(files.at("product.dat").size(), 12 + count * 460);
  RecordProperty("products", static_cast<int>(count));
  RecordProperty("bytes", static_cast<int>(ExportJson(files).size()));
  ExpectRoundTrip(files, path);
}

}  // namespace
}  // namespace brovanta::data_tool

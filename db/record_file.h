// Record files: reading one in a single pass, finding the record to change, appending.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "db/error_codes.h"
#include "db/marked_reader.h"
#include "db/record_format.h"
#include "db/records.h"
#include "db/unit_of_work.h"
#include "platform/file.h"

namespace brovanta {

/// What a record file holds: the Format parameter of the templates below.
struct DiscountFormat {
  using Record = DiscountRecord;
  static constexpr std::size_t kSize = discount_layout::kSize;
  static constexpr std::size_t kId = discount_layout::kId;
  static constexpr std::size_t kDeleted = discount_layout::kDeleted;
  static constexpr std::int32_t kInitialLastId = kInitialDiscountId;
  static constexpr auto Encode = EncodeDiscount;
  static constexpr auto Decode = DecodeDiscount;
};
struct ProductFormat {
  using Record = ProductRecord;
  static constexpr std::size_t kSize = product_layout::kSize;
  static constexpr std::size_t kId = product_layout::kId;
  static constexpr std::size_t kDeleted = product_layout::kDeleted;
  static constexpr std::int32_t kInitialLastId = kInitialProductId;
  static constexpr auto Encode = EncodeProduct;
  static constexpr auto Decode = DecodeProduct;
};

template <typename Format>
using RecordSpan = std::span<const std::byte, Format::kSize>;

/// MarkedReader::Open for a file that a unit of work changes in place. What a program that ended in
/// the middle left behind is rolled back first, whenever it did; ERR_OPEN while that cannot be
/// done, or its other code: half a change is never read.
[[nodiscard]] int OpenRecordFile(MarkedReader& reader, const std::string& path,
                                 platform::File::Mode mode, FileImage* image = nullptr);

/// MarkedReader over "discount.dat", "product.dat" or "purchase.dat":
///   RecordScanner<DiscountFormat> scan;
///   if (const int code = scan.Open(path); code != 0) return code;
///   while (scan.Next()) { ... scan.bytes() ... }
///   return scan.code();
template <typename Format>
class RecordScanner {
 public:
  /// OpenRecordFile: 0, ERR_OPEN or ERR_FORMAT, or ERR_IO from a roll-back. Kept: opens for writing
  /// too, so that a read-only file is ERR_OPEN.
  [[nodiscard]] int Open(const std::string& path, FileImage* image = nullptr) {
    return OpenRecordFile(reader_, path, platform::File::Mode::kReadWrite, image);
  }
  [[nodiscard]] bool Next() { return reader_.Next(); }
  [[nodiscard]] int code() const { return reader_.code(); }
  [[nodiscard]] RecordSpan<Format> bytes() const {
    return RecordSpan<Format>(reader_.record(), Format::kSize);
  }
  [[nodiscard]] typename Format::Record Decode() const { return Format::Decode(bytes()); }
  [[nodiscard]] std::int64_t offset() const { return reader_.offset(); }
  [[nodiscard]] std::int32_t last_id() const { return reader_.last_id(); }
  [[nodiscard]] platform::File TakeFile() { return reader_.TakeFile(); }

 private:
  MarkedReader reader_{Format::kSize};
};

/// A record found for a change, with its file, open and locked, for UnitOfWork::Adopt.
template <typename Format>
struct LocatedRecord {
  int code = ERR_NOT_FOUND;  ///< 0: the rest is filled in
  platform::File file;
  std::int64_t offset = 0;
  std::array<std::byte, Format::kSize> bytes{};
};

/// Looks for the record that `is_meant(RecordSpan<Format>)` names: the first that is not deleted,
/// else the first at all (damage behind a deleted one does not hide it). code: 0, ERR_OPEN,
/// ERR_FORMAT, ERR_IO, or ERR_NOT_FOUND after a whole and sound file.
template <typename Format, typename Test>
[[nodiscard]] LocatedRecord<Format> LocateRecord(const std::string& path, Test is_meant) {
  LocatedRecord<Format> located;
  RecordScanner<Format> scan;
  if (const int code = scan.Open(path); code != 0) {
    located.code = code;
    return located;
  }
  while (scan.Next()) {
    const RecordSpan<Format> bytes = scan.bytes();
    if (!is_meant(bytes)) continue;
    const bool live = bytes[Format::kDeleted] == std::byte{0};
    if (located.code == 0 && !live) continue;
    located.code = 0;
    located.offset = scan.offset();
    std::copy(bytes.begin(), bytes.end(), located.bytes.begin());
    if (live) break;
  }
  if (located.code != 0 && scan.code() != 0) located.code = scan.code();
  located.file = scan.TakeFile();
  return located;
}

/// Where a record goes: found by OpenForAppend and FindAppendPlace.
struct AppendPlace {
  UnitOfWork::FileIndex file = 0;
  std::int64_t end_mark = 0;  ///< place of the end mark, where the new record's mark goes
  std::int32_t last_id = 0;
};

/// Opens a record file for appending and gives it to `work`; a missing one is made by Commit. 0;
/// ERR_OPEN when it cannot be opened; ERR_IO when it is too short or has a wrong magic;
/// ERR_FORMAT when it does not end with an end mark behind whole records: what would be written
/// there no reader would find.
[[nodiscard]] int OpenForAppend(UnitOfWork& work, const std::string& path, std::size_t record_size,
                                std::int32_t initial_last_id, AppendPlace& place);

/// The same for a file that `work` already holds, open for writing. 0, ERR_IO or ERR_FORMAT.
[[nodiscard]] int FindAppendPlace(UnitOfWork& work, UnitOfWork::FileIndex index,
                                  std::size_t record_size, AppendPlace& place);

/// Notes LastId + 1 as the file's LastId and gives it to `id`. 0, or ERR_IO when the ids are used
/// up or LastId is negative, which no sound file has.
[[nodiscard]] int NoteNextId(UnitOfWork& work, AppendPlace& place, std::int32_t& id);

/// Notes marks, records (of `record_size` bytes, one behind the other) and end mark as one piece.
void NoteRecords(UnitOfWork& work, const AppendPlace& place, std::span<const std::byte> records,
                 std::size_t record_size);

/// Notes the records at their place; those with an Id of 0 get the file's next ones.
template <typename Format>
[[nodiscard]] int NoteAppended(UnitOfWork& work, AppendPlace& place,
                               std::span<typename Format::Record> records) {
  std::vector<std::byte> bytes;
  bytes.reserve(records.size() * Format::kSize);
  for (auto& record : records) {
    if (record.Id == 0) {
      if (const int code = NoteNextId(work, place, record.Id); code != 0) return code;
    }
    const auto encoded = Format::Encode(record);
    bytes.insert(bytes.end(), encoded.begin(), encoded.end());
  }
  NoteRecords(work, place, bytes, Format::kSize);
  return 0;
}

/// Notes in `work` that the records shall be appended to the file; nothing is written before
/// Commit, which makes a missing file.
/// An Id of 0 is replaced by the file's next. 0, ERR_OPEN, ERR_IO or ERR_FORMAT.
template <typename Format>
[[nodiscard]] int AppendRecords(UnitOfWork& work, const std::string& path,
                                std::span<typename Format::Record> records) {
  AppendPlace place;
  int code = OpenForAppend(work, path, Format::kSize, Format::kInitialLastId, place);
  if (code == 0) code = NoteAppended<Format>(work, place, records);
  return code;
}

/// The same for one record.
template <typename Format>
[[nodiscard]] int AppendRecord(UnitOfWork& work, const std::string& path,
                               typename Format::Record& record) {
  return AppendRecords<Format>(work, path, std::span(&record, 1));
}

/// The same for a file that `work` already holds, because a record in it changes too.
template <typename Format>
[[nodiscard]] int AppendRecord(UnitOfWork& work, UnitOfWork::FileIndex file,
                               typename Format::Record& record) {
  AppendPlace place;
  int code = FindAppendPlace(work, file, Format::kSize, place);
  if (code == 0) code = NoteAppended<Format>(work, place, std::span(&record, 1));
  return code;
}

}  // namespace brovanta

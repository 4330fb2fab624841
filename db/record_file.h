// Record files: reading one in a single pass, finding the record to change, appending.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "db/error_codes.h"
#include "db/record_format.h"
#include "db/records.h"
#include "db/unit_of_work.h"
#include "platform/file.h"
#include "util/little_endian.h"

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

/// The number at an offset of a record in place.
template <typename T>
[[nodiscard]] T NumberAt(std::span<const std::byte> record, std::size_t offset) {
  return LoadLittle<T>(record.data() + offset);
}

/// The text of a field of `size` bytes in place, up to its terminator if it has one.
[[nodiscard]] std::string_view TextAt(std::span<const std::byte> record, std::size_t offset,
                                      std::size_t size);

/// Reads a file of marked records from front to back through one buffer: nothing is allocated or
/// copied per record. Holds the file open (and so locked) while it lives.
class MarkedReader {
 public:
  explicit MarkedReader(std::size_t record_size) : frame_size_(kWordSize + record_size) {}

  /// Opens the file and reads what stands before the first mark: the magic and, where
  /// `first_mark` is behind it, LastId. 0, ERR_OPEN, or ERR_FORMAT for a wrong magic.
  [[nodiscard]] int Open(const std::string& path, platform::File::Mode mode,
                         std::size_t first_mark);

  /// Goes to the next record. False at the end mark (what stands behind it is ignored) and at an
  /// error; code() tells which.
  [[nodiscard]] bool Next() {
    if (end_ - next_ < frame_size_) Fill();
    if (end_ - next_ < frame_size_ ||
        LoadLittle<std::uint32_t>(buffer_.get() + next_) != RECORD_MARK) {
      code_ = CodeAtMark();
      return false;
    }
    record_ = next_ + kWordSize;
    next_ += frame_size_;
    return true;
  }

  /// After Next returned false: 0 at the end mark, ERR_FORMAT for any other word than a mark and
  /// where the file ends instead of one, ERR_IO for a short record or a failed read. Before: 0.
  [[nodiscard]] int code() const { return code_; }

  /// The current record, valid until Next; its place in the file.
  [[nodiscard]] const std::byte* record() const { return buffer_.get() + record_; }
  [[nodiscard]] std::int64_t offset() const {
    return buffer_offset_ + static_cast<std::int64_t>(record_);
  }

  [[nodiscard]] std::int32_t last_id() const { return last_id_; }

  /// Gives the open file away, to be changed while it stays locked. The scan is over then.
  [[nodiscard]] platform::File TakeFile() { return std::move(file_); }

 private:
  void Fill();
  [[nodiscard]] int CodeAtMark() const;

  platform::File file_;
  std::unique_ptr<std::byte[]> buffer_;
  std::size_t frame_size_;          // mark and record
  std::size_t next_ = 0;            // in the buffer: the mark to look at next
  std::size_t end_ = 0;             // in the buffer: behind the last byte read
  std::size_t record_ = 0;          // in the buffer: the current record
  std::int64_t buffer_offset_ = 0;  // in the file: the buffer's first byte
  std::int32_t last_id_ = 0;
  int code_ = 0;
  bool read_failed_ = false;
};

/// MarkedReader over "discount.dat", "product.dat" or "purchase.dat":
///   RecordScanner<DiscountFormat> scan;
///   if (const int code = scan.Open(path); code != 0) return code;
///   while (scan.Next()) { ... scan.bytes() ... }
///   return scan.code();
template <typename Format>
class RecordScanner {
 public:
  /// 0, ERR_OPEN or ERR_FORMAT. Kept: opens for writing too, so that a read-only file is ERR_OPEN.
  [[nodiscard]] int Open(const std::string& path) {
    return reader_.Open(path, platform::File::Mode::kReadWrite, kFirstRecordMark);
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

/// Where a record goes: found by OpenForAppend.
struct AppendPlace {
  UnitOfWork::FileIndex file = 0;
  std::int64_t end_mark = 0;  ///< place of the end mark, where the new record's mark goes
  std::int32_t last_id = 0;
};

/// Opens a record file for appending and gives it to `work`; a missing one is made, empty. 0;
/// ERR_OPEN when it cannot be opened or made; ERR_IO when it is too short or has a wrong magic;
/// ERR_FORMAT when it does not end with an end mark behind whole records: what would be written
/// there no reader would find.
[[nodiscard]] int OpenForAppend(UnitOfWork& work, const std::string& path, std::size_t record_size,
                                std::int32_t initial_last_id, AppendPlace& place);

/// Notes LastId + 1 as the file's LastId and gives it to `id`. 0, or ERR_IO when the ids are used
/// up or LastId is negative, which no sound file has.
[[nodiscard]] int NoteNextId(UnitOfWork& work, const AppendPlace& place, std::int32_t& id);

/// Notes mark, record and end mark as one piece.
void NoteRecord(UnitOfWork& work, const AppendPlace& place, std::span<const std::byte> record);

/// Notes in `work` that the record shall be appended to the file; nothing is written before
/// Commit (except that a missing file is made; it goes again when Commit fails or does not come).
/// An Id of 0 is replaced by the file's next. 0, ERR_OPEN, ERR_IO or ERR_FORMAT.
template <typename Format>
[[nodiscard]] int AppendRecord(UnitOfWork& work, const std::string& path,
                               typename Format::Record& record) {
  AppendPlace place;
  int code = OpenForAppend(work, path, Format::kSize, Format::kInitialLastId, place);
  if (code == 0 && record.Id == 0) code = NoteNextId(work, place, record.Id);
  if (code == 0) NoteRecord(work, place, Format::Encode(record));
  return code;
}

}  // namespace brovanta

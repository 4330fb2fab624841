// Reading files of marked records: one pass, records and their fields in place.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "db/file_image.h"
#include "db/record_format.h"
#include "platform/file.h"
#include "util/little_endian.h"

namespace brovanta {

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
  /// `first_mark` is behind it, LastId. 0, ERR_OPEN, or ERR_FORMAT for a wrong magic. With an
  /// image, which must outlive the scan, the bytes are taken from there where it has them.
  [[nodiscard]] int Open(const std::string& path, platform::File::Mode mode, std::size_t first_mark,
                         FileImage* image = nullptr);

  /// Lets the file go; the reader can be opened anew.
  void Close() { *this = MarkedReader(frame_size_ - kWordSize); }

  /// Goes to the next record. False at the end mark (what stands behind it is ignored) and at an
  /// error; code() tells which.
  [[nodiscard]] bool Next() {
    if (end_ - next_ < frame_size_) Fill();
    if (end_ - next_ < frame_size_ || LoadLittle<std::uint32_t>(data_ + next_) != RECORD_MARK) {
      code_ = CodeAtMark();
      return false;
    }
    record_ = next_ + kWordSize;
    next_ += frame_size_;
    // Most records are looked at in one spot only, which the processor does not foresee.
    __builtin_prefetch(data_ + std::min(next_ + kAhead * frame_size_, end_));
    return true;
  }

  /// After Next returned false: 0 at the end mark, ERR_FORMAT for any other word than a mark and
  /// where the file ends instead of one, ERR_IO for a short record or a failed read. Before: 0.
  [[nodiscard]] int code() const { return code_; }

  /// Whether the system did not give the file's bytes; what they are, nobody knows then.
  [[nodiscard]] bool read_failed() const { return read_failed_; }

  /// The current record, valid until Next; its place in the file.
  [[nodiscard]] const std::byte* record() const { return data_ + record_; }
  [[nodiscard]] std::int64_t offset() const {
    return buffer_offset_ + static_cast<std::int64_t>(record_);
  }

  [[nodiscard]] std::int32_t last_id() const { return last_id_; }

  /// Gives the open file away, to be changed while it stays locked. The scan is over then.
  [[nodiscard]] platform::File TakeFile() { return std::move(file_); }

 private:
  static constexpr std::size_t kAhead = 12;  // records

  void Fill();
  [[nodiscard]] int CodeAtMark() const;

  platform::File file_;
  std::unique_ptr<std::byte[]> buffer_;  // nullptr while an image gives the whole file
  const std::byte* data_ = nullptr;      // the buffer or the image; "in the buffer" below
  std::size_t frame_size_;               // mark and record
  std::size_t next_ = 0;                 // in the buffer: the mark to look at next
  std::size_t end_ = 0;                  // in the buffer: behind the last byte read
  std::size_t record_ = 0;               // in the buffer: the current record
  std::int64_t buffer_offset_ = 0;       // in the file: the buffer's first byte
  std::int32_t last_id_ = 0;
  int code_ = 0;
  bool read_failed_ = false;
};

}  // namespace brovanta

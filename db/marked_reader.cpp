#include "db/marked_reader.h"

#include <algorithm>
#include <cstring>

#include "db/error_codes.h"

namespace brovanta {
namespace {

// Small enough to stay in the processor's cache between the read and the scan.
constexpr std::size_t kBufferSize = std::size_t{128} * 1024;

}  // namespace

std::string_view TextAt(std::span<const std::byte> record, std::size_t offset, std::size_t size) {
  const auto* text = reinterpret_cast<const char*>(record.data() + offset);
  const void* end = std::memchr(text, 0, size);
  if (end != nullptr) size = static_cast<std::size_t>(static_cast<const char*>(end) - text);
  return {text, size};
}

int MarkedReader::Open(const std::string& path, platform::File::Mode mode, std::size_t first_mark,
                       FileImage* image) {
  if (!file_.Open(path, mode)) return ERR_OPEN;
  if (image != nullptr) {
    const std::span<const std::byte> whole = image->Of(file_);
    data_ = whole.data();
    end_ = whole.size();
  }
  if (data_ == nullptr) {
    buffer_ = std::make_unique_for_overwrite<std::byte[]>(kBufferSize);
    data_ = buffer_.get();
    Fill();
  }
  if (end_ < kWordSize || LoadLittle<std::uint32_t>(data_) != FILE_MAGIC) {
    return ERR_FORMAT;
  }
  // A file that ends within LastId has no mark behind it, which Next reports.
  next_ = std::min(first_mark, end_);
  if (next_ >= kLastIdOffset + kWordSize) {
    last_id_ = LoadLittle<std::int32_t>(data_ + kLastIdOffset);
  }
  return 0;
}

// Moves the rest to the front and reads until the buffer is full or the file ends.
void MarkedReader::Fill() {
  if (buffer_ == nullptr || read_failed_) return;
  const std::size_t rest = end_ - next_;
  std::memmove(buffer_.get(), buffer_.get() + next_, rest);
  buffer_offset_ += static_cast<std::int64_t>(next_);
  next_ = 0;
  end_ = rest;
  const std::int64_t count = file_.Read({buffer_.get() + rest, kBufferSize - rest});
  if (count < 0) {
    read_failed_ = true;
  } else {
    end_ += static_cast<std::size_t>(count);
  }
}

int MarkedReader::CodeAtMark() const {
  const std::size_t available = end_ - next_;
  if (available >= kWordSize) {
    const auto mark = LoadLittle<std::uint32_t>(data_ + next_);
    if (mark == END_MARK) return 0;
    return mark == RECORD_MARK ? ERR_IO : ERR_FORMAT;
  }
  return read_failed_ ? ERR_IO : ERR_FORMAT;
}

}  // namespace brovanta

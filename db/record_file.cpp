#include "db/record_file.h"

#include <cstring>
#include <limits>
#include <utility>
#include <vector>

namespace brovanta {
namespace {

// Small enough to stay in the processor's cache between the read and the scan.
constexpr std::size_t kBufferSize = 128 * 1024;

std::vector<std::byte> EmptyRecordFile(std::int32_t last_id) {
  std::vector<std::byte> bytes(kEmptyRecordFile);
  StoreLittle(bytes.data(), FILE_MAGIC);
  StoreLittle(bytes.data() + kLastIdOffset, last_id);
  StoreLittle(bytes.data() + kFirstRecordMark, END_MARK);
  return bytes;
}

}  // namespace

std::string_view TextAt(std::span<const std::byte> record, std::size_t offset, std::size_t size) {
  const auto* text = reinterpret_cast<const char*>(record.data() + offset);
  const void* end = std::memchr(text, 0, size);
  if (end != nullptr) size = static_cast<std::size_t>(static_cast<const char*>(end) - text);
  return {text, size};
}

int MarkedReader::Open(const std::string& path, platform::File::Mode mode, std::size_t first_mark) {
  if (!file_.Open(path, mode)) return ERR_OPEN;
  buffer_ = std::make_unique_for_overwrite<std::byte[]>(kBufferSize);
  Fill();
  if (end_ < kWordSize || LoadLittle<std::uint32_t>(buffer_.get()) != FILE_MAGIC) {
    return ERR_FORMAT;
  }
  // A file that ends within LastId has no mark behind it, which Next reports.
  next_ = std::min(first_mark, end_);
  if (next_ >= kLastIdOffset + kWordSize) {
    last_id_ = LoadLittle<std::int32_t>(buffer_.get() + kLastIdOffset);
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
    const auto mark = LoadLittle<std::uint32_t>(buffer_.get() + next_);
    if (mark == END_MARK) return 0;
    return mark == RECORD_MARK ? ERR_IO : ERR_FORMAT;
  }
  return read_failed_ ? ERR_IO : ERR_FORMAT;
}

int OpenForAppend(UnitOfWork& work, const std::string& path, std::size_t record_size,
                  std::int32_t initial_last_id, AppendPlace& place) {
  if (!platform::FileExists(path)) {
    if (const int code = work.Create(path, EmptyRecordFile(initial_last_id)); code != 0) {
      return code;
    }
  }
  platform::File file;
  if (!file.Open(path, platform::File::Mode::kReadWrite)) return ERR_OPEN;
  const std::int64_t size = file.Size();
  if (size < 0) return ERR_FORMAT;
  std::array<std::byte, kFirstRecordMark> header;
  if (size < static_cast<std::int64_t>(kEmptyRecordFile) ||
      file.ReadAt(0, header) != static_cast<std::int64_t>(header.size()) ||
      LoadLittle<std::uint32_t>(header.data()) != FILE_MAGIC) {
    return ERR_IO;
  }
  place.end_mark = size - static_cast<std::int64_t>(kWordSize);
  std::array<std::byte, kWordSize> mark;
  if (file.ReadAt(place.end_mark, mark) != static_cast<std::int64_t>(mark.size())) return ERR_IO;
  const auto frame = static_cast<std::int64_t>(kWordSize + record_size);
  if (LoadLittle<std::uint32_t>(mark.data()) != END_MARK ||
      (place.end_mark - static_cast<std::int64_t>(kFirstRecordMark)) % frame != 0) {
    return ERR_FORMAT;
  }
  place.last_id = LoadLittle<std::int32_t>(header.data() + kLastIdOffset);
  place.file = work.Adopt(std::move(file), path);
  return 0;
}

int NoteNextId(UnitOfWork& work, const AppendPlace& place, std::int32_t& id) {
  if (place.last_id < 0 || place.last_id == std::numeric_limits<std::int32_t>::max()) {
    return ERR_IO;
  }
  id = place.last_id + 1;
  std::array<std::byte, kWordSize> word;
  StoreLittle(word.data(), id);
  work.Write(place.file, kLastIdOffset, word);
  return 0;
}

void NoteRecord(UnitOfWork& work, const AppendPlace& place, std::span<const std::byte> record) {
  std::vector<std::byte> piece(kWordSize + record.size() + kWordSize);
  StoreLittle(piece.data(), RECORD_MARK);
  std::copy(record.begin(), record.end(), piece.begin() + kWordSize);
  StoreLittle(piece.data() + kWordSize + record.size(), END_MARK);
  work.Write(place.file, place.end_mark, piece);
}

}  // namespace brovanta

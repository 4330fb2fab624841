#include "data/framed_file.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "data/folder_report.h"
#include "data/frame.h"
#include "data/stored_result.h"
#include "db/marked_reader.h"
#include "util/little_endian.h"

namespace brovanta::data_tool {
namespace {

template <typename Word>
void AppendWord(Word word, std::string& bytes) {
  std::array<std::byte, sizeof(Word)> stored{};
  StoreLittle(stored.data(), word);
  bytes.append(reinterpret_cast<const char*>(stored.data()), stored.size());
}

}  // namespace

FramedFile TakeApart(std::string_view bytes, const FrameKind& kind) {
  FramedFile file;
  const Frame frame{kind.record_size, kind.has_last_id ? kFirstRecordMark : kFirstListMark};
  std::vector<Finding> findings;
  FileNotes notes({}, findings);
  const FileBytes stored = std::as_bytes(std::span(bytes));
  std::size_t end = frame.first_mark;
  const auto take = [&](std::size_t byte, FileBytes rest) -> std::optional<std::size_t> {
    const std::size_t size = kind.record_size != 0 ? kind.record_size : SizeOfResult(rest);
    if (size == 0) {
      notes.Add(Severity::kError, "the file is cut off: it ends within a result", byte);
      return std::nullopt;
    }
    file.records.push_back(bytes.substr(byte, size));
    end = byte + size;
    return size;
  };
  const bool whole = WalkFrame(stored, frame, notes, take);
  if (kind.has_last_id && bytes.size() >= frame.first_mark) {
    file.last_id = NumberAt<std::int32_t>(stored, kLastIdOffset);
  }
  if (whole) {
    file.behind_end = bytes.substr(end + kWordSize);
    return file;
  }
  const Finding& damage = findings.front();
  file.damage = damage.words;
  if (damage.byte) *file.damage += " (byte " + std::to_string(*damage.byte) + ")";
  return file;
}

std::string PutTogether(const FramedFile& file, const FrameKind& kind) {
  std::string bytes;
  AppendWord(FILE_MAGIC, bytes);
  if (kind.has_last_id) AppendWord(file.last_id, bytes);
  for (const std::string_view record : file.records) {
    AppendWord(RECORD_MARK, bytes);
    bytes += record;
  }
  AppendWord(END_MARK, bytes);
  return bytes.append(file.behind_end);
}

}  // namespace brovanta::data_tool

#include "data/frame.h"

#include <string>

#include "db/record_format.h"
#include "util/little_endian.h"

namespace brovanta::data_tool {
namespace {

std::uint32_t WordAt(FileBytes bytes, std::size_t at) {
  return LoadLittle<std::uint32_t>(bytes.data() + at);
}

bool Fail(FileNotes& notes, std::size_t byte, std::string words) {
  notes.Add(Severity::kError, std::move(words), byte);
  return false;
}

bool HasHead(FileBytes bytes, const Frame& frame, FileNotes& notes) {
  if (bytes.size() < kWordSize) {
    return Fail(notes, 0,
                "the file has " + std::to_string(bytes.size()) + " bytes, too few for any");
  }
  if (const std::uint32_t magic = WordAt(bytes, 0); magic != FILE_MAGIC) {
    return Fail(notes, 0,
                "the first word is " + std::to_string(magic) + " and not " +
                    std::to_string(FILE_MAGIC) + ": this is no file of the program");
  }
  return bytes.size() >= frame.first_mark || Fail(notes, kWordSize, "the file ends within LastId");
}

void LookBehindEnd(FileBytes bytes, std::size_t end, const Frame& frame, FileNotes& notes) {
  if (end == bytes.size()) return;
  const std::size_t count = bytes.size() - end;
  std::string words = std::to_string(count) + (count == 1 ? " byte stands" : " bytes stand") +
                      " behind the end mark";
  if (frame.behind_end == Severity::kError) words += ": nothing can be added to the file";
  notes.Add(frame.behind_end, std::move(words), end);
}

}  // namespace

bool WalkFrame(FileBytes bytes, const Frame& frame, FileNotes& notes, const TakeRecord& take) {
  if (!HasHead(bytes, frame, notes)) return false;
  std::size_t at = frame.first_mark;
  for (;;) {
    if (bytes.size() - at < kWordSize) {
      return Fail(notes, at, "the file is cut off: it ends where a mark should stand");
    }
    const std::uint32_t mark = WordAt(bytes, at);
    if (mark == END_MARK) break;
    if (mark != RECORD_MARK) {
      return Fail(notes, at,
                  "the word " + std::to_string(mark) +
                      " stands where a mark should be; nothing behind it can be read");
    }
    at += kWordSize;
    const FileBytes rest = bytes.subspan(at);
    if (rest.size() < frame.record_size) {
      return Fail(notes, at, "the file is cut off: it ends within a record");
    }
    const std::optional<std::size_t> size = take(at, rest);
    if (frame.record_size == 0 && !size) return false;
    at += frame.record_size != 0 ? frame.record_size : *size;
  }
  LookBehindEnd(bytes, at + kWordSize, frame, notes);
  return true;
}

}  // namespace brovanta::data_tool

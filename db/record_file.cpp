#include "db/record_file.h"

#include <limits>
#include <utility>
#include <vector>

#include "db/journal.h"
#include "util/little_endian.h"

namespace brovanta {
namespace {

std::vector<std::byte> EmptyRecordFile(std::int32_t last_id) {
  std::vector<std::byte> bytes(kEmptyRecordFile);
  StoreLittle(bytes.data(), FILE_MAGIC);
  StoreLittle(bytes.data() + kLastIdOffset, last_id);
  StoreLittle(bytes.data() + kFirstRecordMark, END_MARK);
  return bytes;
}

}  // namespace

int OpenRecordFile(MarkedReader& reader, const std::string& path, platform::File::Mode mode,
                   FileImage* image) {
  const std::string journal = JournalBeside(path);
  constexpr int kAttempts = 3;  // more than one only when programs end in the middle meanwhile
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const int code = reader.Open(path, mode, kFirstRecordMark, image);
    // Looked at while the file is locked: from here on nobody begins to change it.
    if (!MayHoldRecords(journal)) return code;
    reader.Close();
    if (const int failed = RollBackJournal(journal); failed != 0) {
      // It could not be set aside or cut, in a folder that may only be read.
      if (!HasNothingToFollow(journal)) return failed;
      const int code_then = reader.Open(path, mode, kFirstRecordMark, image);
      if (HasNothingToFollow(journal)) return code_then;
      reader.Close();
    }
  }
  return ERR_OPEN;
}

int OpenForAppend(UnitOfWork& work, const std::string& path, std::size_t record_size,
                  std::int32_t initial_last_id, AppendPlace& place) {
  if (!platform::FileExists(path)) {
    place.file = work.Make(path, EmptyRecordFile(initial_last_id));
    place.end_mark = static_cast<std::int64_t>(kFirstRecordMark);
    place.last_id = initial_last_id;
    return 0;
  }
  platform::File file;
  if (!file.Open(path, platform::File::Mode::kReadWrite)) return ERR_OPEN;
  return FindAppendPlace(work, work.Adopt(std::move(file), path), record_size, place);
}

int FindAppendPlace(UnitOfWork& work, UnitOfWork::FileIndex index, std::size_t record_size,
                    AppendPlace& place) {
  platform::File& file = work.file(index);
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
  place.file = index;
  return 0;
}

int NoteNextId(UnitOfWork& work, AppendPlace& place, std::int32_t& id) {
  if (place.last_id < 0 || place.last_id == std::numeric_limits<std::int32_t>::max()) {
    return ERR_IO;
  }
  id = ++place.last_id;
  std::array<std::byte, kWordSize> word;
  StoreLittle(word.data(), id);
  work.Write(place.file, kLastIdOffset, word);
  return 0;
}

void NoteRecords(UnitOfWork& work, const AppendPlace& place, std::span<const std::byte> records,
                 std::size_t record_size) {
  const std::size_t count = records.size() / record_size;
  std::vector<std::byte> piece(count * (kWordSize + record_size) + kWordSize);
  std::byte* to = piece.data();
  for (std::size_t i = 0; i < count; ++i) {
    StoreLittle(to, RECORD_MARK);
    const auto record = records.subspan(i * record_size, record_size);
    to = std::copy(record.begin(), record.end(), to + kWordSize);
  }
  StoreLittle(to, END_MARK);
  work.Write(place.file, place.end_mark, piece);
}

}  // namespace brovanta

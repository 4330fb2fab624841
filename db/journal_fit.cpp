#include "db/journal_fit.h"

#include <algorithm>
#include <array>
#include <optional>

#include "db/record_format.h"
#include "util/crc32.h"
#include "util/little_endian.h"

namespace brovanta {
namespace {

constexpr std::int64_t kLookedAt = std::int64_t{64} << 10;  // at either end of a file

std::int64_t SizeOf(const std::vector<std::byte>& bytes) {
  return static_cast<std::int64_t>(bytes.size());
}

// Adds the bytes from `begin` to `end` to the sum, with zeros for those that the records overwrite.
bool AddUntouched(const RecordsOfFile& records, const PresentFile& file, std::int64_t begin,
                  std::int64_t end, std::uint32_t& sum) {
  std::vector<std::byte> bytes(static_cast<std::size_t>(end - begin));
  if (file.read_at(begin, bytes) != SizeOf(bytes)) return false;
  for (const UndoRecord* record : records) {
    const std::int64_t from = std::clamp(record->offset, begin, end);
    const std::int64_t to = std::clamp(record->offset + SizeOf(record->old_bytes), begin, end);
    std::fill(bytes.begin() + (from - begin), bytes.begin() + (to - begin), std::byte{0});
  }
  sum = Crc32(bytes, sum);
  return true;
}

// Whether another record of the file explains the byte, one whose bytes are not all known included.
bool IsOfAnother(const RecordsOfFile& records, std::int64_t place, std::byte byte) {
  return std::any_of(records.begin(), records.end(), [&](const UndoRecord* record) {
    if (place < record->offset) return false;
    const auto index = static_cast<std::uint64_t>(place - record->offset);
    const std::vector<std::byte>& known = record->after->bytes;
    return index < known.size() ? known[index] == byte : known.size() == kMostNewBytes;
  });
}

// A word of the file; nothing when it cannot be read.
std::optional<std::uint32_t> WordAt(const PresentFile& file, std::int64_t offset) {
  std::array<std::byte, kWordSize> word{};
  if (file.read_at(offset, word) != static_cast<std::int64_t>(word.size())) return std::nullopt;
  return LoadLittle<std::uint32_t>(word.data());
}

// Behind the old end stand bytes that the change did not write; `place` is that of the first byte
// of the record which is not a new one. A device that publishes a size before its bytes leaves
// anything there. Somebody who has added a record of his own leaves a file that looks whole: the
// mark of a record in the place of the old end mark, and an end mark at the very end; a new file
// begins with its first word as well. So may a change of which a device has lost sectors; but these
// come whole or not at all, and the first of its sectors holds the mark.
Fit FitOfOtherBytes(const UndoRecord& record, std::int64_t place, const PresentFile& file) {
  constexpr auto kWord = static_cast<std::int64_t>(kWordSize);
  constexpr std::int64_t kSector = 512;
  const bool is_made = record.kind == UndoKind::kMade;
  const Fit fit_of_no_records = is_made ? Fit::kDoubtful : Fit::kFits;
  const std::int64_t mark_place =
      is_made ? static_cast<std::int64_t>(kFirstRecordMark) : record.old_size - kWord;
  if (mark_place < 0 || file.size < mark_place + kWord) return fit_of_no_records;
  const auto first = WordAt(file, 0);
  const auto mark = WordAt(file, mark_place);
  const auto end = WordAt(file, file.size - kWord);
  if (!first || !mark || !end) return Fit::kNotRead;
  const bool is_empty = is_made && file.size == mark_place + kWord;  // a file of no records
  const bool looks_whole =
      (!is_made || *first == FILE_MAGIC) && (*mark == RECORD_MARK || is_empty) && *end == END_MARK;
  if (!looks_whole) return fit_of_no_records;
  return place - place % kSector > record.offset ? Fit::kDoubtful : Fit::kOther;
}

// Whether where the record writes there are old bytes and new ones only.
Fit BytesFit(const RecordsOfFile& records, const UndoRecord& record, const PresentFile& file) {
  const bool in_place = record.kind == UndoKind::kOverwritten || IsMadeInPlace(records);
  std::vector<std::byte> present(record.after->bytes.size());
  const std::int64_t count = record.offset < file.size ? file.read_at(record.offset, present) : 0;
  if (count < 0) return Fit::kNotRead;
  std::optional<std::int64_t> not_new;
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    const std::int64_t place = record.offset + static_cast<std::int64_t>(i);
    if (present[i] == record.after->bytes[i] || IsOfAnother(records, place, present[i])) continue;
    if (!not_new) not_new = place;
    const bool behind = place >= record.old_size;
    if (behind && present[i] == std::byte{0}) continue;
    if (i < record.old_bytes.size() && present[i] == record.old_bytes[i]) continue;
    return behind && in_place ? FitOfOtherBytes(record, *not_new, file) : Fit::kOther;
  }
  return Fit::kFits;
}

Fit AllBytesFit(const RecordsOfFile& records, const PresentFile& file) {
  Fit all = Fit::kFits;
  for (const UndoRecord* record : records) {
    // The size after all of the change: the same in each.
    if (file.size > record->after->size) return Fit::kOther;
    const Fit fit = BytesFit(records, *record, file);
    if (fit == Fit::kOther || fit == Fit::kNotRead) return fit;
    if (fit == Fit::kDoubtful) all = fit;
  }
  return all;
}

Fit OverwrittenFits(const RecordsOfFile& records, const PresentFile& file) {
  const UndoRecord& first = *records.front();
  const bool agree =
      std::all_of(records.begin(), records.end(), [&first](const UndoRecord* record) {
        return record->old_size == first.old_size && record->after->sum == first.after->sum;
      });
  if (!agree) return Fit::kOther;
  std::uint32_t sum = 0;
  if (!SumOfUntouched(records, file, sum)) return Fit::kNotRead;
  return sum == first.after->sum ? AllBytesFit(records, file) : Fit::kOther;
}

// Whether the file is whole the old one or whole a new one: it is replaced by a rename.
Fit ReplacedFits(const RecordsOfFile& records, const PresentFile& file) {
  const UndoRecord& first = *records.front();
  constexpr std::size_t kPiece = std::size_t{64} << 10;
  bool is_old = file.size == first.old_size;
  std::uint32_t sum = 0;
  for (std::int64_t at = 0; at < file.size;) {
    std::vector<std::byte> piece(std::min(kPiece, static_cast<std::size_t>(file.size - at)));
    if (file.read_at(at, piece) != SizeOf(piece)) return Fit::kNotRead;
    is_old = is_old && std::equal(piece.begin(), piece.end(), first.old_bytes.begin() + at);
    sum = Crc32(piece, sum);
    at += SizeOf(piece);
  }
  const bool is_new = std::any_of(records.begin(), records.end(), [&](const UndoRecord* record) {
    return file.size == record->after->size && sum == record->after->sum;
  });
  return is_old || is_new ? Fit::kFits : Fit::kOther;
}

// Whether the file is what was made. One that came by a rename has a sum, which a former version
// left 0: it is whole or somebody else's.
Fit MadeFits(const RecordsOfFile& records, const PresentFile& file) {
  const bool is_told = records.front()->after->sum != 0 && !IsMadeInPlace(records);
  return is_told ? ReplacedFits(records, file) : AllBytesFit(records, file);
}

// As far as a journal of a former version tells: no change makes a file shorter.
Fit FitOfUntold(const RecordsOfFile& records, const PresentFile& file) {
  const bool fits = std::all_of(records.begin(), records.end(), [&](const UndoRecord* record) {
    return record->kind != UndoKind::kOverwritten || file.size >= record->old_size;
  });
  return fits ? Fit::kFits : Fit::kOther;
}

}  // namespace

bool IsMadeInPlace(const RecordsOfFile& records) {
  return std::any_of(records.begin(), records.end(), [](const UndoRecord* record) {
    return record->kind == UndoKind::kMade && record->offset != 0;
  });
}

std::map<std::string, RecordsOfFile> ByFile(std::span<const UndoRecord> records) {
  std::map<std::string, RecordsOfFile> files;
  for (const UndoRecord& record : records) files[record.name].push_back(&record);
  return files;
}

Fit FitOf(const RecordsOfFile& records, const PresentFile& file) {
  const auto tells = [](const UndoRecord* record) { return record->after.has_value(); };
  if (std::none_of(records.begin(), records.end(), tells)) return FitOfUntold(records, file);
  if (!std::all_of(records.begin(), records.end(), tells)) return Fit::kOther;
  switch (records.front()->kind) {
    case UndoKind::kOverwritten:
      return file.size < records.front()->old_size ? Fit::kOther : OverwrittenFits(records, file);
    case UndoKind::kReplaced:
      return file.size == PresentFile::kMissing ? Fit::kFits : ReplacedFits(records, file);
    case UndoKind::kMade:
      return file.size == PresentFile::kMissing ? Fit::kFits : MadeFits(records, file);
  }
  return Fit::kOther;
}

bool SumOfUntouched(const RecordsOfFile& records, const PresentFile& file, std::uint32_t& sum) {
  const std::int64_t size = records.front()->old_size;
  const std::int64_t head = std::min(size, kLookedAt);
  sum = 0;
  return AddUntouched(records, file, 0, head, sum) &&
         AddUntouched(records, file, std::max(head, size - kLookedAt), size, sum);
}

}  // namespace brovanta

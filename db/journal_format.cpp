#include "db/journal_format.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <string_view>
#include <system_error>
#include <utility>

#include "db/file_names.h"
#include "util/crc32.h"
#include "util/little_endian.h"

namespace brovanta {
namespace {

namespace header = journal_layout;
namespace undo = undo_layout;
using Bytes = std::vector<std::byte>;

template <typename T>
void Append(Bytes& bytes, T value) {
  bytes.resize(bytes.size() + sizeof value);
  StoreLittle(bytes.data() + bytes.size() - sizeof value, value);
}

void AppendBytes(Bytes& bytes, std::span<const std::byte> more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

std::size_t EncodedSize(const UndoRecord& record) {
  const std::size_t after = record.after ? undo::kNewBytes + record.after->bytes.size() : 0;
  return undo::kName + record.name.size() + record.old_bytes.size() + after + undo::kChecksumSize;
}

// The name of a results file: a number as it is written into a path.
bool IsResultsName(std::string_view name) {
  constexpr std::string_view kSuffix = ".dat";
  if (!name.ends_with(kSuffix)) return false;
  name.remove_suffix(kSuffix.size());
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  return error == std::errc() && std::to_string(number) == name;
}

// Whether what a record says of the state after the change goes with what it says of that before.
bool AfterMakesSense(const UndoRecord& record) {
  if (!record.after) return true;
  const AfterChange& after = *record.after;
  const auto count = static_cast<std::int64_t>(after.bytes.size());
  if (after.size < 0 || after.bytes.size() > kMostNewBytes) return false;
  switch (record.kind) {
    case UndoKind::kOverwritten:
      return after.size >= record.old_size && record.offset <= after.size - count;
    case UndoKind::kReplaced:
      return count == 0;
    case UndoKind::kMade:
      return record.offset <= after.size - count;
  }
  return false;
}

bool MakesSense(const UndoRecord& record) {
  const auto count = static_cast<std::int64_t>(record.old_bytes.size());
  if (!IsUndoName(record.name) || record.old_size < 0 || record.offset < 0) return false;
  if (!AfterMakesSense(record)) return false;
  switch (record.kind) {
    case UndoKind::kOverwritten:
      return count == 0 ||
             (record.offset <= record.old_size && count <= record.old_size - record.offset);
    case UndoKind::kReplaced:
      return record.offset == 0 && count == record.old_size;
    case UndoKind::kMade:
      return (record.offset == 0 || record.after) && record.old_size == 0 && count == 0;
  }
  return false;
}

std::optional<AfterChange> DecodeAfter(std::span<const std::byte> bytes) {
  if (bytes.size() < undo::kNewBytes) return std::nullopt;
  const auto count = LoadLittle<std::uint32_t>(bytes.data() + undo::kNewByteCount);
  if (count > bytes.size() - undo::kNewBytes) return std::nullopt;
  AfterChange after;
  after.size = LoadLittle<std::int64_t>(bytes.data() + undo::kNewSize);
  after.sum = LoadLittle<std::uint32_t>(bytes.data() + undo::kSum);
  const auto new_bytes = bytes.subspan(undo::kNewBytes, count);
  after.bytes.assign(new_bytes.begin(), new_bytes.end());
  return after;
}

void AppendAfter(Bytes& bytes, const AfterChange& after) {
  Append(bytes, after.size);
  Append(bytes, after.sum);
  Append(bytes, static_cast<std::uint32_t>(after.bytes.size()));
  AppendBytes(bytes, after.bytes);
}

// The record at the front of `bytes`, which are those up to the journal's end; `sum` is that of all
// before, the checksums left out: a sum over bytes and their own sum is the same for all bytes.
// Nothing where it is not whole.
std::optional<UndoRecord> DecodeRecord(std::span<const std::byte> bytes, std::uint32_t& sum) {
  if (bytes.size() < undo::kName + undo::kChecksumSize) return std::nullopt;
  const auto name_length = LoadLittle<std::uint32_t>(bytes.data() + undo::kNameLength);
  const auto byte_count = LoadLittle<std::uint64_t>(bytes.data() + undo::kByteCount);
  const std::size_t left = bytes.size() - undo::kName - undo::kChecksumSize;
  if (name_length > left || byte_count > left - name_length) return std::nullopt;
  std::size_t end = undo::kName + name_length + static_cast<std::size_t>(byte_count);
  auto kind = LoadLittle<std::uint32_t>(bytes.data() + undo::kKind);
  std::optional<AfterChange> after;
  if (kind > undo::kToldKinds) {
    kind -= undo::kToldKinds;
    after = DecodeAfter(bytes.subspan(end, bytes.size() - undo::kChecksumSize - end));
    if (!after) return std::nullopt;
    end += undo::kNewBytes + after->bytes.size();
  }
  sum = Crc32(bytes.first(end), sum);
  if (sum != LoadLittle<std::uint32_t>(bytes.data() + end)) return std::nullopt;
  UndoRecord record;
  record.kind = static_cast<UndoKind>(kind);
  record.name.assign(reinterpret_cast<const char*>(bytes.data()) + undo::kName, name_length);
  record.old_size = LoadLittle<std::int64_t>(bytes.data() + undo::kOldSize);
  record.offset = LoadLittle<std::int64_t>(bytes.data() + undo::kOffset);
  const auto old_bytes = bytes.subspan(undo::kName + name_length, byte_count);
  record.old_bytes.assign(old_bytes.begin(), old_bytes.end());
  record.after = std::move(after);
  return MakesSense(record) ? std::optional(std::move(record)) : std::nullopt;
}

bool HasFirstWords(std::span<const std::byte> first) {
  return first.size() >= header::kEmptySize &&
         LoadLittle<std::uint32_t>(first.data() + header::kMagic) == JOURNAL_MAGIC &&
         LoadLittle<std::uint32_t>(first.data() + header::kVersion) == kJournalVersion;
}

// No change writes into a file and replaces it as well; whoever put both back would stand in his
// own way.
bool AgreeOnKinds(std::span<const UndoRecord> records) {
  std::map<std::string_view, UndoKind> kinds;
  return std::all_of(records.begin(), records.end(), [&kinds](const UndoRecord& record) {
    return kinds.try_emplace(record.name, record.kind).first->second == record.kind;
  });
}

}  // namespace

bool IsUndoName(std::string_view name) {
  if (name.size() > kLongestUndoName || name == kJournalName) return false;
  constexpr std::string_view kFolder = kResultsFolder;
  if (name.starts_with(kFolder) && name.substr(kFolder.size()).starts_with('/')) {
    return IsResultsName(name.substr(kFolder.size() + 1));
  }
  return !name.empty() && name != "." && name != ".." &&
         name.find_first_of(std::string_view("/\\\0", 3)) == std::string_view::npos;
}

std::vector<std::byte> EncodeEmptyJournal() {
  Bytes bytes;
  Append(bytes, JOURNAL_MAGIC);
  Append(bytes, kJournalVersion);
  return bytes;
}

std::vector<std::byte> EncodeJournal(std::span<const UndoRecord> records) {
  std::size_t length = header::kFirstRecord;
  for (const UndoRecord& record : records) length += EncodedSize(record);
  Bytes bytes = EncodeEmptyJournal();
  bytes.reserve(length);
  Append(bytes, static_cast<std::uint32_t>(records.size()));
  Append(bytes, static_cast<std::uint64_t>(length));
  std::uint32_t sum = Crc32(bytes);
  Append(bytes, sum);
  for (const UndoRecord& record : records) {
    const std::size_t start = bytes.size();
    const std::uint32_t told = record.after ? undo::kToldKinds : 0;
    Append(bytes, static_cast<std::uint32_t>(record.kind) + told);
    Append(bytes, static_cast<std::uint32_t>(record.name.size()));
    Append(bytes, record.old_size);
    Append(bytes, record.offset);
    Append(bytes, static_cast<std::uint64_t>(record.old_bytes.size()));
    AppendBytes(bytes, std::as_bytes(std::span(record.name)));
    AppendBytes(bytes, record.old_bytes);
    if (record.after) AppendAfter(bytes, *record.after);
    sum = Crc32(std::span(bytes).subspan(start), sum);
    Append(bytes, sum);
  }
  return bytes;
}

bool IsJournalStart(std::span<const std::byte> first, std::uint64_t size) {
  if (!HasFirstWords(first)) return false;
  return size == header::kEmptySize ||
         (first.size() >= header::kFirstRecord &&
          LoadLittle<std::uint64_t>(first.data() + header::kLength) == size &&
          LoadLittle<std::uint32_t>(first.data() + header::kChecksum) ==
              Crc32(first.first(header::kChecksum)));
}

bool IsEmptiedJournal(std::span<const std::byte> first) {
  if (!HasFirstWords(first) || first.size() == header::kEmptySize) return false;
  const std::size_t end = std::min(first.size(), header::kFirstRecord);
  const auto rest = first.first(end).subspan(header::kEmptySize);
  return std::all_of(rest.begin(), rest.end(), [](std::byte byte) { return byte == std::byte{0}; });
}

std::optional<std::vector<UndoRecord>> DecodeJournal(std::span<const std::byte> bytes) {
  if (!IsJournalStart(bytes, bytes.size())) return std::nullopt;
  std::vector<UndoRecord> records;
  if (bytes.size() == header::kEmptySize) return records;
  const auto count = LoadLittle<std::uint32_t>(bytes.data() + header::kCount);
  if (count == 0) return std::nullopt;  // written without need, and in the way of readers
  std::uint32_t sum = Crc32(bytes.first(header::kChecksum));
  std::span<const std::byte> rest = bytes.subspan(header::kFirstRecord);
  for (std::uint32_t i = 0; i < count; ++i) {
    auto record = DecodeRecord(rest, sum);
    if (!record) return std::nullopt;
    rest = rest.subspan(EncodedSize(*record));
    records.push_back(*std::move(record));
  }
  if (!rest.empty() || !AgreeOnKinds(records)) return std::nullopt;
  return records;
}

}  // namespace brovanta

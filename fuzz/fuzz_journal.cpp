// Any bytes as "backup.dat" beside record files: rolled back to the last record or set aside, what
// may be somebody else's is kept, and what the journal does not name stays as it is.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "db/journal.h"
#include "db/journal_fit.h"
#include "fuzz/scratch_folder.h"

namespace brovanta {
namespace {

using fuzz::Require;
using Files = std::map<std::string, std::string>;

constexpr char kJournal[] = "data/backup.dat";
constexpr char kProduct[] = "0123456789abcdef";
constexpr std::size_t kMostRecords = 12;

std::string Text(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

void PrepareFiles(fuzz::ScratchFolder& folder) {
  folder.Clear();
  folder.AddFolder("data");
  folder.AddFolder("data/WebSearch");
  folder.Write("data/product.dat", kProduct);
  folder.Write("data/purchase.dat", "");
  folder.Write("data/store.lst", "a list");
  folder.Write("data/other.dat", "of nobody's");
  folder.Write("outside.dat", "out of reach");
}

/// Numbers and texts out of the input, zeros behind its end.
class Choices {
 public:
  explicit Choices(std::string_view input) : input_(input) {}
  [[nodiscard]] bool empty() const { return input_.empty(); }
  std::uint8_t Byte() {
    if (input_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(input_.front());
    input_.remove_prefix(1);
    return byte;
  }
  std::string_view Take(std::size_t size) {
    const std::string_view taken = input_.substr(0, size);
    input_.remove_prefix(taken.size());
    return taken;
  }

 private:
  std::string_view input_;
};

// A name of a file, or another one; mostly those that there are.
std::string NameFrom(Choices& choices) {
  static constexpr std::array<const char*, 11> kNames = {
      "product.dat", "purchase.dat",   "store.lst",   "missing.dat", "WebSearch",      "backup.dat",
      "..",          "../outside.dat", "product.dat", "store.lst",   "WebSearch/7.dat"};
  const std::uint8_t which = choices.Byte();
  if (which < kNames.size()) return kNames[which];
  return std::string(choices.Take(which % 16));
}

// What a change would have noted of the files as they are, so that some journals are followed.
void NoteTrueSums(std::vector<UndoRecord>& records) {
  const std::string product = kProduct;
  PresentFile file{static_cast<std::int64_t>(product.size()), {}};
  file.read_at = [&](std::int64_t offset, std::span<std::byte> bytes) {
    const auto all = std::as_bytes(std::span(product)).subspan(static_cast<std::size_t>(offset));
    const auto piece = all.first(std::min(bytes.size(), all.size()));
    std::copy(piece.begin(), piece.end(), bytes.begin());
    return static_cast<std::int64_t>(piece.size());
  };
  for (auto& [name, of_file] : ByFile(records)) {
    const UndoRecord& first = *of_file.front();
    std::uint32_t sum = 0;
    if (name != "product.dat" || first.old_size < 0 || first.old_size > file.size ||
        !SumOfUntouched(of_file, file, sum)) {
      continue;
    }
    for (UndoRecord& record : records) {
      if (record.name == name && record.after) record.after->sum = sum;
    }
  }
}

// A journal with true checksums, whatever its records say.
std::string JournalFrom(Choices choices) {
  std::vector<UndoRecord> records;
  while (!choices.empty() && records.size() < kMostRecords) {
    UndoRecord record;
    const std::uint8_t kind = choices.Byte();
    const bool tells = kind / 5 % 2 != 0;
    record.kind = static_cast<UndoKind>(kind % 5);
    record.name = NameFrom(choices);
    record.old_size = static_cast<std::int8_t>(choices.Byte());
    record.offset = static_cast<std::int8_t>(choices.Byte());
    const auto bytes = std::as_bytes(std::span(choices.Take(choices.Byte() % 32)));
    record.old_bytes.assign(bytes.begin(), bytes.end());
    if (tells) {
      record.after.emplace().size = static_cast<std::int8_t>(choices.Byte());
      const auto after = std::as_bytes(std::span(choices.Take(choices.Byte() % 32)));
      record.after->bytes.assign(after.begin(), after.end());
    }
    records.push_back(std::move(record));
  }
  NoteTrueSums(records);
  return Text(EncodeJournal(records));
}

// What following the records must lead to.
void Undo(Files& files, const UndoRecord& record) {
  const std::string name = "data/" + record.name;
  switch (record.kind) {
    case UndoKind::kMade:
      files.erase(name);
      return;
    case UndoKind::kReplaced:
      files[name] = Text(record.old_bytes);
      return;
    case UndoKind::kOverwritten: {
      std::string& bytes = files.at(name);
      if (!record.old_bytes.empty()) {
        const auto offset = static_cast<std::size_t>(record.offset);
        bytes.resize(std::max(bytes.size(), offset + record.old_bytes.size()));
        bytes.replace(offset, record.old_bytes.size(), Text(record.old_bytes));
      }
      bytes.resize(static_cast<std::size_t>(record.old_size));
      return;
    }
  }
}

// A file that may be somebody else's is kept beside its name before it changes.
void TakeKept(Files& is, const Files& before, const Files& expected,
              const std::vector<UndoRecord>& records) {
  for (const UndoRecord& record : records) {
    const std::string name = "data/" + record.name;
    const auto kept = is.find(name + ".bad");
    if (kept == is.end() || expected.contains(kept->first)) continue;
    const auto old = before.find(name);
    Require(old != before.end() && old->second == kept->second, "what is kept is the file before");
    is.erase(kept);
  }
}

void Check(const Files& before, const Files& after, const std::string& journal) {
  Files expected = before;
  expected.erase(kJournal);
  Files is = after;
  const auto aside = is.find("data/backup.dat.bad");
  if (aside != is.end()) {
    Require(aside->second == journal && !is.contains(kJournal), "set aside as it was");
    is.erase(aside);
    Require(is == expected, "what is set aside is not followed");
    return;
  }
  const auto bytes = std::as_bytes(std::span(journal));
  const auto records = DecodeJournal(bytes);
  Require(records || IsEmptiedJournal(bytes) || journal.empty(), "what is followed can be read");
  if (records) {
    for (const UndoRecord& record : *records) Undo(expected, record);
  }
  const std::string empty = Text(EncodeEmptyJournal());
  Require(is[kJournal] == (journal.empty() ? "" : empty), "the journal is empty afterwards");
  is.erase(kJournal);
  if (records) TakeKept(is, before, expected, *records);
  Require(is == expected, "rolled back to the last record");
}

void Run(fuzz::ScratchFolder& folder, const std::string& journal) {
  PrepareFiles(folder);
  folder.Write(kJournal, journal);
  const Files before = folder.Files();
  const std::string path = folder.path() + "/data\\backup.dat";
  Require(RollBackJournal(path) == 0, "nothing stands in the way");
  Check(before, folder.Files(), journal);
  Journal next;
  Require(next.Hold(path) == 0, "the next change can begin");
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static brovanta::fuzz::ScratchFolder folder;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  brovanta::Run(folder, std::string(input));
  brovanta::Run(folder, brovanta::JournalFrom(brovanta::Choices(input)));
  return 0;
}

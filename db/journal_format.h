// The layout of "backup.dat", the roll-back journal, and its bytes (docs/formats/journal.md).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta {

inline constexpr std::uint32_t JOURNAL_MAGIC = 80101;
inline constexpr std::uint32_t kJournalVersion = 1;

namespace journal_layout {

inline constexpr std::size_t kMagic = 0;
inline constexpr std::size_t kVersion = 4;
/// A journal that ends here is empty: there is nothing to roll back.
inline constexpr std::size_t kEmptySize = 8;
inline constexpr std::size_t kCount = 8;      // of records
inline constexpr std::size_t kLength = 12;    // of the journal, 8 bytes
inline constexpr std::size_t kChecksum = 20;  // of the bytes before it
inline constexpr std::size_t kFirstRecord = 24;

}  // namespace journal_layout

namespace undo_layout {

inline constexpr std::size_t kKind = 0;
inline constexpr std::size_t kNameLength = 4;
inline constexpr std::size_t kOldSize = 8;
inline constexpr std::size_t kOffset = 16;
inline constexpr std::size_t kByteCount = 24;
inline constexpr std::size_t kName = 32;  // then the bytes, what comes after, the checksum
inline constexpr std::size_t kChecksumSize = 4;

/// What stands after the change, behind the old bytes of a record that tells it. Its kind is then
/// this much higher.
inline constexpr std::uint32_t kToldKinds = 3;
inline constexpr std::size_t kNewSize = 0;
inline constexpr std::size_t kSum = 8;
inline constexpr std::size_t kNewByteCount = 12;
inline constexpr std::size_t kNewBytes = 16;

}  // namespace undo_layout

/// A file that is put back whole is written beside itself first, under a name seven bytes longer.
inline constexpr std::size_t kLongestUndoName = 248;

/// The journal's own name, which no record may have.
inline constexpr std::string_view kJournalName = "backup.dat";

enum class UndoKind : std::uint32_t {
  kOverwritten = 1,  ///< bytes of a file are written over, and the file may grow
  kReplaced = 2,     ///< another file takes the place of this one
  kMade = 3,         ///< a file that was not there is made
};

/// Of the bytes that a change writes a record keeps no more than these.
inline constexpr std::size_t kMostNewBytes = 1024;

/// By what the file of a change is known again, whole or half done (db/journal_fit.h).
struct AfterChange {
  std::int64_t size = 0;         ///< of the file after all of the change
  std::uint32_t sum = 0;         ///< kOverwritten: of what stays; kReplaced: of the new file
  std::vector<std::byte> bytes;  ///< the first that are written at the record's offset

  friend bool operator==(const AfterChange&, const AfterChange&) = default;
};

/// What is needed to undo one change.
struct UndoRecord {
  UndoKind kind = UndoKind::kOverwritten;
  std::string name;           ///< of the file: beside the journal, or "WebSearch/2.dat"
  std::int64_t old_size = 0;  ///< of the file
  std::int64_t offset = 0;    ///< where the old bytes stood
  std::vector<std::byte> old_bytes;
  std::optional<AfterChange> after = std::nullopt;  ///< nothing in a journal of a former version

  friend bool operator==(const UndoRecord&, const UndoRecord&) = default;
};

/// Whether a record may have the name: a file beside the journal other than itself, or a results
/// file ("WebSearch/N.dat").
[[nodiscard]] bool IsUndoName(std::string_view name);

/// The bytes of an empty journal.
[[nodiscard]] std::vector<std::byte> EncodeEmptyJournal();

/// The bytes of a journal with these records.
[[nodiscard]] std::vector<std::byte> EncodeJournal(std::span<const UndoRecord> records);

/// Whether the first bytes of a file, kFirstRecord of them or all that there are, can begin a
/// journal of `size` bytes: what does not is not worth being read whole.
[[nodiscard]] bool IsJournalStart(std::span<const std::byte> first, std::uint64_t size);

/// Whether the first bytes of a file, at least kFirstRecord of them or all that there are, are
/// those of a journal that was emptied and is still to be cut: behind the version there are bytes,
/// and zeros up to where the first record would stand.
[[nodiscard]] bool IsEmptiedJournal(std::span<const std::byte> first);

/// The records of a journal, none for an empty one; nothing unless every byte is as EncodeJournal
/// writes it and every record makes sense, and no file is changed in two ways: a journal that is
/// foreign, or was not written to its end.
[[nodiscard]] std::optional<std::vector<UndoRecord>> DecodeJournal(
    std::span<const std::byte> bytes);

}  // namespace brovanta

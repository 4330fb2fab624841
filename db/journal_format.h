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
inline constexpr std::size_t kName = 32;  // then the bytes, then the checksum
inline constexpr std::size_t kChecksumSize = 4;

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

/// What is needed to undo one change.
struct UndoRecord {
  UndoKind kind = UndoKind::kOverwritten;
  std::string name;           ///< of the file: beside the journal, or "WebSearch/2.dat"
  std::int64_t old_size = 0;  ///< of the file
  std::int64_t offset = 0;    ///< where the old bytes stood
  std::vector<std::byte> old_bytes;

  friend bool operator==(const UndoRecord&, const UndoRecord&) = default;
};

/// The bytes of an empty journal.
[[nodiscard]] std::vector<std::byte> EncodeEmptyJournal();

/// The bytes of a journal with these records.
[[nodiscard]] std::vector<std::byte> EncodeJournal(std::span<const UndoRecord> records);

/// Whether the first bytes of a file, kFirstRecord of them or all that there are, can begin a
/// journal of `size` bytes: what does not is not worth being read whole.
[[nodiscard]] bool IsJournalStart(std::span<const std::byte> first, std::uint64_t size);

/// The records of a journal, none for an empty one; nothing unless every byte is as EncodeJournal
/// writes it and every record makes sense, and no file is changed in two ways: a journal that is
/// foreign, or was not written to its end.
[[nodiscard]] std::optional<std::vector<UndoRecord>> DecodeJournal(
    std::span<const std::byte> bytes);

}  // namespace brovanta

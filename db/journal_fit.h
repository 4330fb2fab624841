// Whether the records of a journal belong to the file beside it: only then may they be followed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "db/journal_format.h"

namespace brovanta {

/// A file as it is now.
struct PresentFile {
  static constexpr std::int64_t kMissing = -1;

  std::int64_t size = kMissing;
  /// Reads at the offset; the number of bytes read, fewer only at the end of the file, or -1.
  std::function<std::int64_t(std::int64_t, std::span<std::byte>)> read_at;
};

enum class Fit {
  kFits,      ///< the file is what the change can have left, at whichever byte it ended
  kDoubtful,  ///< it can, and somebody else can as well: its bytes are to be kept before it changes
  kOther,     ///< another file, or one that someone has changed since
  kNotRead,   ///< the file could not be read
};

using RecordsOfFile = std::vector<const UndoRecord*>;

/// The records by the names of their files.
[[nodiscard]] std::map<std::string, RecordsOfFile> ByFile(std::span<const UndoRecord> records);

/// Looks at the file of the records, which are all of that file. Half of a change is a mixture of
/// old and new bytes, and of zeros behind the old end, in a file between its old size and its new
/// one; where the power went, with sectors of anything behind the old end. Records that do not tell
/// what comes after fit every file that is not too short.
[[nodiscard]] Fit FitOf(const RecordsOfFile& records, const PresentFile& file);

/// Whether the file of the records is made empty and then written to, as a new record file is; any
/// other new file comes whole, by a rename.
[[nodiscard]] bool IsMadeInPlace(const RecordsOfFile& records);

/// The checksum of the bytes of the old file that the records, kOverwritten and all of that file,
/// leave alone: of those among its first and its last 64 KiB, so that a large file costs no more.
/// False when the file could not be read.
[[nodiscard]] bool SumOfUntouched(const RecordsOfFile& records, const PresentFile& file,
                                  std::uint32_t& sum);

}  // namespace brovanta

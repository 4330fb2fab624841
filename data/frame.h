// The frame of a file: magic, marks, and what stands between them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>

#include "data/folder_report.h"

namespace brovanta::data_tool {

using FileBytes = std::span<const std::byte>;

struct Frame {
  std::size_t record_size = 0;             ///< 0: records tell their own size
  std::size_t first_mark = 0;              ///< behind the magic, or behind LastId
  Severity behind_end = Severity::kError;  ///< bytes behind the end mark: nothing can be appended
};

/// The largest id that there can be, as LastId or in a list, and what that means.
inline constexpr std::int32_t kLastOfAllIds = std::numeric_limits<std::int32_t>::max();
inline constexpr char kUsedUp[] =
    "LastId is 2147483647: all ids are given out, and nothing can be added any more";

/// Takes the record that begins at the byte; `rest` are the bytes from there to the end of the
/// file. Where records tell their own size the result is that size, or nothing when the record is
/// not whole, which has been noted; otherwise it does not count.
using TakeRecord = std::function<std::optional<std::size_t>(std::size_t byte, FileBytes rest)>;

/// Walks over all records and notes where the frame is broken. Whether it is whole up to its end
/// mark, so that every record has been taken.
bool WalkFrame(FileBytes bytes, const Frame& frame, FileNotes& notes, const TakeRecord& take);

}  // namespace brovanta::data_tool

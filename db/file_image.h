// The bytes of a file that is loaded again and again, kept while it does not change.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "platform/file.h"

namespace brovanta {

/// Belongs to a list that reloads its file with every filter that the user chooses. The first load
/// of a state of the file leaves nothing behind, the second takes the bytes, later ones need not
/// read. Bytes are only ever held for a state that cannot be mistaken for another one.
class FileImage {
 public:
  /// A file counts as settled when it has not changed for this many seconds: longer than the
  /// steps in which any file system counts time.
  static constexpr std::int64_t kSettledSeconds = 3;

  /// Larger files are read each time.
  static constexpr std::int64_t kLargestSize = std::int64_t{64} << 20;

  /// The whole contents of the open file, or nothing when it has to be read. Valid until the next
  /// call. The position in the file stays where it is.
  [[nodiscard]] std::span<const std::byte> Of(platform::File& file);

 private:
  [[nodiscard]] bool ReadWhole(platform::File& file);

  std::optional<platform::FileState> state_;  // at the last call
  std::unique_ptr<std::byte[]> bytes_;        // nullptr: not held
};

}  // namespace brovanta

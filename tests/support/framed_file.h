// A look at the data files from outside: framing and fields read from the bytes, apart from the
// program's reader.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brovanta::test {

/// A record or list file taken apart by its frame.
struct FramedFile {
  std::uint32_t last_id = 0;         ///< record files only
  std::vector<std::string> records;  ///< the bytes of each record
};

/// Reads a file of records of this size; nothing when any part of the frame is not as documented.
[[nodiscard]] std::optional<FramedFile> ReadFramedFile(const std::string& path, bool has_last_id,
                                                       std::size_t record_size);

/// Little-endian values and zero-terminated texts out of a record's bytes.
[[nodiscard]] std::uint32_t WordAt(const std::string& record, std::size_t offset);
[[nodiscard]] std::uint16_t HalfAt(const std::string& record, std::size_t offset);
[[nodiscard]] double DoubleAt(const std::string& record, std::size_t offset);
[[nodiscard]] std::string TextAt(const std::string& record, std::size_t offset, std::size_t size);

}  // namespace brovanta::test

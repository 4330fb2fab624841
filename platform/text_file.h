// Reading a file whole.
#pragma once

#include <cstdint>
#include <string>

namespace brovanta::platform {

/// The largest file that is read whole: far above any of ours, and it fits into memory.
inline constexpr std::int64_t kLargestWholeFile = std::int64_t{256} << 20;

/// Reads every byte of the file at the documented path. 0; ERR_OPEN when it does not open;
/// ERR_FORMAT when its size cannot be read; ERR_IO when fewer bytes come, when there is no memory
/// for them, or when they are more than kLargestWholeFile. `bytes` is empty then.
[[nodiscard]] int ReadWholeFile(const std::string& path, std::string& bytes);

/// The same up to the file's first zero byte, if it has one.
[[nodiscard]] int ReadTextFile(const std::string& path, std::string& text);

}  // namespace brovanta::platform

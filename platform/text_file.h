// Reading a file whole, as 8-bit text.
#pragma once

#include <string>

namespace brovanta::platform {

/// Reads the file at the documented path up to its first zero byte, if it has one. 0; ERR_OPEN when
/// it does not open; ERR_FORMAT when its size cannot be read; ERR_IO when fewer bytes come, or when
/// there is no memory for them. `text` is empty then.
[[nodiscard]] int ReadTextFile(const std::string& path, std::string& text);

}  // namespace brovanta::platform

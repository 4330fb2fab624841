// Codes that operations on files return in place of an id or 0, the same throughout the program.
#pragma once

namespace brovanta {

inline constexpr int ERR_OPEN = -11;    ///< a file could not be opened or created
inline constexpr int ERR_IO = -12;      ///< short read, failed seek or write, bad append header
inline constexpr int ERR_FORMAT = -14;  ///< wrong magic, wrong mark, size not readable, bad block

}  // namespace brovanta

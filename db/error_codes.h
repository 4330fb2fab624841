// Codes that the operations of the shopping database return in place of an id or 0.
#pragma once

namespace brovanta {

inline constexpr int ERR_OPEN = -11;       ///< a file could not be opened or created
inline constexpr int ERR_IO = -12;         ///< short read, failed seek or write, bad append header
inline constexpr int ERR_FORMAT = -14;     ///< wrong magic, wrong mark, or size not readable
inline constexpr int ERR_NOT_FOUND = -60;  ///< the record to change is not in its file

}  // namespace brovanta

// Codes that the operations of the shopping database return in place of an id or 0.
#pragma once

#include "util/error_codes.h"

namespace brovanta {

inline constexpr int ERR_NOT_FOUND = -60;  ///< the record to change is not in its file

}  // namespace brovanta

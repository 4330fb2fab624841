// Sorting by date without touching the records.
#pragma once

#include <cstdint>
#include <vector>

namespace brovanta {

/// Orders numbers by their upper 32 bits, smallest first; equal ones keep their order.
void SortByUpperHalf(std::vector<std::uint64_t>& numbers);

}  // namespace brovanta

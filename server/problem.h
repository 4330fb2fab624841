// What is wrong with a file that is to be imported, said to the person who wrote it.
#pragma once

#include <cstddef>
#include <string>

namespace brovanta::server {

struct Problem {
  std::size_t line = 0;  ///< counted from 1; 0 when it concerns the file as a whole
  std::string message;

  friend bool operator==(const Problem&, const Problem&) = default;
};

/// How many problems of one file are told; reading stops behind them.
inline constexpr std::size_t kMaxProblems = 20;

}  // namespace brovanta::server

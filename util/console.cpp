#include "util/console.h"

#include <cstdio>
#include <string>

namespace brovanta {

bool Print(std::string_view text) {
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
         std::fflush(stdout) == 0;
}

void Complain(std::string_view text) {
  const std::string line = std::string(text) + "\n";
  static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

}  // namespace brovanta

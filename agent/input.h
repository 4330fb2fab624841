// The files that the program is given.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta::agent_tool {

/// Every byte of a file, which others may read at the same time. Nothing when it cannot be read or
/// is larger than what the program ever reads whole; `error` then says why.
[[nodiscard]] std::optional<std::string> ReadInput(const std::string& path, std::string& error);

/// A stored page as the program would have it once downloaded.
struct Page {
  std::string text;
  std::size_t stored_bytes = 0;
  bool cut = false;    ///< it is longer than what the program keeps of a page
  bool zeros = false;  ///< it holds zero bytes, which the program drops with what follows each of
                       ///< them in its piece of 1,024 bytes
};
[[nodiscard]] Page PageOf(std::string_view stored);

/// The text of an agent file: up to its first zero byte.
[[nodiscard]] std::string_view AgentFileText(std::string_view stored);

/// Where bytes stand in a text, for a person.
class Lines {
 public:
  explicit Lines(std::string_view text);

  /// The line of a byte, both counted as editors do: lines from 1, bytes from 0.
  [[nodiscard]] std::size_t LineOf(std::size_t byte) const;

 private:
  std::vector<std::size_t> ends_;  // places of the line feeds
};

}  // namespace brovanta::agent_tool

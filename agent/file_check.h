// What is wrong with an agent file, seen with the loader's own eyes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta::agent_tool {

/// A field that a block does not have.
struct MissingField {
  std::string field;
  bool required = false;
  std::string why;  ///< what the loader finds in its place, as half a sentence

  friend bool operator==(const MissingField&, const MissingField&) = default;
};

enum class BlockKind { kCategory, kAgent };

struct BlockReport {
  BlockKind kind = BlockKind::kCategory;
  std::size_t start = 0;    ///< of its opening tag, in bytes
  std::size_t line = 1;     ///< the same, lines from 1
  std::int32_t number = 0;  ///< 0 when it has none
  std::optional<std::string> name;
  bool closed = true;  ///< the loader does not see a block that is never closed; nothing else of
                       ///< this report is known then
  bool taken = false;  ///< by the loader, as far as it depends on this block
  std::vector<MissingField> missing;  ///< the required ones first
  std::vector<std::string> notes;     ///< what will not work although the loader takes the block
};

struct FileReport {
  int result = 0;              ///< of the loader
  std::size_t categories = 0;  ///< that the loader takes
  std::size_t agents = 0;
  std::vector<BlockReport> blocks;  ///< in the order of the file
  std::vector<std::string> notes;   ///< about the file as a whole

  /// Whether the loader takes every block and there is an agent, so that the update takes the file.
  [[nodiscard]] bool IsGood() const;
};

/// Looks at the bytes of an agent file.
[[nodiscard]] FileReport CheckAgentFile(std::string_view stored);

}  // namespace brovanta::agent_tool

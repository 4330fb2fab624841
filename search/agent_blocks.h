// The blocks of an agent file, one by one, and the fields in them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "search/web_agent.h"

namespace brovanta {

inline constexpr char kCategoryBlock[] = "AgentType";
inline constexpr char kAgentBlock[] = "WebAgent";

/// From an opening tag to the end of the closing one.
struct AgentBlock {
  std::size_t start = 0;  ///< of the opening tag, in bytes from the file's start
  std::string text;
};

/// Walks over the blocks of one kind in the order of the file, whose text it borrows.
class AgentBlocks {
 public:
  AgentBlocks(std::string_view file, std::string_view kind);

  /// Nothing behind the last block that is closed.
  [[nodiscard]] std::optional<AgentBlock> Next();

  /// Where the opening tag stands that ended the walk because no closing one comes behind it.
  [[nodiscard]] std::optional<std::size_t> unclosed() const { return unclosed_; }

 private:
  std::string_view file_;
  std::string open_;
  std::string close_;
  std::size_t cursor_ = 0;
  std::optional<std::size_t> unclosed_;
};

/// What stands between the tags of a field; nothing when one is missing or they are in the wrong
/// order.
[[nodiscard]] std::optional<std::string> BlockText(const AgentBlock& block, std::string_view field);

/// The leading number of that, 0 when there is none.
[[nodiscard]] std::int32_t BlockNumber(const AgentBlock& block, std::string_view field);

/// The category of a block; nothing when it lacks something.
[[nodiscard]] std::optional<WebAgentType> CategoryOf(const AgentBlock& block);

/// The agent of a block, which need not be complete.
[[nodiscard]] WebAgent AgentOfBlock(const AgentBlock& block);

}  // namespace brovanta

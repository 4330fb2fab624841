#include "search/agent_configuration.h"

#include <utility>

#include "platform/text_file.h"
#include "search/agent_blocks.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

// Hands every block of the kind to `take`, which says whether it is good. 0, or ERR_FORMAT when
// the last one was not.
template <typename Take>
int ForEachBlock(std::string_view text, std::string_view kind, Take take) {
  int result = 0;
  AgentBlocks blocks(text, kind);
  while (const auto block = blocks.Next()) result = take(*block) ? 0 : ERR_FORMAT;
  return result;
}

bool TakeCategory(const AgentBlock& block, std::vector<WebAgentType>& categories) {
  auto category = CategoryOf(block);
  if (!category) return false;
  categories.push_back(std::move(*category));
  return true;
}

bool TakeAgent(const AgentBlock& block, std::vector<std::shared_ptr<const WebAgent>>& agents) {
  WebAgent agent = AgentOfBlock(block);
  if (!agent.IsComplete()) return false;
  agents.push_back(std::make_shared<const WebAgent>(std::move(agent)));
  return true;
}

}  // namespace

int ReadAgentConfiguration(std::string_view text, AgentConfiguration& configuration) {
  configuration = {};
  const int code = ForEachBlock(text, kCategoryBlock, [&](const AgentBlock& block) {
    return TakeCategory(block, configuration.categories);
  });
  if (code != 0) return code;
  return ForEachBlock(text, kAgentBlock, [&](const AgentBlock& block) {
    return TakeAgent(block, configuration.agents);
  });
}

int LoadAgentConfiguration(const std::string& path, AgentConfiguration& configuration) {
  configuration = {};
  std::string text;
  if (const int code = platform::ReadTextFile(path, text); code != 0) return code;
  return ReadAgentConfiguration(text, configuration);
}

}  // namespace brovanta

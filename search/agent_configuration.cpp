#include "search/agent_configuration.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/text_file.h"
#include "search/agent_fields.h"
#include "util/error_codes.h"
#include "util/text.h"

namespace brovanta {
namespace {

// The tags of a name.
struct Tags {
  explicit Tags(std::string_view name) {
    open.append("<").append(name).append(">");
    close.append("</").append(name).append(">");
  }
  std::string open;
  std::string close;
};

std::optional<std::string> Text(const std::string& block, const char* name) {
  const Tags tags(name);
  return TagText(block.c_str(), tags.open.c_str(), tags.close.c_str());
}

std::int32_t Number(const std::string& block, const char* name) {
  const Tags tags(name);
  return TagInt(block.c_str(), tags.open.c_str(), tags.close.c_str());
}

// Hands every block with the tags to `take`, which says whether it is good. 0, or ERR_FORMAT when
// the last one was not.
template <typename Take>
int ForEachBlock(std::string_view text, const Tags& tags, Take take) {
  int result = 0;
  std::size_t cursor = 0;
  for (;;) {
    const std::size_t start = text.find(tags.open, cursor);
    if (start == std::string_view::npos) return result;
    const std::size_t closing = text.find(tags.close, start);
    if (closing == std::string_view::npos) return result;
    cursor = closing + tags.close.size();
    result = take(std::string(text.substr(start, cursor - start))) ? 0 : ERR_FORMAT;
  }
}

bool TakeCategory(const std::string& block, std::vector<WebAgentType>& categories) {
  const std::int32_t id = Number(block, "TypeId");
  auto name = Text(block, "TypeName");
  if (id < 1 || !name) return false;
  categories.push_back({id, std::move(*name)});
  return true;
}

bool TakeAgent(const std::string& block, std::vector<std::shared_ptr<const WebAgent>>& agents) {
  WebAgent agent;
  agent.SiteId = Number(block, "SiteId");
  for (const AgentField& field : kAgentFields) agent.*field.text = Text(block, field.name);
  if (!agent.IsComplete()) return false;
  agents.push_back(std::make_shared<const WebAgent>(std::move(agent)));
  return true;
}

}  // namespace

int LoadAgentConfiguration(const std::string& path, AgentConfiguration& configuration) {
  configuration = {};
  std::string text;
  if (const int code = platform::ReadTextFile(path, text); code != 0) return code;
  const int code = ForEachBlock(text, Tags("AgentType"), [&](const std::string& block) {
    return TakeCategory(block, configuration.categories);
  });
  if (code != 0) return code;
  return ForEachBlock(text, Tags("WebAgent"), [&](const std::string& block) {
    return TakeAgent(block, configuration.agents);
  });
}

}  // namespace brovanta

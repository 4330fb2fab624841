#include "search/agent_blocks.h"

#include <utility>

#include "search/agent_fields.h"
#include "util/text.h"

namespace brovanta {
namespace {

std::string Opening(std::string_view name) { return std::string("<").append(name).append(">"); }
std::string Closing(std::string_view name) { return std::string("</").append(name).append(">"); }

}  // namespace

AgentBlocks::AgentBlocks(std::string_view file, std::string_view kind)
    : file_(file), open_(Opening(kind)), close_(Closing(kind)) {}

std::optional<AgentBlock> AgentBlocks::Next() {
  const std::size_t start = file_.find(open_, cursor_);
  if (start == std::string_view::npos) return std::nullopt;
  const std::size_t closing = file_.find(close_, start);
  if (closing == std::string_view::npos) {
    unclosed_ = start;
    return std::nullopt;
  }
  cursor_ = closing + close_.size();
  return AgentBlock{start, std::string(file_.substr(start, cursor_ - start))};
}

std::optional<std::string> BlockText(const AgentBlock& block, std::string_view field) {
  return TagText(block.text.c_str(), Opening(field).c_str(), Closing(field).c_str());
}

std::int32_t BlockNumber(const AgentBlock& block, std::string_view field) {
  return TagInt(block.text.c_str(), Opening(field).c_str(), Closing(field).c_str());
}

std::optional<WebAgentType> CategoryOf(const AgentBlock& block) {
  const std::int32_t id = BlockNumber(block, "TypeId");
  auto name = BlockText(block, "TypeName");
  if (id < 1 || !name) return std::nullopt;
  return WebAgentType{id, std::move(*name)};
}

WebAgent AgentOfBlock(const AgentBlock& block) {
  WebAgent agent;
  agent.SiteId = BlockNumber(block, "SiteId");
  for (const AgentField& field : kAgentFields) agent.*field.text = BlockText(block, field.name);
  return agent;
}

}  // namespace brovanta

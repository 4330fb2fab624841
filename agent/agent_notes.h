// What will not work in a block that is complete.
#pragma once

#include <string>
#include <vector>

#include "search/agent_configuration.h"

namespace brovanta::agent_tool {

/// About a category, given all that the loader takes from the file.
[[nodiscard]] std::vector<std::string> CategoryNotes(const WebAgentType& category,
                                                     const AgentConfiguration& configuration);

/// About an agent, given the categories of the file.
[[nodiscard]] std::vector<std::string> AgentNotes(const WebAgent& agent,
                                                  const std::vector<WebAgentType>& categories);

}  // namespace brovanta::agent_tool

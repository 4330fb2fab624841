// The agent configuration file: which shops there are and how their pages are read.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "search/web_agent.h"

namespace brovanta {

/// What a configuration file holds, in its order. Agents are shared, so that a search goes on with
/// those it runs when another configuration takes the place of this one.
struct AgentConfiguration {
  std::vector<WebAgentType> categories;
  std::vector<std::shared_ptr<const WebAgent>> agents;
};

/// Empties the lists and fills them from the text of a file, which holds no zero byte. 0, or
/// ERR_FORMAT when the last block of a kind lacks a required field. Kept: a bad block before the
/// last good one is no error and only missing, while a bad last category keeps out every agent, and
/// a bad last agent leaves those before it in the list.
[[nodiscard]] int ReadAgentConfiguration(std::string_view text, AgentConfiguration& configuration);

/// The same from the file at the documented path, up to its first zero byte. Also ERR_OPEN, ERR_IO,
/// or ERR_FORMAT when the file's size cannot be read; the lists are empty then.
[[nodiscard]] int LoadAgentConfiguration(const std::string& path,
                                         AgentConfiguration& configuration);

}  // namespace brovanta

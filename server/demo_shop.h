// A shop for trying the web search: its pages, and the agent that reads them.
#pragma once

#include <optional>
#include <string>

#include "server/query.h"

namespace brovanta::server {

/// The agent file of the demonstration: one category and one agent, whose shop is this server.
[[nodiscard]] std::string DemoAgentFile();

/// "/demo/market?words=..." lists the products whose name holds one of the words, all without
/// words; "/demo/market/item?no=N" shows one. Nothing for any other address and for unknown items.
[[nodiscard]] std::optional<std::string> DemoShopPage(const Target& target);

}  // namespace brovanta::server

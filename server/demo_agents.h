// The agent file of the demonstration.
#pragma once

#include <string>
#include <string_view>

namespace brovanta::server {

/// Three categories, the departments of the shops, and an agent for each department of each shop;
/// the slow shop has one for all. The addresses lead to this server.
[[nodiscard]] std::string DemoAgentFile();

/// Whether all agents of a file search in demonstration shops, of this version or an earlier one:
/// such a file is nobody's own work.
[[nodiscard]] bool IsDemoAgentFile(std::string_view text);

}  // namespace brovanta::server

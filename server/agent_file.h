// The agent file: which shops a handheld can search, and how to read their pages.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "server/problem.h"

namespace brovanta::server {

/// Stands in an agent file for the address and port at which the handheld reached this server.
inline constexpr std::string_view kServerToken = "{server}";

/// The longest host name and port that may take the token's place.
inline constexpr std::size_t kMaxHostLength = 255;

/// What is wrong with an agent file, so that handhelds would refuse it or lack one of its agents.
/// Only literal tags count, as they do on the handheld.
[[nodiscard]] std::vector<Problem> AgentFileProblems(std::string_view text);

/// The file with every kServerToken replaced.
[[nodiscard]] std::string WithServerAddress(std::string_view text, std::string_view host);

/// Whether the text of a Host header may be written into an agent file: a name or number with
/// perhaps a port, of harmless characters, not longer than kMaxHostLength.
[[nodiscard]] bool IsPlainHost(std::string_view host);

}  // namespace brovanta::server

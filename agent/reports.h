// What the program found out, for a person and for a script. Both kinds end with a line feed.
#pragma once

#include <optional>
#include <string>

#include "agent/address_report.h"
#include "agent/file_check.h"
#include "agent/input.h"
#include "agent/page_trial.h"
#include "search/web_agent.h"

namespace brovanta::agent_tool {

/// All that a trial's report tells of; borrows everything.
struct TrialSubject {
  const std::string& page_path;
  const Page& page;
  const WebAgent& agent;
  const std::optional<std::string>& words;  ///< as they were typed
};

[[nodiscard]] std::string CheckAsText(const FileReport& report, const std::string& path);
[[nodiscard]] std::string CheckAsJson(const FileReport& report, const std::string& path);

[[nodiscard]] std::string TrialAsText(const Trial& trial, const TrialSubject& subject);
[[nodiscard]] std::string TrialAsJson(const Trial& trial, const TrialSubject& subject);

/// The address alone, nothing when there is none.
[[nodiscard]] std::string AddressAsText(const AddressReport& report);
[[nodiscard]] std::string AddressAsJson(const AddressReport& report, const WebAgent& agent,
                                        const std::string& words);

}  // namespace brovanta::agent_tool

// The text fields of an agent in the order of its record; docs/formats/agents.md describes them.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "search/web_agent.h"

namespace brovanta {

struct AgentField {
  const char* name;  ///< of its tags: <name> and </name>
  std::optional<std::string> WebAgent::*text;
  bool required;
};

inline constexpr std::array<AgentField, 17> kAgentFields{{
    {"SiteType", &WebAgent::SiteType, true},
    {"SiteName", &WebAgent::SiteName, true},
    {"SiteAddress", &WebAgent::SiteAddress, true},
    {"FormatString", &WebAgent::FormatString, true},
    {"EndHeader", &WebAgent::EndHeader, false},
    {"StartResult", &WebAgent::StartResult, true},
    {"EndResult", &WebAgent::EndResult, true},
    {"StartItem", &WebAgent::StartItem, true},
    {"EndItem", &WebAgent::EndItem, true},
    {"StartText", &WebAgent::StartText, false},
    {"EndText", &WebAgent::EndText, false},
    {"StartURL", &WebAgent::StartURL, true},
    {"EndURL", &WebAgent::EndURL, true},
    {"StartPrice", &WebAgent::StartPrice, false},
    {"EndPrice", &WebAgent::EndPrice, false},
    {"StartPromo", &WebAgent::StartPromo, false},
    {"EndPromo", &WebAgent::EndPromo, false},
}};

}  // namespace brovanta

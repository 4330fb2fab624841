#include "search/web_agent.h"

#include <algorithm>

#include "search/agent_fields.h"

namespace brovanta {

bool WebAgent::Serves(std::int32_t category) const {
  if (!SiteType) return false;
  const std::size_t found = SiteType->find(std::to_string(category));
  if (found == std::string::npos) return false;
  if (found + 1 == SiteType->size()) return true;
  const char behind = (*SiteType)[found + 1];
  return behind == ' ' || behind == ',';
}

bool WebAgent::IsComplete() const {
  return SiteId >= 1 &&
         std::all_of(kAgentFields.begin(), kAgentFields.end(), [this](const AgentField& field) {
           return !field.required || (this->*field.text).has_value();
         });
}

}  // namespace brovanta

#include "agent/agent_notes.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "net/http/http_url.h"
#include "search/agent_fields.h"
#include "search/agent_status.h"
#include "search/query_address.h"
#include "util/readable_text.h"

namespace brovanta::agent_tool {
namespace {

using Notes = std::vector<std::string>;
using AgentText = std::optional<std::string> WebAgent::*;

struct Pair {
  const char* start_name;
  AgentText start;
  const char* end_name;
  AgentText end;
};

constexpr std::array<Pair, 3> kOptionalPairs{{
    {"StartText", &WebAgent::StartText, "EndText", &WebAgent::EndText},
    {"StartPrice", &WebAgent::StartPrice, "EndPrice", &WebAgent::EndPrice},
    {"StartPromo", &WebAgent::StartPromo, "EndPromo", &WebAgent::EndPromo},
}};

void NoteAddress(const WebAgent& agent, Notes& notes) {
  std::string address;
  const std::int32_t status = BuildQueryAddress(agent.FormatString.value_or(""), "x", address);
  if (status == AGENT_NO_KEYWORD) {
    notes.push_back("FormatString has no " + Quoted(kKeyword) +
                    " behind its beginning: every search fails with " + std::to_string(status));
    return;
  }
  const auto url = SplitUrl(address);
  if (!url || !url->is_http()) {
    notes.push_back("the query address " + Quoted(address) +
                    " is no http:// address: no page can be downloaded");
  }
}

void NotePairs(const WebAgent& agent, Notes& notes) {
  for (const Pair& pair : kOptionalPairs) {
    const bool start = (agent.*pair.start).has_value();
    const bool end = (agent.*pair.end).has_value();
    if (start == end) continue;
    notes.push_back(std::string(start ? pair.start_name : pair.end_name) +
                    " is of no use without " + (start ? pair.end_name : pair.start_name));
  }
  const bool price = agent.StartPrice && agent.EndPrice;
  const bool promo = agent.StartPromo && agent.EndPromo;
  if (!price && !promo) notes.emplace_back("no markers of a price: every item will be dropped");
}

// A marker that is empty is found wherever it is looked for.
void NoteEmptyMarkers(const WebAgent& agent, Notes& notes) {
  for (const AgentField& field : kAgentFields) {
    const auto& text = agent.*field.text;
    const std::string_view name = field.name;
    if (!text || !text->empty()) continue;
    if (name == "EndResult") {
      notes.emplace_back("EndResult is empty: no page gives an item");
    } else if (name == "EndItem" || name == "EndURL") {
      notes.push_back(std::string(name) + " is empty: the first result ends every page");
    } else if (name.starts_with("End") && name != "EndHeader") {
      notes.push_back(std::string(name) + " is empty: nothing stands in front of it");
    }
  }
  if (agent.EndHeader && agent.EndHeader->find_first_of("*?") != std::string::npos) {
    notes.emplace_back(
        "EndHeader is looked for as it stands: its \"*\" and \"?\" are no wildcards");
  }
}

}  // namespace

Notes CategoryNotes(const WebAgentType& category, const AgentConfiguration& configuration) {
  const auto serves = [&](const auto& agent) { return agent->Serves(category.TypeId); };
  const auto& agents = configuration.agents;
  if (category.TypeId > 9) return {"agents are matched by one digit: none can serve this category"};
  if (std::any_of(agents.begin(), agents.end(), serves)) return {};
  return {"no agent of the file serves it: a search in it finds nothing"};
}

Notes AgentNotes(const WebAgent& agent, const std::vector<WebAgentType>& categories) {
  Notes notes;
  const auto serves = [&](const WebAgentType& category) { return agent.Serves(category.TypeId); };
  if (std::none_of(categories.begin(), categories.end(), serves)) {
    notes.push_back("SiteType " + Quoted(agent.SiteType.value_or("")) +
                    " serves no category of the file");
  }
  NoteAddress(agent, notes);
  NotePairs(agent, notes);
  NoteEmptyMarkers(agent, notes);
  return notes;
}

}  // namespace brovanta::agent_tool

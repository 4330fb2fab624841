#include "agent/address_report.h"

#include "net/http/http_url.h"
#include "search/agent_status.h"
#include "search/query_address.h"
#include "util/readable_text.h"
#include "util/text.h"

namespace brovanta::agent_tool {

AddressReport AddressOf(const WebAgent& agent, const std::string& words) {
  AddressReport report;
  const std::string format = agent.FormatString.value_or("");
  report.status = BuildQueryAddress(format, words, report.address);
  if (report.status != 0) {
    report.address.clear();
    return report;
  }
  const std::size_t around = format.size() - (sizeof(kKeyword) - 1);
  report.cut = around + UrlEncode(words.c_str()).value_or("").size() > report.address.size();
  const auto url = SplitUrl(report.address);
  report.downloadable = url && url->is_http();
  return report;
}

std::string StatusText(std::int32_t status) {
  if (status == AGENT_NO_WORDS) return "there are no search words";
  if (status == AGENT_NO_KEYWORD) {
    return "FormatString has no " + Quoted(kKeyword) + " behind its beginning";
  }
  return "the words cannot be encoded";
}

}  // namespace brovanta::agent_tool

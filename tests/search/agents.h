// Agents for tests.
#pragma once

#include <memory>
#include <string>

#include "search/web_agent.h"

namespace brovanta::test {

/// An agent of category 1 for pages of lines "<i><t>TITLE</t><u>LINK</u>...</i>", with description
/// <x>, price <p> and promotion <o>, behind no header.
inline WebAgent PlainAgent(std::int32_t id = 1) {
  WebAgent agent;
  agent.SiteId = id;
  agent.SiteType = "1";
  agent.SiteName = "Shop " + std::to_string(id);
  agent.SiteAddress = "http://shop.example";
  agent.FormatString = "http://shop.example/find?q= KEYWORD ";
  agent.StartResult = "<i>";
  agent.EndResult = "</i>";
  agent.StartItem = "<t>";
  agent.EndItem = "</t>";
  agent.StartText = "<x>";
  agent.EndText = "</x>";
  agent.StartURL = "<u>";
  agent.EndURL = "</u>";
  agent.StartPrice = "<p>";
  agent.EndPrice = "</p>";
  agent.StartPromo = "<o>";
  agent.EndPromo = "</o>";
  return agent;
}

/// One block for it.
inline std::string Block(const std::string& title, const std::string& link,
                         const std::string& price) {
  return "<i><t>" + title + "</t><u>" + link + "</u><p>" + price + "</p></i>";
}

}  // namespace brovanta::test

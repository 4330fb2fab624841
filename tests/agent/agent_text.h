// Agent files for tests.
#pragma once

#include <map>
#include <string>

namespace brovanta::test {

/// The fields of an agent file's block, by name.
using Fields = std::map<std::string, std::string>;

/// An agent of category 1 for pages of "<li><a href="LINK">TITLE</a> $PRICE</li>".
inline Fields ShopFields() {
  return {{"SiteId", "4"},
          {"SiteType", "1"},
          {"SiteName", "Corner Shop"},
          {"SiteAddress", "http://shop.example"},
          {"FormatString", "http://shop.example/find?q= KEYWORD &n=9"},
          {"StartResult", "<li>"},
          {"EndResult", "</li>"},
          {"StartItem", "\">"},
          {"EndItem", "</a>"},
          {"StartURL", "href=\""},
          {"EndURL", "\""},
          {"StartPrice", "$"},
          {"EndPrice", "<"}};
}

/// The block of an agent on one line.
inline std::string AgentBlockText(const Fields& fields) {
  std::string text = "<WebAgent>";
  for (const auto& [name, value] : fields) {
    text.append("<").append(name).append(">").append(value);
    text.append("</").append(name).append(">");
  }
  return text + "</WebAgent>\n";
}

/// The shop's block with one field changed.
inline std::string ShopWith(const std::string& name, const std::string& value) {
  Fields fields = ShopFields();
  fields[name] = value;
  return AgentBlockText(fields);
}

/// The shop's block with one field left out.
inline std::string ShopWithout(const std::string& name) {
  Fields fields = ShopFields();
  fields.erase(name);
  return AgentBlockText(fields);
}

inline constexpr char kBooks[] =
    "<AgentType><TypeId>1</TypeId><TypeName>Books</TypeName></AgentType>\n";

}  // namespace brovanta::test

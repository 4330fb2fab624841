#include "server/demo_agents.h"

#include <array>

#include "server/agent_file.h"
#include "server/demo_page_frame.h"
#include "server/demo_result_page.h"

namespace brovanta::server {
namespace {

constexpr std::array kDepartments = {Department::kGroceries, Department::kHousehold,
                                     Department::kElectronics};

void AppendField(std::string& file, std::string_view tag, std::string_view text) {
  if (text.empty()) return;
  file.append("<").append(tag).append(">").append(text);
  file.append("</").append(tag).append(">\n");
}

void AppendMarkers(std::string& file, const ResultMarkers& markers) {
  AppendField(file, "EndHeader", markers.end_header);
  AppendField(file, "StartResult", markers.start_result);
  AppendField(file, "EndResult", markers.end_result);
  AppendField(file, "StartItem", markers.start_item);
  AppendField(file, "EndItem", markers.end_item);
  AppendField(file, "StartText", markers.start_text);
  AppendField(file, "EndText", markers.end_text);
  AppendField(file, "StartURL", markers.start_url);
  AppendField(file, "EndURL", markers.end_url);
  AppendField(file, "StartPrice", markers.start_price);
  AppendField(file, "EndPrice", markers.end_price);
  AppendField(file, "StartPromo", markers.start_promo);
  AppendField(file, "EndPromo", markers.end_promo);
}

// The agents of the file, with numbers of their own.
class AgentWriter {
 public:
  explicit AgentWriter(std::string& file) : file_(file) {}

  // `query` stands in front of the search words.
  void Add(const DemoShop& shop, std::string_view categories, std::string_view query) {
    file_ += "<WebAgent>\n";
    AppendField(file_, "SiteId", std::to_string(++number_));
    AppendField(file_, "SiteType", categories);
    AppendField(file_, "SiteName", shop.name);
    AppendField(file_, "SiteAddress", SiteAddressOf(shop));
    AppendField(file_, "FormatString",
                "http://" + std::string(kServerToken) + ShopPath(shop) + "search?" +
                    std::string(query) + "q= KEYWORD ");
    AppendMarkers(file_, MarkersOf(shop.style));
    file_ += "</WebAgent>\n";
  }

 private:
  std::string& file_;
  int number_ = 0;
};

void AppendAgents(AgentWriter& writer, const DemoShop& shop) {
  if (shop.manner == ShopManner::kSlow) {
    writer.Add(shop, "1, 2, 3", "");
    return;
  }
  for (const Department department : kDepartments) {
    if (!shop.Has(department)) continue;
    const std::string number = std::to_string(static_cast<int>(department));
    writer.Add(shop, number, "dept=" + number + "&");
  }
}

}  // namespace

std::string DemoAgentFile() {
  std::string file = "<?xml version=\"1.0\"?>\n<WebSpider>\n";
  for (const Department department : kDepartments) {
    file += "<AgentType>\n";
    AppendField(file, "TypeId", std::to_string(static_cast<int>(department)));
    AppendField(file, "TypeName", DepartmentName(department));
    file += "</AgentType>\n";
  }
  AgentWriter writer(file);
  for (const DemoShop& shop : DemoShops()) AppendAgents(writer, shop);
  return file + "</WebSpider>\n";
}

bool IsDemoAgentFile(std::string_view text) {
  constexpr std::string_view kTag = "<FormatString>";
  const std::string demo = "http://" + std::string(kServerToken) + "/demo/";
  std::size_t at = text.find(kTag);
  if (at == std::string_view::npos) return false;
  for (; at != std::string_view::npos; at = text.find(kTag, at + kTag.size())) {
    if (!text.substr(at + kTag.size()).starts_with(demo)) return false;
  }
  return true;
}

}  // namespace brovanta::server

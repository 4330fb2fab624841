#include "bench/search/shop_page.h"

namespace brovanta::bench {
namespace {

std::string Head() {
  std::string head =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head><title>Search results</title>\n"
      "<meta http-equiv=\"content-type\" content=\"text/html; charset=UTF-8\" />\n"
      "<link rel=\"stylesheet\" href=\"/static/style.css\" />\n</head>\n<body class=\"default\">\n"
      "<ul class=\"menu\">\n";
  for (int i = 0; i < 50; ++i) {
    head += "  <li><a href=\"/category/" + std::to_string(i) + "/index.html\">Category " +
            std::to_string(i) + "</a></li>\n";
  }
  return head + "</ul>\n<ol class=\"results\">\n";
}

std::string Item(std::size_t number, std::size_t filling) {
  const std::string id = std::to_string(number);
  std::string item = "<li class=\"product\">\n <div class=\"image\"><a href=\"/img/" + id +
                     "\"><img src=\"/media/cache/" + id +
                     ".jpg\" alt=\"Picture\" class=\"thumbnail\"></a></div>\n <p class=\"rating\">";
  for (int star = 0; star < 5; ++star) item += "<i class=\"icon-star\"></i>";
  item += "</p>\n <h3><a class=\"title\" href=\"/product/" + id +
          "/index.html\">Leather <b>shoe</b> number " + id + " &amp; laces</a></h3>\n";
  item += " <div class=\"about\">Soft and warm, for him &amp; for her.</div>\n";
  item += " <div class=\"price\">$" + std::to_string(10 + number % 90) + ".95</div>\n";
  if (number % 3 == 0)
    item += " <div class=\"promo\">now $" + std::to_string(number + 1) + "</div>\n";
  item += " <ul class=\"facts\">\n";
  constexpr char kFact[] = "  <li><span>Size</span><em>all from small to large</em></li>\n";
  while (item.size() + sizeof(kFact) < filling) item += kFact;
  return item +
         " </ul>\n <form><button type=\"submit\" class=\"buy\">Add</button></form>\n"
         "</li><!-- product -->\n";
}

}  // namespace

std::string ShopPage(std::size_t bytes, std::size_t items) {
  std::string page = Head();
  const std::string foot = "</ol>\n<p>";
  const std::string end = "</p>\n</body>\n</html>\n";
  const std::size_t room = (bytes - page.size() - foot.size() - end.size()) / items;
  // What comes behind the facts of an item takes about 110 bytes.
  for (std::size_t i = 0; i < items; ++i) page += Item(i, room - 120);
  page += foot;
  page.append(bytes - page.size() - end.size(), '.');
  return page + end;
}

WebAgent ShopAgent() {
  WebAgent agent;
  agent.SiteId = 1;
  agent.SiteType = "1";
  agent.SiteName = "Shop";
  agent.SiteAddress = "http://127.0.0.1";
  agent.FormatString = "http://127.0.0.1/find?q= KEYWORD ";
  agent.EndHeader = "<ol class=\"results\">";
  agent.StartResult = "<li class=\"product\">";
  agent.EndResult = "</li><!-- product -->";
  agent.StartItem = "/index.html\">";
  agent.EndItem = "</a></h3>";
  agent.StartText = "<div class=\"about\">";
  agent.EndText = "</div>";
  agent.StartURL = "<a class=\"title\" href=\"";
  agent.EndURL = "\">";
  agent.StartPrice = "<div class=\"price\">";
  agent.EndPrice = "</div>";
  agent.StartPromo = "<div class=\"promo\">";
  agent.EndPromo = "</div>";
  return agent;
}

std::string EndlessPage(std::size_t bytes) {
  std::string page;
  while (page.size() < bytes) page += "<td class=a>";
  page.resize(bytes);
  return page;
}

}  // namespace brovanta::bench

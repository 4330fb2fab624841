#include "server/demo_page_frame.h"

#include <array>
#include <string_view>

#include "server/html.h"

namespace brovanta::server {
namespace {

constexpr std::string_view kStyle = R"(
*{box-sizing:border-box}
body{margin:0;background:#f5f5f2;color:#1d1f23;font:17px/1.4 system-ui,sans-serif}
header{background:var(--accent);color:#fff;padding:14px 16px}
header b{font-size:1.15rem;letter-spacing:.02em}
form{display:flex;gap:8px;margin:10px 0 0}
input[type=search]{flex:1;min-width:0;height:44px;padding:0 12px;border:0;border-radius:8px;
 font:inherit}
button{height:44px;padding:0 16px;border:1px solid #fff;border-radius:8px;background:none;
 color:#fff;font:inherit;font-weight:600}
main{max-width:40rem;margin:0 auto;padding:18px 16px 24px;background:#fff;overflow-wrap:break-word}
h1{margin:0;font-size:1.35rem;line-height:1.25}
h2{margin:0;font-size:1.05rem;line-height:1.3}
p{margin:0 0 14px}
a{color:var(--accent)}
.count,small,.stock,dd,li span,footer{color:#565b66;font-size:.9rem}
table{width:100%;border-collapse:collapse}
td{padding:12px 8px;vertical-align:top}
.odd{background:#f3f6f4}
td.price{text-align:right}
.price,.cost,.pay,em,li strong,ins,.now{font-weight:700;font-style:normal;white-space:nowrap;
 font-size:1.05rem;color:#1d1f23;text-decoration:none}
.card{display:flex;justify-content:space-between;gap:16px;margin:0 0 10px;padding:12px 14px;
 border:1px solid #e2ddd2;border-radius:10px}
.finds{margin:0}
.finds div{display:grid;grid-template-columns:1fr auto;gap:2px 16px;padding:12px 0;
 border-top:1px solid #dfe5ec}
.finds dt{grid-column:1/3}
.finds dd{margin:0}
.hit{display:grid;grid-template-columns:1fr auto;gap:2px 16px;margin:0;padding:12px 0;
 border-top:1px solid #e5dfee}
.hit em{grid-column:2;grid-row:1}
.index{margin:24px 0 8px}
ul.index{margin:0;padding:0;list-style:none;font-size:.9rem}
ul.index li{padding:6px 0;border-top:1px solid #eee}
.list{margin:0;padding:0 0 0 28px}
.list li{padding:10px 0 10px 4px;border-top:1px solid #f0dedd}
.list strong{float:right}
article{display:grid;grid-template-columns:1fr auto;gap:4px 16px;margin:0 0 12px;padding:12px 14px;
 border-left:4px solid var(--accent);background:#f6f8f3}
article h2{grid-column:1/3}
article .was{color:#565b66;text-decoration:line-through}
article .stock{grid-column:1;align-self:center}
.go{grid-column:2;text-align:right}
ins{color:#a3261f;text-align:right}
.pricebox{display:flex;align-items:baseline;gap:12px;margin:10px 0 16px}
.pricebox strong{padding:6px 16px;border-radius:8px;background:var(--accent);color:#fff;
 font-size:1.5rem}
.facts{margin:0 0 18px;display:grid;grid-template-columns:minmax(6rem,auto) 1fr;gap:8px 16px}
.facts dt{color:#565b66}
.facts dd{margin:0;color:inherit;font-size:1rem}
footer{max-width:40rem;margin:0 auto;padding:14px 16px 24px}
)";

std::string SearchForm(const DemoShop& shop, const FrameText& text) {
  std::string form = "<form action=\"" + ShopPath(shop) + "search\">";
  if (text.department) {
    form += "<input type=\"hidden\" name=\"dept\" value=\"" +
            std::to_string(static_cast<int>(*text.department)) + "\">";
  }
  return form + "<input type=\"search\" name=\"q\" value=\"" + Escaped(text.words) +
         "\" aria-label=\"Search words\"><button>Search</button></form>";
}

std::string Fact(std::string_view name, std::string_view value) {
  return "<dt>" + std::string(name) + "</dt><dd>" + Escaped(value) + "</dd>\n";
}

}  // namespace

std::string ShopPath(const DemoShop& shop) { return "/demo/" + std::string(shop.folder) + "/"; }

std::string ShopFrame(const DemoShop& shop, const FrameText& text, const std::string& body) {
  const std::string name = Escaped(shop.name);
  std::string page = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"";
  page += shop.narrow ? "windows-1252" : "utf-8";
  page += "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
          Escaped(text.title) + " - " + name +
          "</title>\n<style>:root{--accent:" + std::string(shop.accent) + "}" +
          std::string(kStyle) + "</style>\n</head>\n<body>\n<header><b>" + name + "</b>" +
          SearchForm(shop, text) + "</header>\n<main>\n" + body + "</main>\n" +
          "<footer>A shop of the demonstration: nothing here can be bought.</footer>\n" +
          "</body>\n</html>\n";
  return page;
}

std::string ArticlePage(const DemoShop& shop, const Article& article) {
  const ShopPrice price = PriceIn(shop, article);
  std::string body = "<h1>" + Escaped(article.name) + "</h1>\n<div class=\"pricebox\"><strong>$" +
                     PriceText(price.ToPay(), true) + "</strong>";
  if (price.offer) body += "<span>instead of $" + PriceText(price.regular, true) + "</span>";
  const std::string_view department = DepartmentName(article.department);
  body += "</div>\n<dl class=\"facts\">\n" + Fact("Sold by", shop.name) +
          Fact("Made by", article.maker) + Fact("Department", department) +
          Fact("Availability", StockOf(shop, article)) +
          Fact("Article", "No. " + std::to_string(article.number)) + "</dl>\n<p><a href=\"" +
          ShopPath(shop) + "search?dept=" + std::to_string(static_cast<int>(article.department)) +
          "&amp;q=\">All of " + std::string(department) + "</a></p>\n";
  return ShopFrame(shop, {article.name, article.department, ""}, body);
}

std::string ShopsPage() {
  std::string body =
      "<h1>Shops of the demonstration</h1>\n<p>Each builds its pages in its own way."
      "</p>\n<table>\n";
  for (const DemoShop& shop : DemoShops()) {
    body += "<tr><td><a href=\"" + ShopPath(shop) + "search?q=\">" + Escaped(shop.name) +
            "</a></td></tr>\n";
  }
  return HtmlPage("Demonstration shops", body + "</table>\n");
}

}  // namespace brovanta::server

#include "server/html.h"

namespace brovanta::server {
namespace {

// White, navy and one warm accent, as in the program itself.
constexpr std::string_view kStyle = R"(
*{box-sizing:border-box}
body{margin:0;background:#f4f5f9;color:#1c1f33;font:17px/1.5 system-ui,sans-serif}
header{background:#000080;color:#fff;padding:14px 20px;font-weight:600;letter-spacing:.03em}
main{max-width:32rem;margin:20px auto;padding:24px 20px;background:#fff;border-radius:10px;
 border:1px solid #dcdfea;overflow-wrap:break-word}
h1{margin:0 0 4px;color:#000080;font-size:1.45rem;line-height:1.25}
p{margin:0 0 14px}
a{color:#000080}
.value{display:inline-block;margin:10px 0 16px;padding:6px 16px;border-radius:8px;
 background:#b3470f;color:#fff;font-size:1.5rem;font-weight:700}
.over{color:#b3470f;font-weight:600}
dl{margin:0;display:grid;grid-template-columns:minmax(5.5rem,auto) 1fr;gap:8px 16px}
dt{color:#5b6078}
dd{margin:0}
table{width:100%;border-collapse:collapse}
td{padding:10px 0;border-top:1px solid #e6e8f0;vertical-align:top}
td.price{text-align:right;white-space:nowrap;padding-left:12px}
@media(max-width:34rem){main{margin:0;border-width:0 0 1px;border-radius:0}}
)";

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char character : text) {
    switch (character) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\'':
        escaped += "&#39;";
        break;
      default:
        escaped += character;
    }
  }
  return escaped;
}

std::string HtmlPage(std::string_view title, std::string_view body) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>";
  page.append(Escaped(title)).append(" - Brovanta</title>\n<style>").append(kStyle);
  page.append("</style>\n</head>\n<body>\n<header>Brovanta</header>\n<main>\n").append(body);
  page += "</main>\n</body>\n</html>\n";
  return page;
}

std::string MessagePage(std::string_view heading, std::string_view sentence) {
  return HtmlPage(heading, "<h1>" + Escaped(heading) + "</h1>\n<p>" + Escaped(sentence) + "</p>\n");
}

}  // namespace brovanta::server

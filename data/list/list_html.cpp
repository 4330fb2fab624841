#include "data/list/list_html.h"

#include <string_view>
#include <vector>

#include "data/list/list_rows.h"
#include "data/list/list_words.h"

namespace brovanta::data_tool {
namespace {

using Kind = ListRow::Kind;

constexpr std::string_view kStyle = R"(
:root { color-scheme: light; }
body { font: 16px/1.35 sans-serif; color: #1a1a1a; background: #fff; margin: 1em auto;
  padding: 0 1em; max-width: 62em; }
h1 { font-size: 1.4em; color: #000080; margin: 0 0 .6em; }
table { border-collapse: collapse; width: 100%; }
th, td { padding: .25em .4em; text-align: right; vertical-align: top; white-space: nowrap; }
th:first-child, td:first-child { text-align: left; white-space: normal; }
thead th { border-bottom: 2px solid #000080; font-size: .85em; }
.store th { font-size: 1.15em; color: #000080; padding-top: 1em; }
.category th { color: #444; border-bottom: 1px solid #bbb; }
.remark td { color: #444; font-size: .9em; padding: 0 .4em .25em 2.2em; }
.sum td { border-top: 1px solid #bbb; font-style: italic; }
.total td { font-weight: bold; }
.first td { border-top: 2px solid #000080; padding-top: .5em; }
input { width: 1.1em; height: 1.1em; margin: 0 .5em 0 0; vertical-align: -.15em; }
label { overflow-wrap: anywhere; }
@media screen and (max-width: 45em) {
  body { margin: .6em 0; padding: 0 .7em; }
  table, tbody, tr, th, td { display: block; text-align: left; }
  thead { display: none; }
  tr.product, tr.sum, tr.total { display: flex; flex-wrap: wrap; padding: .2em 0; }
  tr.product td, tr.sum td, tr.total td { padding: 0 .9em 0 0; border: 0; }
  tr.product { border-top: 1px solid #ddd; padding-top: .45em; }
  tr.sum, tr.total.first { border-top: 1px solid #000080; }
  td:first-child { flex: 0 0 100%; }
  tr.product td:first-child { font-size: 1.1em; }
  td[data-label]:empty { display: none; }
  td[data-label]::before { content: attr(data-label) "\00a0"; color: #444; font-size: .8em; }
  tr.product td[data-label="To pay"], tr.sum td[data-label="To pay"], tr.total td[data-label="To pay"] {
    font-weight: bold; }
  .remark td { padding: 0 0 .25em; }
  .store th, .category th { padding-left: 0; }
}
@media print {
  @page { size: A4; margin: 15mm; }
  body { font-size: 10pt; margin: 0; padding: 0; max-width: none; }
  thead { display: table-header-group; }
  tr { break-inside: avoid; }
  .store, .category { break-after: avoid; }
}
)";

std::string_view ClassOf(Kind kind) {
  switch (kind) {
    case Kind::kStore:
      return "store";
    case Kind::kCategory:
      return "category";
    case Kind::kProduct:
      return "product";
    case Kind::kRemark:
      return "remark";
    case Kind::kSum:
      return "sum";
    case Kind::kTotal:
      return "total";
    case Kind::kNote:
      return "note";
  }
  return "";
}

std::string Escaped(std::string_view text) {
  std::string result;
  for (const char character : text) {
    switch (character) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        result += character;
    }
  }
  return result;
}

std::string FirstCell(const ListRow& row) {
  std::string text = Escaped(row.cells[0]);
  if (row.kind != Kind::kProduct) return text;
  return "<label><input type=\"checkbox\"/>" + text + "</label>";
}

std::string RowAsHtml(const ListRow& row, bool is_first_total) {
  std::string html = "<tr class=\"";
  html.append(ClassOf(row.kind)).append(is_first_total ? " first\">" : "\">");
  if (row.kind == Kind::kStore || row.kind == Kind::kCategory) {
    return html + "<th colspan=\"8\" scope=\"rowgroup\">" + FirstCell(row) + "</th></tr>\n";
  }
  if (row.kind == Kind::kRemark || row.kind == Kind::kNote) {
    return html + "<td colspan=\"8\">" + FirstCell(row) + "</td></tr>\n";
  }
  html += "<td>" + FirstCell(row) + "</td>";
  for (std::size_t column = 1; column < kColumnCount; ++column) {
    html.append("<td data-label=\"").append(kColumnHeadings[column]).append("\">");
    html += Escaped(row.cells[column]) + "</td>";
  }
  return html + "</tr>\n";
}

std::string TableHead() {
  std::string html = "<thead><tr>";
  for (const std::string_view heading : kColumnHeadings) {
    html.append("<th scope=\"col\">").append(heading).append("</th>");
  }
  return html + "</tr></thead>\n";
}

}  // namespace

std::string ListAsHtml(const ShoppingList& list) {
  const std::string title = Escaped(TitleOf(list));
  std::string html = "<!DOCTYPE html>\n<html lang=\"en\" xmlns=\"http://www.w3.org/1999/xhtml\">\n";
  html += "<head>\n<meta charset=\"utf-8\"/>\n";
  html += "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n";
  html += "<title>" + title + "</title>\n<style>" + std::string(kStyle) + "</style>\n</head>\n";
  html += "<body>\n<h1>" + title + "</h1>\n<table>\n";
  if (list.lines > 0) html += TableHead();
  html += "<tbody>\n";
  Kind previous = Kind::kNote;
  for (const ListRow& row : RowsOf(list)) {
    html += RowAsHtml(row, row.kind == Kind::kTotal && previous != Kind::kTotal);
    previous = row.kind;
  }
  return html + "</tbody>\n</table>\n</body>\n</html>\n";
}

}  // namespace brovanta::data_tool

#include "data/list/list_text.h"

#include <algorithm>
#include <array>
#include <vector>

#include "data/list/list_rows.h"
#include "data/list/list_words.h"
#include "data/list/plain_line.h"

namespace brovanta::data_tool {
namespace {

using Kind = ListRow::Kind;
using Widths = std::array<std::size_t, kColumnCount>;

constexpr std::string_view kGap = "  ";
constexpr std::size_t kLeastTextWidth = 60;

std::string_view Indent(Kind kind) {
  switch (kind) {
    case Kind::kStore:
    case Kind::kTotal:
    case Kind::kNote:
      return "";
    case Kind::kCategory:
    case Kind::kSum:
      return "  ";
    case Kind::kProduct:
      return "  [ ] ";
    case Kind::kRemark:
      return "        ";
  }
  return "";
}

bool HasColumns(Kind kind) {
  return kind == Kind::kProduct || kind == Kind::kSum || kind == Kind::kTotal;
}

void Widen(Widths& widths, std::size_t column, std::string_view cell) {
  widths[column] = std::max(widths[column], DisplayWidth(cell));
}

Widths WidthsOf(const std::vector<ListRow>& rows) {
  Widths widths{};
  for (std::size_t column = 0; column < kColumnCount; ++column) {
    Widen(widths, column, kColumnHeadings[column]);
  }
  for (const ListRow& row : rows) {
    if (!HasColumns(row.kind)) continue;
    Widen(widths, 0, std::string(Indent(row.kind)) + row.cells[0]);
    for (std::size_t column = 1; column < kColumnCount; ++column) {
      Widen(widths, column, row.cells[column]);
    }
  }
  return widths;
}

// A line without blanks at its end.
void AddLine(std::string& text, std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  text += line + '\n';
}

template <typename Cells>
void AddColumns(std::string& text, std::string_view indent, const Cells& cells,
                const Widths& widths) {
  std::string line(indent);
  line += cells[0];
  line.append(widths[0] - DisplayWidth(line), ' ');
  for (std::size_t column = 1; column < kColumnCount; ++column) {
    line += kGap;
    line.append(widths[column] - DisplayWidth(cells[column]), ' ');
    line += cells[column];
  }
  AddLine(text, std::move(line));
}

// Words in lines of at most `width` columns, each behind the indent; a longer word stands alone.
void AddWrapped(std::string& text, std::string_view indent, std::string_view words,
                std::size_t width) {
  std::string line(indent);
  while (!words.empty()) {
    const std::size_t blank = words.find(' ');
    const std::string_view word = words.substr(0, blank);
    words.remove_prefix(blank == std::string_view::npos ? words.size() : blank + 1);
    if (line.size() > indent.size()) {
      if (DisplayWidth(line) + 1 + DisplayWidth(word) > width) {
        AddLine(text, line);
        line = indent;
      } else {
        line += ' ';
      }
    }
    line += word;
  }
  AddLine(text, line);
}

std::size_t TotalWidth(const Widths& widths) {
  std::size_t total = (kColumnCount - 1) * kGap.size();
  for (const std::size_t width : widths) total += width;
  return total;
}

}  // namespace

std::string ListAsText(const ShoppingList& list) {
  const std::vector<ListRow> rows = RowsOf(list);
  const Widths widths = WidthsOf(rows);
  const std::size_t width = std::max(TotalWidth(widths), kLeastTextWidth);
  std::string text = TitleOf(list) + "\n\n";
  if (list.lines > 0) AddColumns(text, "", kColumnHeadings, widths);
  Kind previous = Kind::kNote;
  for (const ListRow& row : rows) {
    const bool begins_block =
        row.kind == Kind::kStore || (row.kind == Kind::kTotal && previous != Kind::kTotal);
    if (begins_block) text += '\n';
    previous = row.kind;
    if (HasColumns(row.kind)) {
      AddColumns(text, Indent(row.kind), row.cells, widths);
    } else {
      AddWrapped(text, Indent(row.kind), row.cells[0], width);
    }
  }
  return text;
}

}  // namespace brovanta::data_tool

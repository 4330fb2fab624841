#include "data/pdf/list_pdf.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "data/list/list_rows.h"
#include "data/list/list_words.h"
#include "data/pdf/pdf_page.h"

namespace brovanta::data_tool {
namespace {

using Kind = ListRow::Kind;

constexpr double kMargin = 45;
constexpr double kTextWidth = PdfPages::kWidth - 2 * kMargin;
constexpr double kBottom = PdfPages::kHeight - 58;  // the page number stands below
constexpr double kFooter = PdfPages::kHeight - 42;
constexpr double kGap = 9;
constexpr double kIndent = 14;
constexpr double kBoxSize = 7;
constexpr double kLeastFirstColumn = 120;

TextStyle StyleOf(Kind kind) {
  switch (kind) {
    case Kind::kStore:
      return {12, true, false, PANGO_ALIGN_LEFT};
    case Kind::kCategory:
      return {9.5, true, false, PANGO_ALIGN_LEFT};
    case Kind::kProduct:
      return {9.5, false, false, PANGO_ALIGN_LEFT};
    case Kind::kRemark:
      return {8.5, false, false, PANGO_ALIGN_LEFT};
    case Kind::kSum:
      return {9.5, false, true, PANGO_ALIGN_LEFT};
    case Kind::kTotal:
      return {9.5, true, false, PANGO_ALIGN_LEFT};
    case Kind::kNote:
      return {9.5, false, false, PANGO_ALIGN_LEFT};
  }
  return {};
}

constexpr TextStyle kHeadingStyle{8.5, true, false, PANGO_ALIGN_LEFT};
constexpr TextStyle kFooterStyle{8, false, false, PANGO_ALIGN_RIGHT};

double SpaceBefore(Kind kind) {
  switch (kind) {
    case Kind::kStore:
      return 12;
    case Kind::kCategory:
      return 5;
    case Kind::kProduct:
    case Kind::kSum:
    case Kind::kTotal:
      return 2.5;
    case Kind::kRemark:
      return 0;
    case Kind::kNote:
      return 8;
  }
  return 0;
}

double IndentOf(Kind kind) { return kind == Kind::kProduct || kind == Kind::kRemark ? kIndent : 0; }

bool HasColumns(Kind kind) {
  return kind == Kind::kProduct || kind == Kind::kSum || kind == Kind::kTotal;
}

class ListPrinter {
 public:
  ListPrinter(const ShoppingList& list, std::vector<ListRow> rows, std::size_t page_count)
      : title_(TitleOf(list)),
        rows_(std::move(rows)),
        page_count_(page_count),
        pages_(title_, "Brovanta") {
    MeasureColumns();
  }

  // Draws everything. The number of pages is known only then.
  std::string Print() {
    BeginPage();
    for (std::size_t i = 0; i < rows_.size(); i += BlockAt(i)) {
      if (y_ + HeightOfBlock(i) > kBottom && !page_is_empty_) NextPage(rows_[i].kind);
      for (std::size_t row = i; row < i + BlockAt(i); ++row) DrawRow(row);
    }
    EndPage();
    return pages_.Finish();
  }

  [[nodiscard]] std::size_t pages_printed() const { return page_; }

 private:
  void MeasureColumns() {
    double others = 0;
    for (std::size_t column = 1; column < kColumnCount; ++column) {
      double& width = widths_[column];
      width = pages_.WidthOf(kColumnHeadings[column], kHeadingStyle);
      for (const ListRow& row : rows_) {
        if (HasColumns(row.kind)) {
          width = std::max(width, pages_.WidthOf(row.cells[column], StyleOf(row.kind)));
        }
      }
      others += width + kGap;
    }
    widths_[0] = kTextWidth - others;
    if (widths_[0] < kLeastFirstColumn) {
      // Only a unit of many letters is that wide: it is broken into lines.
      widths_[kQuantityColumn] -= kLeastFirstColumn - widths_[0];
      widths_[kQuantityColumn] = std::max(widths_[kQuantityColumn], kLeastFirstColumn / 3);
      widths_[0] = kLeastFirstColumn;
    }
  }

  // Rows that stay together: headings with what follows them, a product with its remarks, totals.
  [[nodiscard]] std::size_t BlockAt(std::size_t first) const {
    std::size_t end = first;
    while (end < rows_.size() &&
           (rows_[end].kind == Kind::kStore || rows_[end].kind == Kind::kCategory)) {
      ++end;
    }
    if (end < rows_.size() && rows_[end].kind == Kind::kTotal) return rows_.size() - first;
    ++end;
    while (end < rows_.size() && rows_[end].kind == Kind::kRemark) ++end;
    return std::min(end, rows_.size()) - first;
  }

  double HeightOfBlock(std::size_t first) {
    double height = 0;
    for (std::size_t row = first; row < first + BlockAt(first); ++row) {
      height += SpaceBefore(rows_[row].kind) + HeightOfRow(rows_[row]);
    }
    return height;
  }

  double HeightOfRow(const ListRow& row) {
    const TextStyle style = StyleOf(row.kind);
    const double indent = IndentOf(row.kind);
    if (!HasColumns(row.kind)) return pages_.HeightOf(row.cells[0], style, kTextWidth - indent);
    double height = pages_.HeightOf(row.cells[0], style, widths_[0] - indent);
    for (std::size_t column = 1; column < kColumnCount; ++column) {
      height = std::max(height, pages_.HeightOf(row.cells[column], style, widths_[column] + 1));
    }
    return height;
  }

  void DrawRow(std::size_t index) {
    const ListRow& row = rows_[index];
    const bool first_total =
        row.kind == Kind::kTotal && (index == 0 || rows_[index - 1].kind != Kind::kTotal);
    if (first_total) {
      y_ += 8;
      pages_.Line(kMargin, y_, kTextWidth, 1);
    }
    y_ += SpaceBefore(row.kind);
    const double height = HeightOfRow(row);
    const double indent = IndentOf(row.kind);
    const TextStyle style = StyleOf(row.kind);
    if (row.kind == Kind::kStore) {
      store_ = row.cells[0];
      pages_.SetColor(0, 0, 0.5);
    }
    if (row.kind == Kind::kCategory) category_ = row.cells[0];
    if (row.kind == Kind::kRemark) pages_.SetColor(0.27, 0.27, 0.27);
    if (HasColumns(row.kind)) {
      DrawColumns(row.cells, style, indent);
    } else {
      pages_.Draw(row.cells[0], style, kMargin + indent, y_, kTextWidth - indent);
    }
    pages_.SetColor(0, 0, 0);
    if (row.kind == Kind::kProduct) pages_.Box(kMargin + 1, y_ + 2.5, kBoxSize);
    if (row.kind == Kind::kCategory) pages_.Line(kMargin, y_ + height, kTextWidth, 0.4);
    y_ += height;
    page_is_empty_ = false;
  }

  template <typename Cells>
  void DrawColumns(const Cells& cells, TextStyle style, double indent) {
    pages_.Draw(cells[0], style, kMargin + indent, y_, widths_[0] - indent);
    style.alignment = PANGO_ALIGN_RIGHT;
    double x = kMargin + widths_[0];
    for (std::size_t column = 1; column < kColumnCount; ++column) {
      x += kGap;
      // A hair wider than measured, so that nothing is broken for a rounding.
      pages_.Draw(cells[column], style, x - 1, y_, widths_[column] + 1);
      x += widths_[column];
    }
  }

  void BeginPage() {
    ++page_;
    y_ = kMargin;
    page_is_empty_ = true;
    pages_.SetColor(0, 0, 0.5);
    const TextStyle title{page_ == 1 ? 16.0 : 9.5, true, false, PANGO_ALIGN_LEFT};
    pages_.Draw(title_, title, kMargin, y_, kTextWidth);
    y_ += pages_.HeightOf(title_, title, kTextWidth) + 6;
    pages_.SetColor(0, 0, 0);
    if (rows_.size() > 1) {
      DrawColumns(kColumnHeadings, kHeadingStyle, 0);
      y_ += pages_.HeightOf(kColumnHeadings[0], kHeadingStyle, kTextWidth) + 2;
      pages_.Line(kMargin, y_, kTextWidth, 1);
      y_ += 2;
    }
  }

  void EndPage() {
    const std::string number =
        "Page " + std::to_string(page_) + " of " + std::to_string(std::max(page_count_, page_));
    pages_.Draw(number, kFooterStyle, kMargin, kFooter, kTextWidth);
    pages_.EndPage();
  }

  // A page that begins within a group says which.
  void NextPage(Kind first) {
    EndPage();
    BeginPage();
    const bool within_store = first == Kind::kProduct || first == Kind::kCategory;
    if (!within_store) return;
    std::string words = store_;
    if (first == Kind::kProduct) words += ", " + category_;
    words += ", continued";
    const TextStyle style{9.5, true, true, PANGO_ALIGN_LEFT};
    y_ += SpaceBefore(Kind::kCategory);
    pages_.Draw(words, style, kMargin, y_, kTextWidth);
    y_ += pages_.HeightOf(words, style, kTextWidth);
  }

  std::string title_;
  std::vector<ListRow> rows_;
  std::size_t page_count_;
  PdfPages pages_;
  std::array<double, kColumnCount> widths_{};
  std::string store_;
  std::string category_;
  std::size_t page_ = 0;
  double y_ = 0;
  bool page_is_empty_ = true;
};

}  // namespace

std::string ListAsPdf(const ShoppingList& list) {
  const std::vector<ListRow> rows = RowsOf(list);
  // The first time to count the pages.
  ListPrinter counter(list, rows, 0);
  if (counter.Print().empty()) return {};
  return ListPrinter(list, rows, counter.pages_printed()).Print();
}

}  // namespace brovanta::data_tool

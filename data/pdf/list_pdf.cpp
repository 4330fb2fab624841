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
constexpr double kBoxDrop = 2.5;  // below the top of its row
constexpr double kLeastFirstColumn = 120;
constexpr double kHair = 1;  // wider than measured, so that nothing is broken for a rounding

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
  // Amounts stand on one line each. A unit of many words or letters is broken where the name would
  // have too little room, but not its number.
  void MeasureColumns() {
    double others = 0;
    for (std::size_t column = kProductColumn + 1; column < kColumnCount; ++column) {
      widths_[column] = WidestIn(column, false);
      if (column != kQuantityColumn) others += widths_[column];
    }
    others += (kColumnCount - 1) * kGap;
    const double least_quantity = WidestIn(kQuantityColumn, true);
    const double room = std::max(kTextWidth, kLeastFirstColumn + others + least_quantity);
    double& quantity = widths_[kQuantityColumn];
    quantity = std::min(quantity, room - others - kLeastFirstColumn);
    widths_[kProductColumn] = room - others - quantity;
    // What does not fit even so is made smaller as a whole.
    scale_ = kTextWidth / room;
    for (double& width : widths_) width *= scale_;
  }

  // In the sizes of a table that is not made smaller.
  double WidestIn(std::size_t column, bool first_words_only) {
    double widest = pages_.WidthOf(kColumnHeadings[column], kHeadingStyle);
    for (const ListRow& row : rows_) {
      if (!HasColumns(row.kind)) continue;
      std::string_view cell = row.cells[column];
      if (first_words_only) cell = cell.substr(0, cell.find(' '));
      widest = std::max(widest, pages_.WidthOf(cell, StyleOf(row.kind)));
    }
    return widest;
  }

  [[nodiscard]] TextStyle Scaled(TextStyle style) const {
    style.points *= scale_;
    return style;
  }

  [[nodiscard]] double Indent(Kind kind) const { return scale_ * IndentOf(kind); }

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
    const TextStyle style = Scaled(StyleOf(row.kind));
    const double indent = Indent(row.kind);
    if (!HasColumns(row.kind)) return pages_.HeightOf(row.cells[0], style, kTextWidth - indent);
    return std::max(
        pages_.HeightOf(row.cells[kProductColumn], style, widths_[kProductColumn] - indent),
        pages_.HeightOf(row.cells[kQuantityColumn], style, widths_[kQuantityColumn] + kHair));
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
    const double indent = Indent(row.kind);
    const TextStyle style = Scaled(StyleOf(row.kind));
    if (row.kind == Kind::kStore) {
      store_ = row.cells[0];
      pages_.SetColor(0, 0, 0.5);
    }
    if (row.kind == Kind::kCategory) category_ = row.cells[0];
    if (row.kind == Kind::kRemark) pages_.SetColor(0.27, 0.27, 0.27);
    if (HasColumns(row.kind)) {
      DrawColumns(row, style, indent);
    } else {
      pages_.Draw(row.cells[0], style, kMargin + indent, y_, kTextWidth - indent);
    }
    pages_.SetColor(0, 0, 0);
    if (row.kind == Kind::kProduct) {
      pages_.Box(kMargin + 1, y_ + scale_ * kBoxDrop, scale_ * kBoxSize);
    }
    if (row.kind == Kind::kCategory) pages_.Line(kMargin, y_ + height, kTextWidth, 0.4);
    y_ += height;
    page_is_empty_ = false;
  }

  void DrawColumns(const ListRow& row, TextStyle style, double indent) {
    pages_.Draw(row.cells[kProductColumn], style, kMargin + indent, y_,
                widths_[kProductColumn] - indent);
    style.alignment = PANGO_ALIGN_RIGHT;
    double right = kMargin + widths_[kProductColumn];
    for (std::size_t column = kProductColumn + 1; column < kColumnCount; ++column) {
      right += scale_ * kGap + widths_[column];
      if (column == kQuantityColumn) {
        const double width = widths_[column] + kHair;
        pages_.Draw(row.cells[column], style, right - width, y_, width);
      } else {
        pages_.DrawLeftOf(row.cells[column], style, right, y_);
      }
    }
  }

  void DrawHeadings() {
    const TextStyle style = Scaled(kHeadingStyle);
    pages_.Draw(kColumnHeadings[kProductColumn], style, kMargin, y_, widths_[kProductColumn]);
    double right = kMargin + widths_[kProductColumn];
    for (std::size_t column = kProductColumn + 1; column < kColumnCount; ++column) {
      right += scale_ * kGap + widths_[column];
      pages_.DrawLeftOf(kColumnHeadings[column], style, right, y_);
    }
    y_ += pages_.HeightOf(kColumnHeadings[kProductColumn], style, kTextWidth) + 2;
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
      DrawHeadings();
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
    const TextStyle style = Scaled({9.5, true, true, PANGO_ALIGN_LEFT});
    y_ += SpaceBefore(Kind::kCategory);
    pages_.Draw(words, style, kMargin, y_, kTextWidth);
    y_ += pages_.HeightOf(words, style, kTextWidth);
  }

  std::string title_;
  std::vector<ListRow> rows_;
  std::size_t page_count_;
  PdfPages pages_;
  std::array<double, kColumnCount> widths_{};
  double scale_ = 1;  // of the table's letters and gaps; 1 where the table fits as it is
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

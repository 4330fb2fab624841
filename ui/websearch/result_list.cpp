#include "ui/websearch/result_list.h"

#include <QHeaderView>
#include <QStringList>
#include <memory>

#include "ui/base/wide_text.h"
#include "ui/websearch/result_delegate.h"
#include "util/number.h"

namespace brovanta {
namespace {

struct Column {
  const char* title;
  ResultSubitem subitem;
  Qt::AlignmentFlag alignment;
};

// Kept: "Price" shows the web site, not the price; what reads a column's text goes by that.
constexpr std::array kColumns{
    Column{QT_TRANSLATE_NOOP("brovanta::ResultList", "Item"), kTitleSubitem, Qt::AlignLeft},
    Column{QT_TRANSLATE_NOOP("brovanta::ResultList", "Price"), kWebSiteSubitem, Qt::AlignRight},
    Column{QT_TRANSLATE_NOOP("brovanta::ResultList", "Descr"), kDescriptionSubitem, Qt::AlignLeft},
    Column{QT_TRANSLATE_NOOP("brovanta::ResultList", "Url"), kUrlSubitem, Qt::AlignLeft},
    Column{QT_TRANSLATE_NOOP("brovanta::ResultList", "Status"), kStatusSubitem, Qt::AlignLeft}};

constexpr std::size_t kFirstWithScrollBar = 4;
constexpr int kWidth = 228;
constexpr int kWidthBesideScrollBar = 214;

QString TextOf(const std::optional<std::string>& bytes) {
  return bytes ? WebText(*bytes) : QString();
}

}  // namespace

QString PriceText(double price) {
  return price > 0.0 ? QLatin1Char('$') + WideText(FormatTwoDecimals(price)) : QStringLiteral(" ");
}

ResultRow::ResultRow(const SearchResultItem& result)
    : id_(result.Id), texts_{TextOf(result.Title),    PriceText(result.Price),
                             TextOf(result.SiteName), TextOf(result.Text),
                             TextOf(result.Url),      QString::number(result.Status)} {}

QVariant ResultRow::data(int column, int role) const {
  const auto index = static_cast<std::size_t>(column);
  if (index >= kColumns.size()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return subitem(kColumns[index].subitem);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue<int>(kColumns[index].alignment | Qt::AlignVCenter);
    case Qt::UserRole:
      return id_;
    case Qt::AccessibleTextRole:
      return column == 0 ? AccessibleText() : QStringLiteral(" ");  // an empty one is not heeded
    case Qt::ToolTipRole:
      return subitem(kTitleSubitem);  // a long one is cut in the list
    default:
      return {};
  }
}

QString ResultRow::AccessibleText() const {
  QStringList words;
  for (const ResultSubitem part : {kTitleSubitem, kPriceSubitem, kWebSiteSubitem}) {
    const QString text = subitem(part).simplified();
    if (!text.isEmpty()) words << text;
  }
  return words.join(QStringLiteral(", "));
}

ResultList::ResultList(QWidget* parent) : RowTree(parent) {
  QStringList titles;
  for (const Column& column : kColumns) titles << tr(column.title);
  setColumnCount(static_cast<int>(kColumns.size()));
  setHeaderLabels(titles);
  header()->setMinimumSectionSize(0);
  header()->setStretchLastSection(false);
  for (int column = 0; column < columnCount(); ++column) {
    const auto& shown = kColumns[static_cast<std::size_t>(column)];
    headerItem()->setTextAlignment(column, shown.alignment | Qt::AlignVCenter);
    setColumnWidth(column, 0);
  }
  setUniformRowHeights(true);
  setItemDelegate(new ResultDelegate(*this));
  // The base would paint the columns anew, not the whole row.
  connect(this, &RowTree::CaretChanged, viewport(), [this] { viewport()->update(); });
}

void ResultList::SetResults(const SearchResultList& results) {
  clear();
  setColumnWidth(0, results.size() < kFirstWithScrollBar ? kWidth : kWidthBesideScrollBar);
  QList<QTreeWidgetItem*> rows;
  rows.reserve(static_cast<qsizetype>(results.size()));
  for (const SearchResultItem& result : results.items()) rows << new ResultRow(result);
  addTopLevelItems(rows);
}

const ResultRow* ResultList::Selected() const { return static_cast<const ResultRow*>(Caret()); }

void ResultList::RemoveSelected() {
  QTreeWidgetItem* const row = Caret();
  if (row == nullptr) return;
  // The base would select a neighbour, which nobody has looked at.
  clearSelection();
  selectionModel()->clearCurrentIndex();
  const std::unique_ptr<QTreeWidgetItem> removed(takeTopLevelItem(indexOfTopLevelItem(row)));
}

QModelIndex ResultList::indexAt(const QPoint& point) const {
  return viewport()->rect().contains(point) ? RowTree::indexAt({0, point.y()}) : QModelIndex();
}

QRect ResultList::visualRect(const QModelIndex& index) const {
  if (index.column() != 0) return {};
  const QRect rect = RowTree::visualRect(index);
  return {0, rect.y(), viewport()->width(), rect.height()};
}

}  // namespace brovanta

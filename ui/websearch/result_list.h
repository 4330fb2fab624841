// The results of a search as rows: title and price, the shop below.
#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "search/search_result_list.h"
#include "ui/base/row_tree.h"

namespace brovanta {

/// The texts that a row carries.
enum ResultSubitem {
  kTitleSubitem,
  kPriceSubitem,
  kWebSiteSubitem,
  kDescriptionSubitem,
  kUrlSubitem,
  kStatusSubitem,
  kResultSubitems
};

/// "$9.90"; a single blank for a price that was not found.
[[nodiscard]] QString PriceText(double price);

/// A result. Its columns show the subitems that the list says.
class ResultRow : public QTreeWidgetItem {
 public:
  explicit ResultRow(const SearchResultItem& result);

  [[nodiscard]] QVariant data(int column, int role) const override;

  /// The result's id in its list.
  [[nodiscard]] std::int32_t id() const { return id_; }
  [[nodiscard]] const QString& subitem(ResultSubitem subitem) const { return texts_[subitem]; }

 private:
  /// "Soap, $9.90, Corner Shop".
  [[nodiscard]] QString AccessibleText() const;

  std::int32_t id_;
  std::array<QString, kResultSubitems> texts_;
};

/// Five columns, of which only "Item" has a width. A row is painted across the whole list from its
/// texts, all rows equally high, and is tapped there; it is one cell to the eye and to a screen
/// reader, the first.
class ResultList : public RowTree {
  Q_OBJECT

 public:
  explicit ResultList(QWidget* parent = nullptr);

  /// Makes a row of each result, in their order. The width of "Item" is that for their number and
  /// stays when rows are removed.
  void SetResults(const SearchResultList& results);

  /// The selected row, nullptr when there is none; the list's own.
  [[nodiscard]] const ResultRow* Selected() const;

  /// Takes the selected row out; then none is selected.
  void RemoveSelected();

  [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;
  [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
};

}  // namespace brovanta

// The rows of a record tree as the toolkit's views ask for them.
#pragma once

#include <QAbstractItemModel>

#include "ui/base/record_rows.h"

namespace brovanta {

/// Two levels, one column: headings, and records under them. Texts and words for screen readers
/// are made when they are asked for.
class RecordModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  using QAbstractItemModel::QAbstractItemModel;

  /// Replaces every row.
  void SetRows(RecordRows rows);
  [[nodiscard]] const RecordRows& rows() const { return rows_; }

  /// The row of an index, valid until SetRows; nullptr for one of the other kind and for none.
  [[nodiscard]] const HeadingRow* HeadingAt(const QModelIndex& index) const;
  [[nodiscard]] const RecordRow* RecordAt(const QModelIndex& index) const;

  [[nodiscard]] QModelIndex index(int row, int column,
                                  const QModelIndex& parent = {}) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
  using QObject::parent;
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  RecordRows rows_;
};

}  // namespace brovanta

#include "ui/base/record_model.h"

#include <utility>

namespace brovanta {
namespace {

// An index carries the number of the heading that it stands under, counted from 1; a heading
// stands under none.
constexpr quintptr kNoHeading = 0;

bool IsHeading(const QModelIndex& index) {
  return index.isValid() && index.internalId() == kNoHeading;
}

bool IsRecord(const QModelIndex& index) {
  return index.isValid() && index.internalId() != kNoHeading;
}

std::size_t HeadingOf(const QModelIndex& record) { return record.internalId() - 1; }

}  // namespace

void RecordModel::SetRows(RecordRows rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

const HeadingRow* RecordModel::HeadingAt(const QModelIndex& index) const {
  return IsHeading(index) ? &rows_.Heading(static_cast<std::size_t>(index.row())) : nullptr;
}

const RecordRow* RecordModel::RecordAt(const QModelIndex& index) const {
  if (!IsRecord(index)) return nullptr;
  return &rows_.Under(HeadingOf(index))[static_cast<std::size_t>(index.row())];
}

QModelIndex RecordModel::index(int row, int column, const QModelIndex& parent) const {
  if (row < 0 || column != 0 || row >= rowCount(parent)) return {};
  if (!parent.isValid()) return createIndex(row, column, kNoHeading);
  return createIndex(row, column, static_cast<quintptr>(parent.row()) + 1);
}

QModelIndex RecordModel::parent(const QModelIndex& index) const {
  if (!IsRecord(index)) return {};
  return createIndex(static_cast<int>(HeadingOf(index)), 0, kNoHeading);
}

int RecordModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(rows_.HeadingCount());
  if (IsRecord(parent) || parent.column() != 0) return 0;
  return static_cast<int>(rows_.Under(static_cast<std::size_t>(parent.row())).size());
}

int RecordModel::columnCount(const QModelIndex& /*parent*/) const { return 1; }

QVariant RecordModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
  const bool shown = role == Qt::DisplayRole;
  if (const HeadingRow* heading = HeadingAt(index)) {
    return shown ? heading->Text() : heading->Words();
  }
  if (const RecordRow* record = RecordAt(index)) {
    return shown ? RecordRow::Text() : record->AccessibleText();
  }
  return {};
}

Qt::ItemFlags RecordModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
  // What can have no children is not entered into the view's table of expanded rows.
  return IsRecord(index) ? flags | Qt::ItemNeverHasChildren : flags;
}

}  // namespace brovanta

#include "ui/base/narrow_form.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGridLayout>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWidget>
#include <algorithm>

#include "ui/base/row_layout.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

constexpr int kBelowFocus = 8;

/// What a list takes to show each of its texts.
int WidestItem(const QComboBox& list) {
  constexpr int kAround = 48;  // arrow and margins
  int widest = 0;
  for (int i = 0; i < list.count(); ++i) {
    widest = std::max(widest, list.fontMetrics().horizontalAdvance(list.itemText(i)));
  }
  return std::max(widest + kAround, list.minimumSizeHint().width());
}

/// What an item takes at least, whether it is shown at the moment or not.
int LeastWidth(const QLayoutItem& item) {
  if (const QWidget* const widget = item.widget()) {
    const auto* const list = qobject_cast<const QComboBox*>(widget);
    if (list != nullptr && !list->isEditable()) return WidestItem(*list);
    const bool date = qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
                      widget->findChild<QAbstractSpinBox*>() != nullptr;
    if (date) return widget->sizeHint().width();
    return widget->minimumSizeHint().expandedTo(widget->minimumSize()).width();
  }
  const QLayout* const line = const_cast<QLayoutItem&>(item).layout();
  if (line == nullptr) return 0;
  int widest = 0;
  for (int i = 0; i < line->count(); ++i) widest = std::max(widest, LeastWidth(*line->itemAt(i)));
  return widest;
}

}  // namespace

FormColumns::FormColumns(QGridLayout& grid) : grid_(grid) {
  for (int i = 0; i < grid.count(); ++i) {
    Place place{grid.itemAt(i), 0, 0, 0, 0};
    grid.getItemPosition(i, &place.row, &place.column, &place.rows, &place.columns);
    places_.push_back(place);
  }
}

int FormColumns::WidthSideBySide() const {
  int labels = 0;
  int fields = 0;
  for (const Place& place : places_) {
    if (place.columns > 1) continue;
    int& column = place.column == 0 ? labels : fields;
    column = std::max(column, LeastWidth(*place.item));
  }
  const QMargins margins = grid_.contentsMargins();
  return margins.left() + labels + grid_.horizontalSpacing() + fields + margins.right();
}

void FormColumns::Put(const Place& place, int row, int column, int columns) {
  if (QLayout* const line = place.item->layout()) {
    grid_.addLayout(line, row, column, place.rows, columns);
  } else {
    grid_.addItem(place.item, row, column, place.rows, columns);
  }
}

void FormColumns::Fit(int width) {
  const bool own_margins = grid_.parentWidget()->layout() == &grid_;
  const int room = own_margins ? width : width - 2 * theme::kMargin;
  const bool above = WidthSideBySide() > room;
  if (above == above_) return;
  above_ = above;
  while (grid_.count() > 0) static_cast<void>(grid_.takeAt(0));  // they stay ours
  for (const Place& place : places_) {
    if (!above) {
      Put(place, place.row, place.column, place.columns);
    } else {
      const bool field = place.column > 0;
      Put(place, 2 * place.row + (field ? 1 : 0), 0, 2);
    }
  }
  grid_.invalidate();
}

void FitButtonLines(QWidget& window) {
  for (QBoxLayout* line : window.findChildren<QBoxLayout*>()) {
    const QString name = line->objectName();
    if (name != QLatin1String("buttonLayout") && name != QLatin1String("couponLayout")) continue;
    const bool own_margins = line->parentWidget()->layout() == line;
    const int room = window.width() - (own_margins ? 0 : 2 * theme::kMargin);
    const int spaces = line->spacing() * std::max(0, line->count() - 1);
    int wanted = spaces;
    for (int i = 0; i < line->count(); ++i) wanted += line->itemAt(i)->sizeHint().width();
    const QMargins margins = own_margins ? line->contentsMargins() : QMargins();
    SetInARow(*line, wanted + margins.left() + margins.right() <= room);
  }
}

void ScrollWhole(QWidget& window) {
  auto* const area = new QScrollArea(&window);
  auto* const content = new QWidget(&window);
  content->setLayout(window.layout());  // which takes along what it holds
  content->setObjectName(QStringLiteral("wholeContent"));
  area->setObjectName(QStringLiteral("wholeArea"));
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(content);
  auto* const layout = new QVBoxLayout(&window);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(area);
}

void ShowFocus(QWidget& window) {
  QWidget* const focus = window.focusWidget();
  if (focus == nullptr || !window.isVisible()) return;
  for (QWidget* parent = focus->parentWidget(); parent != nullptr && parent != &window;
       parent = parent->parentWidget()) {
    auto* const area = qobject_cast<QScrollArea*>(parent);
    if (area == nullptr || area->widget() == nullptr) continue;
    // Not only the part of a field in which the cursor stands.
    const QRect place(focus->mapTo(area->widget(), QPoint(0, 0)), focus->size());
    const int around = std::min(place.height() / 2 + kBelowFocus, area->viewport()->height() / 2);
    area->ensureVisible(place.center().x(), place.center().y(), 0, around);
  }
}

}  // namespace brovanta

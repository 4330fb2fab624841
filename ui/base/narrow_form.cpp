#include "ui/base/narrow_form.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFontInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>
#include <QWidget>
#include <algorithm>

#include "ui/base/row_layout.h"
#include "ui/base/row_painting.h"
#include "ui/base/theme.h"
#include "ui/base/wrapped_label.h"

namespace brovanta {
namespace {

constexpr int kAroundFocus = 8;

/// What a list takes to show each of its texts.
int WidestItem(const QComboBox& list) {
  constexpr int kAround = 48;  // arrow and margins
  constexpr int kLetters = 14;
  int widest = 0;
  for (int i = 0; i < list.count(); ++i) {
    widest = std::max(widest, list.fontMetrics().horizontalAdvance(list.itemText(i)));
  }
  // Names that people have typed are as long as they like.
  if (list.isEditable())
    widest = std::min(widest, kLetters * list.fontMetrics().averageCharWidth());
  return std::max(widest + kAround, list.minimumSizeHint().width());
}

/// What a text takes that is broken between words; a very long one is broken as well.
int LongestWord(const QLabel& label) {
  constexpr int kLongest = 160;
  int longest = 0;
  for (const QString& word : label.text().split(QLatin1Char(' '))) {
    longest = std::max(longest, label.fontMetrics().horizontalAdvance(word) + 1);
  }
  return std::min(longest, kLongest);
}

/// What an item takes at least, whether it is shown at the moment or not.
int LeastWidth(const QLayoutItem& item) {
  if (const QWidget* const widget = item.widget()) {
    const auto* const list = qobject_cast<const QComboBox*>(widget);
    if (list != nullptr) return WidestItem(*list);
    const bool date = qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
                      widget->findChild<QAbstractSpinBox*>() != nullptr;
    if (date) return widget->sizeHint().width();
    const auto* const words = qobject_cast<const WrappedLabel*>(widget);
    if (words != nullptr) return LongestWord(*words);
    // On one line, which it takes beside its field only.
    const auto* const label = qobject_cast<const QLabel*>(widget);
    if (label != nullptr) return label->fontMetrics().size(0, label->text()).width();
    return widget->minimumSizeHint().expandedTo(widget->minimumSize()).width();
  }
  const QLayout* const line = const_cast<QLayoutItem&>(item).layout();
  if (line == nullptr) return 0;
  int widest = 0;
  for (int i = 0; i < line->count(); ++i) widest = std::max(widest, LeastWidth(*line->itemAt(i)));
  return widest;
}

constexpr int kBesideButtonText = 12;

/// What an item of a line of buttons takes: a button gets along with its text, and with one in
/// smaller letters in large print.
int ButtonWidth(QLayoutItem& item, const QFont& font) {
  const auto* const button = qobject_cast<const QPushButton*>(item.widget());
  if (button == nullptr) return item.sizeHint().width();
  constexpr int kEasyPixels = 18;
  const int pixels = QFontInfo(font).pixelSize();
  const int text = QFontMetrics(font).size(Qt::TextShowMnemonic, button->text()).width();
  return text * std::min(pixels, kEasyPixels) / pixels + kBesideButtonText;
}

/// The buttons of a row write in one size, which each can with its share of the room.
void FitButtonTexts(QBoxLayout& line, const QFont& font, int share) {
  QFont fitting = font;
  for (int i = 0; i < line.count(); ++i) {
    const auto* const button = qobject_cast<QPushButton*>(line.itemAt(i)->widget());
    if (button == nullptr) continue;
    const QFont own = FittingFont(font, button->text(), share - kBesideButtonText);
    if (QFontInfo(own).pixelSize() < QFontInfo(fitting).pixelSize()) fitting = own;
  }
  for (int i = 0; i < line.count(); ++i) {
    auto* const button = qobject_cast<QPushButton*>(line.itemAt(i)->widget());
    if (button == nullptr) continue;
    button->setMinimumWidth(ButtonWidth(*line.itemAt(i), font));
    if (button->font() != fitting) button->setFont(fitting == font ? QFont() : fitting);
  }
}

bool IsScrolled(const QWidget& widget) {
  const QWidget* parent = widget.parentWidget();
  while (parent != nullptr && qobject_cast<const QScrollArea*>(parent) == nullptr) {
    parent = parent->parentWidget();
  }
  return parent != nullptr;
}

/// The field with the focus in its area, with the label that says what it is where it stands above.
QRect PlaceOfField(const QWidget& field, const QScrollArea& area) {
  const QRect place(field.mapTo(area.widget(), QPoint(0, 0)), field.size());
  for (const QLabel* label : area.widget()->findChildren<QLabel*>()) {
    if (label->buddy() == nullptr || !label->isVisible()) continue;
    if (label->buddy() != &field && label->buddy()->focusProxy() != &field) continue;
    const QRect both = place | QRect(label->mapTo(area.widget(), QPoint(0, 0)), label->size());
    return both.height() <= area.viewport()->height() ? both : place;
  }
  return place;
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
    auto* const label = qobject_cast<QLabel*>(place.item->widget());
    if (label != nullptr && place.columns == 1) label->setWordWrap(above);
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
  const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &window);
  for (QBoxLayout* line : window.findChildren<QBoxLayout*>()) {
    const QString name = line->objectName();
    if (name != QLatin1String("buttonLayout") && name != QLatin1String("couponLayout")) continue;
    const bool own_margins = line->parentWidget()->layout() == line;
    const bool scrolls = IsScrolled(*line->parentWidget());
    const int room = window.width() - (scrolls ? bar : 0) - (own_margins ? 0 : 2 * theme::kMargin);
    const int spaces = line->spacing() * std::max(0, line->count() - 1);
    int wanted = spaces;
    for (int i = 0; i < line->count(); ++i) wanted += ButtonWidth(*line->itemAt(i), window.font());
    const QMargins margins = own_margins ? line->contentsMargins() : QMargins();
    const int free = room - margins.left() - margins.right();
    SetInARow(*line, wanted <= free);
    const int share = wanted <= free ? (free - spaces) / std::max(1, line->count()) : free;
    FitButtonTexts(*line, window.font(), share);
  }
}

void FitTabs(QWidget& window) {
  for (QTabBar* tabs : window.findChildren<QTabBar*>()) {
    if (tabs->count() == 0 || tabs->tabText(0).isEmpty()) continue;
    constexpr int kAroundTab = 4;
    const int space = window.style()->pixelMetric(QStyle::PM_TabBarTabHSpace, nullptr, tabs);
    const QFontMetrics metrics(window.font());
    int texts = 0;
    for (int i = 0; i < tabs->count(); ++i) {
      texts += metrics.horizontalAdvance(tabs->tabText(i)) + 1;
    }
    const QFont fitting =
        FittingFont(window.font(), texts, window.width() - tabs->count() * (space + kAroundTab));
    if (tabs->font() != fitting) tabs->setFont(fitting);
  }
}

namespace {

/// What stands in a line with the label.
int WidthBeside(const QWidget& window, QLabel& label) {
  int beside = 0;
  for (const QBoxLayout* line : window.findChildren<QBoxLayout*>()) {
    if (line->direction() != QBoxLayout::LeftToRight || line->indexOf(&label) < 0) continue;
    for (int i = 0; i < line->count(); ++i) {
      QLayoutItem* const item = line->itemAt(i);
      if (item->widget() == &label) continue;
      beside += item->sizeHint().width() + line->spacing();
    }
  }
  return beside;
}

}  // namespace

void FitLabels(QWidget& window) {
  const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &window);
  for (QLabel* label : window.findChildren<QLabel*>()) {
    if (!label->wordWrap() || qobject_cast<WrappedLabel*>(label) != nullptr) continue;
    QFont font = window.font();
    font.setBold(label->font().bold());
    const int room = window.width() - 2 * theme::kMargin - bar - WidthBeside(window, *label);
    const QFont fitting = FontForWords(font, label->text(), room);
    if (label->font() != fitting) label->setFont(fitting);
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
  // The window paints the ground, once.
  area->viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
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
    const QRect place = PlaceOfField(*focus, *area);
    const int high = area->viewport()->height();
    const int around = std::clamp((high - place.height()) / 2, 0, kAroundFocus);
    QScrollBar& bar = *area->verticalScrollBar();
    const int least = place.bottom() + 1 + around - high;
    if (least <= 0) {
      bar.setValue(0);  // the form from its beginning, as long as that shows the field
    } else {
      bar.setValue(std::clamp(bar.value(), least, std::max(least, place.top() - around)));
    }
  }
}

}  // namespace brovanta

// The painting of standard widgets; the measures are in program_style.cpp.
#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyleOption>
#include <algorithm>

#include "ui/base/icons.h"
#include "ui/base/program_style.h"
#include "ui/base/row_painting.h"
#include "ui/base/theme.h"

namespace brovanta {

namespace {

constexpr int kChevron = 14;
constexpr int kUnderline = 3;
constexpr int kPressed = 120;  // percent of the usual darkness
constexpr int kProgressGroove = 12;
constexpr int kBesideLabel = 4;  ///< of a push button, within its frame

bool IsEnabled(const QStyleOption& option) { return option.state.testFlag(QStyle::State_Enabled); }
bool HasFocus(const QStyleOption& option) { return option.state.testFlag(QStyle::State_HasFocus); }

/// A rounded box with a frame, which is thicker and navy while it has the focus.
void PaintBox(QPainter& painter, const QRect& rect, const QColor& ground, bool focused,
              const QColor& line) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const double width = focused ? 2.0 : 1.0;
  painter.setPen(QPen(focused ? QColor(theme::kNavy) : line, width));
  painter.setBrush(ground);
  const double half = width / 2.0;
  painter.drawRoundedRect(QRectF(rect).adjusted(half, half, -half, -half), theme::kRadius,
                          theme::kRadius);
  painter.restore();
}

void PaintField(QPainter& painter, const QStyleOption& option) {
  const bool enabled = IsEnabled(option);
  PaintBox(painter, option.rect, enabled ? theme::kGround : theme::kBar,
           enabled && HasFocus(option), enabled ? theme::kFieldLine : theme::kLine);
}

bool IsDefault(const QStyleOption& option) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

void PaintPushButton(QPainter& painter, const QStyleOption& option) {
  const bool down = option.state & (QStyle::State_Sunken | QStyle::State_On);
  const bool filled = IsDefault(option) && IsEnabled(option);
  QColor ground = theme::kGround;
  if (!IsEnabled(option)) ground = theme::kBar;
  if (filled) ground = theme::kNavy;
  if (down) ground = filled ? QColor(theme::kNavy).darker(kPressed) : theme::kSelection;
  PaintBox(painter, option.rect, ground, false, filled ? theme::kNavy : theme::kFieldLine);
  if (!HasFocus(option) || !IsEnabled(option)) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  // Inside the filled button the ring is white, or it would not show.
  painter.setPen(QPen(QColor(filled ? theme::kGround : theme::kNavy), 2));
  const double inset = filled ? 4 : 1;
  painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset),
                          theme::kRadius - 2, theme::kRadius - 2);
  painter.restore();
}

void PaintCheckMark(QPainter& painter, const QStyleOption& option) {
  const bool checked = option.state.testFlag(QStyle::State_On);
  const QColor ink = IsEnabled(option) ? theme::kNavy : theme::kDisabledText;
  PaintBox(painter, option.rect, checked ? ink : theme::kGround, false,
           IsEnabled(option) ? theme::kFieldLine : theme::kLine);
  if (!checked) return;
  NamedIcon(QStringLiteral("toolbar_129_2789"), theme::kGround)
      .paint(&painter, option.rect.adjusted(2, 2, -2, -2));
}

void PaintToolButton(QPainter& painter, const QStyleOption& option) {
  if (!(option.state & (QStyle::State_Sunken | QStyle::State_On | QStyle::State_HasFocus))) return;
  const bool down = option.state & (QStyle::State_Sunken | QStyle::State_On);
  PaintBox(painter, option.rect, down ? QColor(theme::kSelection) : Qt::transparent,
           HasFocus(option), Qt::transparent);
}

void PaintChevron(QPainter& painter, const QRect& room, bool enabled) {
  QRect place(0, 0, kChevron, kChevron);
  place.moveCenter(room.center());
  NamedIcon(QStringLiteral("chevron_down"), enabled ? theme::kNavy : theme::kDisabledText)
      .paint(&painter, place);
}

/// A rounded groove with the finished part in navy.
void PaintProgressBar(QPainter& painter, const QStyleOptionProgressBar& bar) {
  QRect groove(0, 0, bar.rect.width(), kProgressGroove);
  groove.moveCenter(bar.rect.center());
  PaintBox(painter, groove, theme::kBar, false, theme::kFieldLine);
  const int range = bar.maximum - bar.minimum;
  if (range <= 0 || bar.progress <= bar.minimum) return;
  groove.setWidth(static_cast<int>(qint64{groove.width()} * (bar.progress - bar.minimum) / range));
  PaintBox(painter, groove, theme::kNavy, false, theme::kNavy);
}

/// Whether the widget is the name of the month above a calendar. It opens a menu, and the arrow
/// that would say so does not fit between its letters and the next button.
bool IsMonthButton(const QWidget* widget) {
  return widget != nullptr && widget->objectName() == QLatin1String("qt_calendar_monthbutton");
}

void PaintTab(QPainter& painter, const QStyleOption& option) {
  if (!option.state.testFlag(QStyle::State_Selected)) {
    painter.fillRect(option.rect, theme::kBar);
    return;
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(option.rect, theme::kBar);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(theme::kGround));
  const QRect& rect = option.rect;
  painter.drawRoundedRect(QRectF(rect).adjusted(0, 0, 0, theme::kRadius), theme::kRadius,
                          theme::kRadius);
  painter.restore();
  painter.fillRect(
      QRect(rect.left() + 10, rect.bottom() - kUnderline + 1, rect.width() - 20, kUnderline),
      theme::kNavy);
  if (!HasFocus(option)) return;
  PaintBox(painter, rect.adjusted(2, 2, -2, -kUnderline - 1), Qt::transparent, true, theme::kNavy);
}

/// What stands beside the text of a menu's entry: the column with the marks, margins.
constexpr int kBesideEntry = 56;

/// The widest text of a menu's entries, without their keys.
int WidestEntry(const QWidget* menu, const QFontMetrics& metrics) {
  int widest = 0;
  if (menu == nullptr) return widest;
  for (const QAction* action : menu->actions()) {
    widest = std::max(widest, metrics.size(Qt::TextShowMnemonic, action->text()).width());
  }
  return widest;
}

/// Large print gets smaller where a menu as wide as the screen would cut it: together in a menu
/// that names keys, by itself elsewhere. A name that is too long even so is cut at its end.
void FitEntry(QStyleOptionMenuItem& item, const QWidget* menu) {
  const int room = item.rect.width() - kBesideEntry;
  QStringList parts = item.text.split(QLatin1Char('\t'));
  const QFontMetrics usual(item.font);
  const int keys = item.reservedShortcutWidth;
  const int wanted = keys > 0 ? WidestEntry(menu, usual) + keys
                              : usual.size(Qt::TextShowMnemonic, parts[0]).width() + 1;
  item.font = FittingFont(item.font, wanted, room);
  const QFontMetrics metrics(item.font);
  item.reservedShortcutWidth = keys * metrics.height() / usual.height();
  parts[0] = metrics.elidedText(parts[0], Qt::ElideRight, room - item.reservedShortcutWidth,
                                Qt::TextShowMnemonic);
  item.text = parts.join(QLatin1Char('\t'));
}

/// The row of a list that drops down from a field. What one can only choose from is written in one
/// size; of names that people have typed each gets as large as it can.
void FitRow(QStyleOptionViewItem& row, const QWidget& list) {
  constexpr int kAround = 14;
  const auto* const field = qobject_cast<const QComboBox*>(list.window()->parentWidget());
  int wanted = row.fontMetrics.horizontalAdvance(row.text) + 1;
  for (int i = 0; field != nullptr && !field->isEditable() && i < field->count(); ++i) {
    wanted = std::max(wanted, row.fontMetrics.horizontalAdvance(field->itemText(i)) + 1);
  }
  row.font = FittingFont(row.font, wanted, row.rect.width() - kAround);
  row.textElideMode = Qt::ElideRight;
}

}  // namespace

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case PE_PanelLineEdit: {
      const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
      // The edit field inside a combo box or a date picker lies on that one's own box.
      if (frame != nullptr && frame->lineWidth > 0) PaintField(*painter, *option);
      return;
    }
    case PE_FrameLineEdit:
      PaintField(*painter, *option);
      return;
    case PE_PanelButtonCommand:
      PaintPushButton(*painter, *option);
      return;
    case PE_PanelButtonTool:
      PaintToolButton(*painter, *option);
      return;
    case PE_IndicatorCheckBox:
      PaintCheckMark(*painter, *option);
      return;
    case PE_FrameTabBarBase:
    case PE_FrameStatusBarItem:
      return;
    case PE_FrameFocusRect:
      if (qobject_cast<const QPushButton*>(widget) != nullptr) return;  // part of the button
      PaintBox(*painter, option->rect, Qt::transparent, true, theme::kNavy);
      return;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case CE_PushButtonLabel: {
      const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
      if (button == nullptr) return;
      QStyleOptionButton copy = *button;
      const QColor ink = IsDefault(copy) ? theme::kGround : theme::kNavy;
      if (IsEnabled(copy)) copy.palette.setColor(QPalette::ButtonText, ink);
      painter->save();
      painter->setFont(FittingFont(painter->font(), copy.text, copy.rect.width() - kBesideLabel));
      QProxyStyle::drawControl(element, &copy, painter, widget);
      painter->restore();
      return;
    }
    case CE_ComboBoxLabel: {
      // What is chosen from a list looks like what is typed.
      const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      if (combo == nullptr) return;
      QStyleOptionComboBox copy = *combo;
      copy.palette.setColor(QPalette::ButtonText, copy.palette.color(QPalette::Text));
      painter->save();
      const QRect room = subControlRect(CC_ComboBox, &copy, SC_ComboBoxEditField, widget);
      painter->setFont(FittingFont(painter->font(), copy.currentText, room.width()));
      QProxyStyle::drawControl(element, &copy, painter, widget);
      painter->restore();
      return;
    }
    case CE_MenuItem: {
      const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
      if (item == nullptr) return;
      QStyleOptionMenuItem copy = *item;
      FitEntry(copy, widget);
      painter->save();
      painter->setFont(copy.font);
      QProxyStyle::drawControl(element, &copy, painter, widget);
      painter->restore();
      return;
    }
    case CE_ItemViewItem: {
      const auto* row = qstyleoption_cast<const QStyleOptionViewItem*>(option);
      if (row == nullptr || !IsDropDownList(widget)) break;
      QStyleOptionViewItem copy = *row;
      FitRow(copy, *widget);
      QProxyStyle::drawControl(element, &copy, painter, widget);
      return;
    }
    case CE_ShapedFrame:
      if (qobject_cast<const QPlainTextEdit*>(widget) == nullptr) {
        return QProxyStyle::drawControl(element, option, painter, widget);
      }
      PaintField(*painter, *option);
      return;
    case CE_ProgressBar: {
      const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
      if (bar != nullptr) PaintProgressBar(*painter, *bar);
      return;
    }
    case CE_TabBarTabShape:
      PaintTab(*painter, *option);
      return;
    case CE_ToolBar:
      painter->fillRect(option->rect, theme::kBar);
      painter->fillRect(QRect(option->rect.topLeft(), QSize(option->rect.width(), 1)),
                        theme::kLine);
      return;
    default:
      break;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  if (control == CC_ComboBox) {
    PaintField(*painter, *option);
    PaintChevron(*painter, proxy()->subControlRect(control, option, SC_ComboBoxArrow, widget),
                 IsEnabled(*option));
    return;
  }
  if (control == CC_ScrollBar) {
    const QRect slider = proxy()->subControlRect(control, option, SC_ScrollBarSlider, widget);
    painter->fillRect(option->rect, option->palette.base());
    if (slider.size() == option->rect.size()) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const bool pressed = option->activeSubControls.testFlag(SC_ScrollBarSlider) &&
                         option->state.testFlag(State_Sunken);
    painter->setBrush(QColor(pressed ? theme::kNavy : theme::kFieldLine));
    painter->drawRoundedRect(QRectF(slider).adjusted(3, 2, -2, -2), 2.5, 2.5);
    painter->restore();
    return;
  }
  if (control == CC_ToolButton && IsMonthButton(widget)) {
    const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    if (button == nullptr) return;
    QStyleOptionToolButton plain = *button;
    plain.features.setFlag(QStyleOptionToolButton::HasMenu, false);
    QProxyStyle::drawComplexControl(control, &plain, painter, widget);
    return;
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

}  // namespace brovanta

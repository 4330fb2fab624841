// Measures and hints; the painting is in program_style_painting.cpp.
#include "ui/base/program_style.h"

#include <QAction>
#include <QScreen>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>

#include "ui/base/icons.h"
#include "ui/base/theme.h"

namespace brovanta {

namespace {

constexpr int kFieldPadding = 8;
constexpr int kTextAreaFrame = 4;
constexpr int kArrowRoom = 32;
constexpr int kScrollBar = 10;
constexpr int kShortestSlider = 32;
constexpr int kMarkColumn = 14;    ///< of a menu, which is wider in rows that are a finger high
constexpr QSize kTabSize{56, 28};  ///< of a tab that shows a picture only

/// Whether the widget is a field for several lines of text.
bool IsTextArea(const QWidget* widget) {
  return widget != nullptr && widget->inherits("QPlainTextEdit");
}

/// What the screen leaves for the entries of a menu.
int RoomForMenu(const QWidget* widget) {
  const QScreen* const screen = widget == nullptr ? nullptr : widget->screen();
  if (screen == nullptr) return QWIDGETSIZE_MAX;
  constexpr int kFrames = 4;
  int keys = 0;  // in a column of their own, which the toolkit adds
  for (const QAction* action : widget->actions()) {
    const QString key = action->shortcut().toString(QKeySequence::NativeText);
    keys = std::max(keys, widget->fontMetrics().horizontalAdvance(key));
  }
  return screen->size().width() - kFrames - keys;
}

QRect SliderRect(const QStyleOptionSlider& bar) {
  const bool upright = bar.orientation == Qt::Vertical;
  const int groove = upright ? bar.rect.height() : bar.rect.width();
  const int range = bar.maximum - bar.minimum;
  const qint64 total = qint64{range} + bar.pageStep;
  const int natural = total > 0 ? static_cast<int>(qint64{groove} * bar.pageStep / total) : groove;
  const int length = range == 0 ? groove : qBound(qMin(kShortestSlider, groove), natural, groove);
  const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                    groove - length, bar.upsideDown);
  return upright ? QRect(bar.rect.x(), bar.rect.y() + start, bar.rect.width(), length)
                 : QRect(bar.rect.x() + start, bar.rect.y(), length, bar.rect.height());
}

QRect ScrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
  const QRect slider = SliderRect(bar);
  const bool upright = bar.orientation == Qt::Vertical;
  QRect rect = bar.rect;
  switch (part) {
    case QStyle::SC_ScrollBarSlider:
      return slider;
    case QStyle::SC_ScrollBarGroove:
      return rect;
    case QStyle::SC_ScrollBarSubPage:
      if (upright) {
        rect.setBottom(slider.top() - 1);
      } else {
        rect.setRight(slider.left() - 1);
      }
      return rect;
    case QStyle::SC_ScrollBarAddPage:
      if (upright) {
        rect.setTop(slider.bottom() + 1);
      } else {
        rect.setLeft(slider.right() + 1);
      }
      return rect;
    default:
      return {};  // no arrows: the bar is for looking, the finger moves the list itself
  }
}

}  // namespace

bool ProgramStyle::IsDropDownList(const QWidget* widget) {
  return widget != nullptr && widget->inherits("QComboBoxListView");
}

ProgramStyle::ProgramStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
  switch (metric) {
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
      return theme::kMargin;
    case PM_LayoutTopMargin:
    case PM_LayoutBottomMargin:
      return theme::kMargin - 4;
    case PM_LayoutHorizontalSpacing:
      return 8;
    case PM_LayoutVerticalSpacing:
      return 6;
    case PM_ScrollBarExtent:
      return kScrollBar;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
      return 22;
    case PM_FocusFrameHMargin:
      if (IsDropDownList(widget)) return kFieldPadding - 3;
      return QProxyStyle::pixelMetric(metric, option, widget);
    case PM_DefaultFrameWidth:
      // Room for the round corners.
      if (IsTextArea(widget)) return kTextAreaFrame;
      return QProxyStyle::pixelMetric(metric, option, widget);
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabOverlap:
    case PM_TabBarBaseOverlap:
    case PM_ToolBarFrameWidth:
      return 0;
    case PM_MessageBoxIconSize:
      return theme::kMessageIconSize;
    case PM_TabBarIconSize:
    case PM_ToolBarIconSize:
      return 24;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
  switch (hint) {
    case SH_ComboBox_Popup:  // a list below the field, not a menu over it
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
    case SH_UnderlineShortcut:
      return 0;
    case SH_Menu_Scrollable:  // a long store menu scrolls instead of growing columns
    case SH_ScrollBar_LeftClickAbsolutePosition:
      return 1;
    default:
      return QProxyStyle::styleHint(hint, option, widget, returned);
  }
}

QIcon ProgramStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                                 const QWidget* widget) const {
  switch (picture) {
    case SP_MessageBoxQuestion:
      return NamedIcon(QStringLiteral("question"), theme::kNavy);
    // The base would search the folders of the desktop's icon theme for the arrows of a calendar,
    // which takes longer than the rest of a screen.
    case SP_ArrowLeft:
      return NamedIcon(QStringLiteral("chevron_left"), theme::kNavy);
    case SP_ArrowRight:
      return NamedIcon(QStringLiteral("chevron_right"), theme::kNavy);
    default:
      return QProxyStyle::standardIcon(picture, option, widget);
  }
}

QSize ProgramStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& size, const QWidget* widget) const {
  QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
  const QSize finger(theme::kFingerHeight, theme::kFingerHeight);
  switch (type) {
    case CT_PushButton:
      return result.expandedTo({2 * theme::kFingerHeight, theme::kFingerHeight});
    case CT_LineEdit:
      return QSize(result.width() + 2 * kFieldPadding, result.height()).expandedTo(finger);
    case CT_ComboBox:
      return QSize(size.width() + kFieldPadding + kArrowRoom, result.height()).expandedTo(finger);
    case CT_SpinBox:
    case CT_ToolButton:
      return result.expandedTo(finger);
    case CT_CheckBox:
    case CT_RadioButton:
      return result.expandedTo({0, theme::kFingerHeight});
    case CT_MenuItem: {
      const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
      if (item != nullptr && item->menuItemType == QStyleOptionMenuItem::Separator) return result;
      return result.grownBy({0, 0, kMarkColumn, 0})
          .boundedTo({RoomForMenu(widget), result.height()})
          .expandedTo({0, theme::kFingerHeight});
    }
    case CT_ItemViewItem:
      return IsDropDownList(widget) ? result.expandedTo({0, theme::kFingerHeight}) : result;
    case CT_TabBarTab: {
      const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
      const bool has_text = tab != nullptr && !tab->text.isEmpty();
      return result.expandedTo(has_text ? finger : kTabSize);
    }
    default:
      return result;
  }
}

QRect ProgramStyle::subElementRect(SubElement element, const QStyleOption* option,
                                   const QWidget* widget) const {
  if (element == SE_LineEditContents) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const bool framed = frame != nullptr && frame->lineWidth > 0;
    return framed ? option->rect.adjusted(kFieldPadding - 2, 1, -kFieldPadding + 2, -1)
                  : option->rect;
  }
  return QProxyStyle::subElementRect(element, option, widget);
}

QRect ProgramStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                   SubControl part, const QWidget* widget) const {
  if (control == CC_ComboBox) {
    const QRect whole = option->rect;
    QRect rect = whole;
    if (part == SC_ComboBoxArrow) {
      rect.setLeft(whole.right() - kArrowRoom + 1);
    } else if (part == SC_ComboBoxEditField) {
      rect.adjust(kFieldPadding - 2, 2, -kArrowRoom, -2);
    } else if (part == SC_ComboBoxListBoxPopup) {
      return QProxyStyle::subControlRect(control, option, part, widget);
    }
    return visualRect(option->direction, whole, rect);
  }
  if (control == CC_ScrollBar) {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (bar != nullptr) return ScrollBarPart(*bar, part);
  }
  return QProxyStyle::subControlRect(control, option, part, widget);
}

}  // namespace brovanta

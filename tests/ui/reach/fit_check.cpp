#include "tests/ui/reach/fit_check.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QToolButton>
#include <QTreeView>
#include <algorithm>

#include "tests/support/form_check.h"
#include "ui/base/color_button.h"
#include "ui/base/wrapped_label.h"
#include "ui/shell/icon_tab_bar.h"

namespace brovanta::test {
namespace {

constexpr int kFinger = 40;
constexpr int kSmallPrint = 14;

QString Called(const QWidget& widget) {
  const QString name = widget.objectName();
  return name.isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : name;
}

int TextWidth(const QWidget& widget, const QString& text) {
  return widget.fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

/// Large print gets smaller where it would be cut, but not small.
int LeastWidth(const QWidget& widget, const QString& text) {
  const int pixels = QFontInfo(widget.font()).pixelSize();
  return TextWidth(widget, text) * std::min(kSmallPrint, pixels) / pixels;
}

int LongestWord(const QWidget& widget, const QString& text) {
  int longest = 0;
  for (const QString& word : text.split(QLatin1Char(' '))) {
    longest = std::max(longest, TextWidth(widget, word));
  }
  return longest;
}

/// What a box that drops down leaves for its text.
int RoomForText(const QWidget& box) {
  QStyleOptionComboBox option;
  option.initFrom(&box);
  return box.style()
      ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box)
      .width();
}

class Inspection {
 public:
  explicit Inspection(QWidget& screen) : screen_(screen) {}

  QStringList Complaints() {
    const QString clipped = QString::fromStdString(Clipped(&screen_));
    if (!clipped.isEmpty()) complaints_ << clipped.split(QLatin1Char('\n'));
    if (auto* menu = qobject_cast<QMenu*>(&screen_)) JudgeMenu(*menu);
    for (QWidget* widget : screen_.findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      JudgeText(*widget);
      JudgePlace(*widget);
      JudgeFinger(*widget);
    }
    return complaints_;
  }

 private:
  void Say(const QWidget& widget, const QString& what) {
    complaints_ << Called(widget) + QStringLiteral(": ") + what;
  }

  void NeedWidth(const QWidget& widget, int width, int needed, const QString& text) {
    if (needed > width) {
      Say(widget, QStringLiteral("\"%1\" needs %2, has %3").arg(text).arg(needed).arg(width));
    }
  }

  void JudgeText(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
      if (qobject_cast<const WrappedLabel*>(label) != nullptr) return;  // breaks words
      const QString text = label->text();
      const int needed = label->wordWrap() ? LongestWord(widget, text) : TextWidth(widget, text);
      NeedWidth(widget, label->contentsRect().width(), needed, text);
    } else if (const auto* colored = qobject_cast<const ColorButton*>(&widget)) {
      if (colored->text().isEmpty()) return;
      const int around = colored->sizeHint().width() - TextWidth(widget, colored->text());
      const int least = LeastWidth(widget, colored->text());
      NeedWidth(widget, widget.width(), around + least, colored->text());
    } else if (const auto* tool = qobject_cast<const QToolButton*>(&widget)) {
      if (tool->icon().isNull())
        NeedWidth(widget, tool->width(), TextWidth(widget, tool->text()), tool->text());
    } else if (const auto* box = qobject_cast<const QCheckBox*>(&widget)) {
      if (box->hasHeightForWidth()) return;  // takes several lines
      NeedWidth(widget, widget.width(), box->sizeHint().width(), box->text());
    } else if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
      constexpr int kFrame = 8;
      NeedWidth(widget, widget.width() - kFrame, LeastWidth(widget, button->text()),
                button->text());
    } else if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
      if (list->isEditable()) return;
      for (int i = 0; i < list->count(); ++i) {
        NeedWidth(widget, RoomForText(widget), LeastWidth(widget, list->itemText(i)),
                  list->itemText(i));
      }
    } else if (const auto* date = qobject_cast<const QDateEdit*>(&widget)) {
      NeedWidth(widget, RoomForText(widget), TextWidth(widget, date->text()), date->text());
    } else if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
      JudgeTabs(*tabs);
    }
  }

  void JudgeTabs(const QTabBar& tabs) {
    for (int i = 0; i < tabs.count(); ++i) {
      NeedWidth(tabs, tabs.tabRect(i).width(), TextWidth(tabs, tabs.tabText(i)), tabs.tabText(i));
      if (!tabs.rect().contains(tabs.tabRect(i))) {
        Say(tabs, QStringLiteral("tab %1 lies outside").arg(i));
      }
    }
  }

  void JudgePlace(const QWidget& widget) {
    const bool control = qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
                         qobject_cast<const QLineEdit*>(&widget) != nullptr ||
                         qobject_cast<const QComboBox*>(&widget) != nullptr ||
                         qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
                         qobject_cast<const QLabel*>(&widget) != nullptr ||
                         qobject_cast<const QTabBar*>(&widget) != nullptr ||
                         qobject_cast<const QTreeView*>(&widget) != nullptr ||
                         qobject_cast<const QCalendarWidget*>(&widget) != nullptr;
    if (!control) return;
    // What can be scrolled to is there; what it is scrolled in must be.
    const QWidget* shown = &widget;
    const QWidget* frame = &screen_;
    for (QWidget* owner = widget.parentWidget(); owner != nullptr && owner != &screen_;
         owner = owner->parentWidget()) {
      if (auto* area = qobject_cast<QScrollArea*>(owner)) {
        frame = area->widget();
        break;
      }
    }
    const QRect place(shown->mapTo(frame, QPoint(0, 0)), shown->size());
    if (!frame->rect().contains(place)) {
      Say(widget, QStringLiteral("outside: %1,%2 %3x%4 in %5x%6")
                      .arg(place.x())
                      .arg(place.y())
                      .arg(place.width())
                      .arg(place.height())
                      .arg(frame->width())
                      .arg(frame->height()));
    }
    if (const auto* list = qobject_cast<const QTreeView*>(&widget)) {
      if (list->viewport()->height() < kFinger) {
        Say(widget, QStringLiteral("only %1 high").arg(list->viewport()->height()));
      }
    }
  }

  void JudgeFinger(const QWidget& widget) {
    const bool tapped = qobject_cast<const ColorButton*>(&widget) != nullptr ||
                        (qobject_cast<const QToolButton*>(&widget) != nullptr &&
                         widget.objectName().startsWith(QLatin1String("tool"))) ||
                        qobject_cast<const QPushButton*>(&widget) != nullptr ||
                        qobject_cast<const QComboBox*>(&widget) != nullptr;
    if (tapped && widget.height() < kFinger) {
      Say(widget, QStringLiteral("lower than a finger: %1").arg(widget.height()));
    }
    if (const auto* list = qobject_cast<const QTreeView*>(&widget)) JudgeRows(*list);
    const auto* tabs = qobject_cast<const QTabBar*>(&widget);
    if (tabs == nullptr) return;
    // The pictures have a fixed size; the strip around them takes the finger.
    const QWidget& strip =
        qobject_cast<const IconTabBar*>(tabs) != nullptr ? *tabs->parentWidget() : widget;
    if (strip.height() < kFinger) {
      Say(strip, QStringLiteral("lower than a finger: %1").arg(strip.height()));
    }
  }

  void JudgeRows(const QTreeView& list) {
    for (QModelIndex row = list.model()->index(0, 0); row.isValid(); row = list.indexBelow(row)) {
      const int height = list.visualRect(row).height();
      if (height < kFinger) {
        Say(list, QStringLiteral("row %1 high").arg(height));
        return;
      }
    }
  }

  void JudgeMenu(const QMenu& menu) {
    if (menu.height() < kFinger) Say(menu, QStringLiteral("only %1 high").arg(menu.height()));
    for (const QAction* action : menu.actions()) {
      const QRect place = menu.actionGeometry(const_cast<QAction*>(action));
      if (!action->isSeparator() && place.height() < kFinger) {
        Say(menu, QStringLiteral("entry %1 high").arg(place.height()));
      }
      if (place.right() > menu.width()) Say(menu, QStringLiteral("cuts ") + action->text());
    }
  }

  QWidget& screen_;
  QStringList complaints_;
};

}  // namespace

QStringList FitComplaints(QWidget& screen) {
  // What has found its place may give another control a new one.
  for (int i = 0; i < 8; ++i) QCoreApplication::processEvents();
  return Inspection(screen).Complaints();
}

bool IsWhollyVisible(const QWidget& widget) {
  return widget.visibleRegion().boundingRect() == widget.rect();
}

}  // namespace brovanta::test

#include "tests/ui/reach/focus_check.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTabBar>
#include <QTest>
#include <algorithm>

namespace brovanta::test {
namespace {

constexpr int kMoreThanAnyScreenHas = 60;

QString Called(const QWidget* widget) {
  if (widget == nullptr) return QStringLiteral("nothing");
  const QString name = widget->objectName();
  return name.isEmpty() ? QString::fromLatin1(widget->metaObject()->className()) : name;
}

/// Whether a person works with it; parts of a control do not count, nor do the buttons of a
/// calendar, for which it has keys.
bool IsControl(const QWidget* widget) {
  for (const QWidget* owner = widget->parentWidget(); owner != nullptr;
       owner = owner->parentWidget()) {
    if (qobject_cast<const QComboBox*>(owner) != nullptr ||
        qobject_cast<const QAbstractSpinBox*>(owner) != nullptr ||
        qobject_cast<const QTabBar*>(owner) != nullptr ||
        qobject_cast<const QCalendarWidget*>(owner) != nullptr) {
      return false;
    }
  }
  return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
         qobject_cast<const QLineEdit*>(widget) != nullptr ||
         qobject_cast<const QComboBox*>(widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
         qobject_cast<const QTabBar*>(widget) != nullptr ||
         qobject_cast<const QCalendarWidget*>(widget) != nullptr;
}

QWidget* AreaOf(const QWidget* widget) {
  for (QWidget* owner = widget->parentWidget(); owner != nullptr; owner = owner->parentWidget()) {
    if (qobject_cast<QScrollArea*>(owner) != nullptr) return owner;
  }
  return nullptr;
}

/// Where two controls lie to each other, however far their area is scrolled.
std::pair<QRect, QRect> Places(QWidget* one, QWidget* other, QWidget& screen) {
  QWidget* const first = AreaOf(one);
  QWidget* const second = AreaOf(other);
  if (first != second) {
    QWidget* const other_control = other;
    if (second != nullptr && !second->isAncestorOf(one)) other = second;
    if (first != nullptr && !first->isAncestorOf(other_control)) one = first;
  }
  const auto place = [&screen](const QWidget* widget) {
    return QRect(widget->mapTo(&screen, QPoint(0, 0)), widget->size());
  };
  return {place(one), place(other)};
}

/// Lines from top to bottom, each from left to right.
bool IsReadBefore(const QRect& one, const QRect& other) {
  const bool same_line = one.center().y() >= other.top() && one.center().y() <= other.bottom();
  return same_line ? one.left() < other.left() : one.center().y() < other.center().y();
}

class Walk {
 public:
  explicit Walk(QWidget& screen) : screen_(screen) {}

  QStringList Complaints() {
    if (QApplication::focusWidget() == nullptr ||
        !(screen_.isAncestorOf(QApplication::focusWidget()))) {
      if (!HasControls()) return {};  // one can only wait
      return {QStringLiteral("nothing has the keyboard")};
    }
    const QList<QWidget*> forth = Around(Qt::Key_Tab, true);
    QList<QWidget*> back = Around(Qt::Key_Backtab, false);
    std::reverse(back.begin() + 1, back.end());
    if (back != forth) complaints_ << QStringLiteral("Shift+Tab goes another way than Tab");
    JudgeOrder(forth);
    for (QWidget* widget : screen_.findChildren<QWidget*>()) {
      if (IsUsable(widget) && !Reached(forth, widget)) {
        complaints_ << Called(widget) + QStringLiteral(": not reached");
      }
    }
    return complaints_;
  }

 private:
  static bool IsUsable(const QWidget* widget) {
    return widget->isVisible() && widget->isEnabled() && IsControl(widget);
  }

  [[nodiscard]] bool HasControls() const {
    const QList<QWidget*> widgets = screen_.findChildren<QWidget*>();
    return std::any_of(widgets.cbegin(), widgets.cend(), &Walk::IsUsable);
  }

  /// A date lets go behind its last part.
  static QWidget* Next(QWidget* now, Qt::Key key) {
    const int presses = qobject_cast<QAbstractSpinBox*>(now) != nullptr ? 3 : 1;
    for (int i = 0; i < presses && QApplication::focusWidget() == now; ++i) {
      QTest::keyClick(now, key, key == Qt::Key_Tab ? Qt::NoModifier : Qt::ShiftModifier);
    }
    return QApplication::focusWidget();
  }

  QList<QWidget*> Around(Qt::Key key, bool look) {
    QList<QWidget*> reached;
    QWidget* const start = QApplication::focusWidget();
    QWidget* now = start;
    do {
      reached << now;
      const QImage with = look ? now->grab().toImage() : QImage();
      QWidget* const next = Next(now, key);
      if (next == nullptr) {
        complaints_ << Called(now) + QStringLiteral(": loses the keyboard");
        return reached;
      }
      if (next == now && reached.size() == 1) return reached;  // the only one
      if (next == now || reached.size() > kMoreThanAnyScreenHas) {
        complaints_ << Called(now) + QStringLiteral(": does not let go");
        return reached;
      }
      if (look && now->grab().toImage() == with) {
        complaints_ << Called(now) + QStringLiteral(": does not show that it has the keyboard");
      }
      now = next;
    } while (now != start);
    return reached;
  }

  /// The walk goes around: once it comes from the end to the beginning.
  void JudgeOrder(const QList<QWidget*>& reached) {
    QStringList back;
    for (qsizetype i = 0; i < reached.size(); ++i) {
      QWidget* const one = reached[i];
      QWidget* const next = reached[(i + 1) % reached.size()];
      const auto [first, second] = Places(one, next, screen_);
      if (one != next && !IsReadBefore(first, second)) {
        back << Called(one) + QStringLiteral(" before ") + Called(next);
      }
    }
    if (back.size() > 1) {
      complaints_ << QStringLiteral("not the order of reading: ") + back.join(QLatin1String(", "));
    }
  }

  /// A calendar is reached by its days.
  static bool Reached(const QList<QWidget*>& reached, const QWidget* widget) {
    return std::any_of(reached.begin(), reached.end(), [widget](const QWidget* one) {
      return one == widget ||
             (qobject_cast<const QCalendarWidget*>(widget) != nullptr && widget->isAncestorOf(one));
    });
  }

  QWidget& screen_;
  QStringList complaints_;
};

}  // namespace

QStringList FocusComplaints(QWidget& screen) {
  QCoreApplication::processEvents();
  return Walk(screen).Complaints();
}

QStringList MenuComplaints(QMenu& menu) {
  QList<QAction*> reached;
  for (qsizetype i = 0; i < menu.actions().size(); ++i) {
    QTest::keyClick(&menu, Qt::Key_Down);
    reached << menu.activeAction();
  }
  QStringList complaints;
  for (QAction* action : menu.actions()) {
    if (action->isSeparator() || !action->isEnabled() || reached.contains(action)) continue;
    complaints << action->text() + QStringLiteral(": not reached");
  }
  return complaints;
}

}  // namespace brovanta::test

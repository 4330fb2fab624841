// The robot at the bars: tabs, tool bar, menus.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "tests/tour/robot.h"

namespace brovanta::tour {
namespace {

QAbstractButton* ToolsButton(QWidget& main) {
  return main.findChild<QAbstractButton*>(QStringLiteral("toolsButton"));  // in any language
}

}  // namespace

void Robot::TapTab(QWidget& window, int index) {
  auto* bar = window.findChild<QTabBar*>();
  Expect(bar != nullptr, window.objectName() + QStringLiteral(" has a tab bar"));
  if (bar == nullptr) return;
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(index).center());
  Settle();
  Expect(bar->currentIndex() == index, QStringLiteral("tab %1 was not chosen").arg(index));
}

void Robot::TapCommand(QWidget& main, int command) {
  for (auto* button : main.findChildren<QToolButton*>()) {
    const QAction* action = button->defaultAction();
    if (action != nullptr && action->data().toInt() == command) {
      Tap(*button);
      return;
    }
  }
  Expect(false, QStringLiteral("no tool %1").arg(command));
}

bool Robot::WithMenu(const std::function<void()>& trigger, const std::function<void(QMenu&)>& act) {
  bool came = false;
  QTimer watch;
  watch.setInterval(1);
  QObject::connect(&watch, &QTimer::timeout, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return;
    watch.stop();
    came = true;
    act(*menu);
    if (menu->isVisible()) menu->close();
  });
  watch.start();
  trigger();
  // A menu may also be dropped without blocking.
  const bool opened = QTest::qWaitFor([&] { return came; }, 2000);
  Settle();
  return opened;
}

bool Robot::TapItem(QMenu& menu, const QString& item) {
  for (QAction* action : menu.actions()) {
    const QString text = action->text().replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    if (QString(text).remove(QLatin1Char('&')).replace(QChar(1), QLatin1Char('&')) != item) {
      continue;
    }
    Expect(action->isEnabled(), QStringLiteral("\"%1\" is greyed").arg(item));
    QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, menu.actionGeometry(action).center());
    return true;
  }
  return false;
}

void Robot::ChooseFromMenu(QWidget& window, int control_id, const QString& item) {
  QWidget* button = Control(window, control_id);
  if (button == nullptr) return;
  bool chosen = false;
  WithMenu([&] { QTest::mouseClick(button, Qt::LeftButton); },
           [&](QMenu& menu) { chosen = TapItem(menu, item); });
  Expect(chosen, QStringLiteral("the menu does not offer \"%1\"").arg(item));
}

void Robot::ChooseTool(QWidget& main, const QString& item) {
  QAbstractButton* button = ToolsButton(main);
  Expect(button != nullptr, QStringLiteral("there is no Tools menu"));
  if (button == nullptr) return;
  bool chosen = false;
  WithMenu([&] { QTest::mouseClick(button, Qt::LeftButton); },
           [&](QMenu& menu) { chosen = TapItem(menu, item); });
  Expect(chosen, QStringLiteral("Tools does not offer \"%1\"").arg(item));
}

void Robot::PictureOfTools(QWidget& main, const QString& name) {
  QAbstractButton* button = ToolsButton(main);
  Expect(button != nullptr, QStringLiteral("there is no Tools menu"));
  if (button != nullptr) PictureWithMenu(main, *button, name);
}

void Robot::PictureOfMenu(QWidget& window, int control_id, const QString& name) {
  if (QWidget* control = Control(window, control_id)) PictureWithMenu(window, *control, name);
}

void Robot::PictureWithMenu(QWidget& window, QWidget& opener, const QString& name) {
  const bool opened =
      WithMenu([&] { QTest::mouseClick(&opener, Qt::LeftButton); },
               [&](QMenu& menu) {
                 const QRect screen(QPoint(0, 0), window.size());
                 const QRect popup(window.mapFromGlobal(menu.pos()), menu.size());
                 QPixmap picture(screen.united(popup).size() * window.devicePixelRatioF());
                 picture.setDevicePixelRatio(window.devicePixelRatioF());
                 picture.fill(Qt::gray);
                 QPainter painter(&picture);
                 painter.translate(-screen.united(popup).topLeft());
                 painter.drawPixmap(screen.topLeft(), window.grab());
                 painter.drawPixmap(popup.topLeft(), menu.grab());
                 painter.end();
                 SavePicture(picture, name);
               });
  Expect(opened, opener.objectName() + QStringLiteral(" dropped no menu"));
}

}  // namespace brovanta::tour

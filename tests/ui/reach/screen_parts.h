// Hands on the controls of an open screen.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTabBar>
#include <QTest>
#include <QWidget>

namespace brovanta::test {

template <typename Widget = QWidget>
Widget& Find(QWidget& window, const char* name) {
  auto* const found = window.findChild<Widget*>(QString::fromLatin1(name));
  if (found == nullptr) qFatal("no %s", name);
  return *found;
}

inline void ChooseTab(QWidget& window, int index) {
  auto& tabs = Find<QTabBar>(window, "tabBar");
  QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(index).center());
}

inline void Click(QWidget& window, const char* button) {
  QTest::mouseClick(&Find(window, button), Qt::LeftButton);
}

/// A window manager gives it the keyboard back when a menu over it has closed.
inline void Activate(QWidget& window) {
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  QCoreApplication::processEvents();
}

}  // namespace brovanta::test

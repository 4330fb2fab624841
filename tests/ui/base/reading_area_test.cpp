#include "ui/base/reading_area.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

TEST(ReadingAreaTest, AFrameShowsThatItHasTheFocus) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* area = new ReadingArea;
  auto* button = new QPushButton(QStringLiteral("Close"));
  area->setWidget(new QLabel(QStringLiteral("A long text")));
  area->setFocusPolicy(Qt::StrongFocus);
  layout->addWidget(area);
  layout->addWidget(button);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto edge = [area] { return area->grab().toImage().pixelColor(40, 0); };
  button->setFocus();
  EXPECT_NE(edge(), theme::kNavy);
  area->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(edge(), theme::kNavy);
}

}  // namespace
}  // namespace brovanta

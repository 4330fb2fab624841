#include "ui/base/tool_tip.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>
#include <QVBoxLayout>

namespace brovanta {
namespace {

TEST(ToolTipTest, MarkupIsShownAsItStands) {
  EXPECT_EQ(ToolTipText(QStringLiteral("R&D, 20% off")), QStringLiteral("R&D, 20% off"));
  QTextDocument shown;
  shown.setHtml(ToolTipText(QStringLiteral("<b>Tea</b>")));
  EXPECT_EQ(shown.toPlainText(), QStringLiteral("<b>Tea</b>"));
}

class FocusTipTest : public testing::Test {
 protected:
  FocusTipTest() {
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(field_ = new QLineEdit);
    layout->addWidget(button_ = new QPushButton);
    button_->setToolTip(QStringLiteral("Coupon 1: Tea"));
    button_->setFocusPolicy(Qt::StrongFocus);
    ShowToolTipOnFocus(button_);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    field_->setFocus();
  }
  ~FocusTipTest() override { QToolTip::hideText(); }

  QWidget window_;
  QLineEdit* field_;
  QPushButton* button_;
};

TEST_F(FocusTipTest, TheTabKeyShowsIt) {
  QTest::keyClick(field_, Qt::Key_Tab);
  ASSERT_TRUE(button_->hasFocus());
  EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }));
  EXPECT_EQ(QToolTip::text(), QStringLiteral("Coupon 1: Tea"));
}

TEST_F(FocusTipTest, ATapDoesNot) {
  QTest::mouseClick(button_, Qt::LeftButton);
  ASSERT_TRUE(button_->hasFocus());
  QCoreApplication::processEvents();
  EXPECT_FALSE(QToolTip::isVisible());
}

TEST_F(FocusTipTest, ItGoesWithTheFocus) {
  QTest::keyClick(field_, Qt::Key_Tab);
  ASSERT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }));
  QTest::keyClick(button_, Qt::Key_Tab);
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

}  // namespace
}  // namespace brovanta

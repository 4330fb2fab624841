#include "ui/base/wrapped_check_box.h"

#include <gtest/gtest.h>

#include <QTest>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

class WrappedCheckBoxTest : public testing::Test {
 protected:
  WrappedCheckBoxTest() { box_.setText(QStringLiteral("Apply discount to current product")); }

  WrappedCheckBox box_;
};

TEST_F(WrappedCheckBoxTest, TakesMoreLinesWhereItIsNarrow) {
  const int wide = box_.sizeHint().width();
  EXPECT_EQ(box_.heightForWidth(wide), theme::kFingerHeight);
  EXPECT_GT(box_.heightForWidth(wide / 3), theme::kFingerHeight);
  EXPECT_LT(box_.minimumSizeHint().width(), wide / 2);
}

TEST_F(WrappedCheckBoxTest, ATapOnItsTextTicksIt) {
  box_.resize(200, 60);
  box_.show();
  QTest::mouseClick(&box_, Qt::LeftButton, {}, QPoint(190, 55));
  EXPECT_TRUE(box_.isChecked());
}

}  // namespace
}  // namespace brovanta

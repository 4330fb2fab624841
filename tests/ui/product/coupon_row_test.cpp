#include "ui/product/coupon_row.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QWidget>

#include "ui/base/color_button.h"

namespace brovanta {
namespace {

class CouponRowTest : public testing::Test {
 protected:
  CouponRowTest() {
    for (ColorButton*& button : buttons_) button = new ColorButton(&form_);
    search_ = new ColorButton(&form_);
    row_ = std::make_unique<CouponRow>(buttons_, search_, &form_);
  }

  void Draw(int type) {
    row_->DrawSlot(2, AppliedDiscount{type > 0 ? 9U : 0U, 0, static_cast<std::int16_t>(type)});
  }

  QWidget form_;
  std::array<ColorButton*, kSlotCount> buttons_{};
  ColorButton* search_ = nullptr;
  std::unique_ptr<CouponRow> row_;
};

TEST_F(CouponRowTest, EachSlotHasItsMenuInOrder) {
  for (std::size_t slot = 0; slot < kSlotCount; ++slot) {
    const QList<QAction*> actions = row_->menu(slot)->actions();
    ASSERT_EQ(actions.size(), 2);
    EXPECT_EQ(actions[0]->text(), QStringLiteral("Select Coupon"));
    EXPECT_EQ(actions[0]->data().toInt(), 3201 + static_cast<int>(slot));
    EXPECT_EQ(actions[1]->text(), QStringLiteral("Add New Coupon"));
    EXPECT_EQ(actions[1]->data().toInt(), 3101 + static_cast<int>(slot));
  }
}

TEST_F(CouponRowTest, AnEmptySlotShowsItsPictureAndDropsItsMenu) {
  for (const int type : {0, -1, -32768}) {
    Draw(type);
    EXPECT_EQ(buttons_[2]->first_picture(), 146);
    EXPECT_EQ(buttons_[2]->menu(), row_->menu(2));
  }
}

TEST_F(CouponRowTest, AFilledSlotShowsHowItWasFilledAndHasNoMenu) {
  const struct {
    std::int16_t type;
    int picture;
  } rows[] = {{1, 147}, {2, 147}, {3, 148}, {4, 148}, {5, 149}, {101, 150}, {32767, 150}};
  for (const auto& row : rows) {
    Draw(row.type);
    EXPECT_EQ(buttons_[2]->first_picture(), row.picture) << row.type;
    EXPECT_EQ(buttons_[2]->menu(), nullptr);
  }
}

TEST_F(CouponRowTest, ATypeBetween6And100KeepsThePicture) {
  Draw(5);
  for (const int type : {6, 50, 100}) {
    Draw(type);
    EXPECT_EQ(buttons_[2]->first_picture(), 149) << type;
    EXPECT_EQ(buttons_[2]->menu(), nullptr);
  }
}

TEST_F(CouponRowTest, TheSearchButtonShowsItsPicture) {
  EXPECT_EQ(search_->first_picture(), 161);
  EXPECT_EQ(search_->menu(), nullptr);
}

}  // namespace
}  // namespace brovanta

#include "ui/product/coupon_row.h"

#include <QAction>
#include <QImage>
#include <QMenu>
#include <QTest>
#include <QToolTip>
#include <QWidget>

#include "tests/ui/product/discount_form.h"
#include "ui/base/color_button.h"
#include "ui/base/icons.h"

namespace brovanta {
namespace {

class CouponRowTest : public test::DiscountFormTest {
 protected:
  CouponRowTest() {
    for (ColorButton*& button : buttons_.slots) button = new ColorButton(&form_);
    buttons_.search = new ColorButton(&form_);
    Make({});
  }

  void Make(const DiscountSlots& slots) {
    row_ = std::make_unique<CouponRow>(
        buttons_, slots, database_, "http://server:8427", [] { return std::nullopt; }, &form_);
  }

  void Draw(int type) {
    row_->DrawSlot(2, AppliedDiscount{type > 0 ? 9U : 0U, 0, static_cast<std::int16_t>(type)});
  }
  std::string Tip(std::size_t slot) {
    EXPECT_EQ(buttons_.slots[slot]->toolTip(), buttons_.slots[slot]->accessibleName());
    return buttons_.slots[slot]->toolTip().toStdString();
  }

  QWidget form_;
  CouponButtons buttons_;
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
    EXPECT_EQ(buttons_.slots[2]->first_picture(), 146);
    EXPECT_EQ(buttons_.slots[2]->menu(), row_->menu(2));
  }
}

TEST_F(CouponRowTest, AFilledSlotShowsHowItWasFilledAndHasNoMenu) {
  const struct {
    std::int16_t type;
    int picture;
  } rows[] = {{1, 147}, {2, 147}, {3, 148}, {4, 148}, {5, 149}, {101, 150}, {32767, 150}};
  for (const auto& row : rows) {
    Draw(row.type);
    EXPECT_EQ(buttons_.slots[2]->first_picture(), row.picture) << row.type;
    EXPECT_EQ(buttons_.slots[2]->menu(), nullptr);
  }
}

TEST_F(CouponRowTest, ATypeBetween6And100KeepsThePicture) {
  Draw(5);
  for (const int type : {6, 50, 100}) {
    Draw(type);
    EXPECT_EQ(buttons_.slots[2]->first_picture(), 149) << type;
    EXPECT_EQ(buttons_.slots[2]->menu(), nullptr);
  }
}

TEST_F(CouponRowTest, ASlotThatOpensWithSuchATypeLooksFilled) {
  Make({{{9, 1, 6}, {9, 1, 100}}});
  for (const std::size_t slot : {0, 1}) {
    EXPECT_EQ(buttons_.slots[slot]->first_picture(), 149);
    EXPECT_EQ(buttons_.slots[slot]->menu(), nullptr);
  }
  EXPECT_EQ(buttons_.slots[2]->first_picture(), 146);
}

TEST_F(CouponRowTest, TheButtonsAreWhiteAndNavy) {
  std::vector<ColorButton*> buttons(buttons_.slots.begin(), buttons_.slots.end());
  buttons.push_back(buttons_.search);
  for (ColorButton* button : buttons) {
    button->resize(44, 40);
    const QImage image = button->grab().toImage();
    EXPECT_EQ(image.pixelColor(6, 6), QColor(Qt::white));
    int navy = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == QColor(0, 0, 128)) ++navy;
      }
    }
    EXPECT_GT(navy, 20);
  }
}

TEST_F(CouponRowTest, AFilledSlotSaysWhichCouponItHoldsAndHowItCame) {
  DiscountFields fields = Full();
  fields.value = 20.0;
  fields.value_type = 1;
  fields.type = 2;
  Stored(9, 1, fields);
  fields.name = "Tea";
  fields.end_date = 0;
  fields.start_date = 0;
  Stored(9, 2, fields);
  Make({{{9, 1, 2}, {9, 2, 102}, {9, 0, 102}, {0, 0, 0}, {77, 0, 1}}});
  EXPECT_EQ(Tip(0), "Coupon 1: Caf\u00E9 week, 20% off, until 11/22/2026, chosen by you");
  EXPECT_EQ(Tip(1), "Coupon 2: Tea, 20% off, found by the search");
  EXPECT_EQ(Tip(2), "Coupon 3: Caf\u00E9 week, 20% off, until 11/22/2026, found by the search");
  EXPECT_EQ(Tip(3), "Coupon 4: empty");
  EXPECT_EQ(Tip(4), "Coupon 5: no longer in the database");
}

TEST_F(CouponRowTest, ANameThatLooksLikeMarkupOrAnArgumentIsSaidAsItStands) {
  DiscountFields fields;
  fields.name = "<b>%1</b>";
  fields.type = 1;
  fields.value_type = 2;
  fields.value = 5.0;
  Stored(9, 1, fields);
  Make({{{9, 1, 1}}});
  EXPECT_EQ(buttons_.slots[0]->accessibleName().toStdString(),
            "Coupon 1: <b>%1</b>, 5.00 off, chosen by you");
  EXPECT_TRUE(buttons_.slots[0]->toolTip().contains(QStringLiteral("&lt;b&gt;%1")));
}

TEST_F(CouponRowTest, TheTabKeyShowsWhatASlotHolds) {
  Stored(9, 1, Full());
  Make({{{9, 1, 2}}});
  form_.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
  buttons_.search->setFocus();
  buttons_.slots[0]->setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }));
  EXPECT_EQ(QToolTip::text(), buttons_.slots[0]->toolTip());
  QToolTip::hideText();
}

TEST_F(CouponRowTest, ASlotOfAFeedTypeBelowOneIsEmpty) {
  Make({{{9, 1, 0}, {9, 1, -3}, {}, {}, {}}});
  EXPECT_EQ(Tip(0), "Coupon 1: empty");
  EXPECT_EQ(buttons_.slots[1]->menu(), row_->menu(1));
  EXPECT_EQ(row_->slots()[1], (AppliedDiscount{9, 1, -3}));  // as it was stored
}

TEST_F(CouponRowTest, CommandsOutsideTheFiveSlotsDoNothing) {
  const DiscountSlots before = row_->slots();
  for (const int command : {3100, 3106, 3120, 3121, 3200, 3206, 3220, 3221, 0, -1}) {
    row_->RunCommand(command);
  }
  EXPECT_EQ(row_->slots(), before);
  EXPECT_EQ(Messages(), "");
}

TEST_F(CouponRowTest, TheSearchProductHoldsWhatTheSearchGoesByAndNothingElse) {
  ProductFields fields;
  fields.name = "Milk";
  fields.notes = "soft";
  fields.store = NameRef{7, "Corner"};
  fields.category = NameRef{0, "New"};
  fields.unit_price = 3.0;
  fields.purchase_kind = 3;
  fields.discounts[0] = {1, 1, 1};
  ProductRecord expected;
  expected.Name.Assign("Milk");
  expected.Notes.Assign("soft");
  expected.StoreId = 7;
  EXPECT_EQ(SearchProduct(fields), expected);
  EXPECT_EQ(folder_.Read("category.lst")->size(), 8U);  // no name was made
}

TEST_F(CouponRowTest, AProductWithoutAStoredNameIsNotSearchedFor) {
  ProductFields fields;
  fields.name = std::string("\0x", 2);
  EXPECT_EQ(SearchProduct(fields), std::nullopt);
  row_ = std::make_unique<CouponRow>(
      buttons_, DiscountSlots(), database_, "", [&] { return fields; }, &form_);
  QTest::mouseClick(buttons_.search, Qt::LeftButton);
  EXPECT_EQ(Messages(),
            "There was an error whiile searching for discounts for the current product.");
}

TEST_F(CouponRowTest, ThePicturesOfTheSlotsAllDiffer) {
  QList<QImage> seen;
  for (const int number : {146, 147, 148, 149, 150, 161}) {
    const QImage image = NumberedIcon(number).pixmap(24, 24).toImage();
    ASSERT_FALSE(image.isNull()) << number;
    EXPECT_FALSE(seen.contains(image)) << number;
    seen.append(image);
  }
}

TEST_F(CouponRowTest, TheSearchButtonShowsItsPicture) {
  EXPECT_EQ(buttons_.search->first_picture(), 161);
  EXPECT_EQ(buttons_.search->menu(), nullptr);
}

}  // namespace
}  // namespace brovanta

// The coupon row inside the product dialog: opening, making, selecting and finding coupons.
#include <QCheckBox>
#include <QTest>

#include "tests/db/raw_files.h"
#include "tests/support/form_check.h"
#include "tests/support/framed_file.h"
#include "tests/ui/product/product_form.h"
#include "ui/base/color_button.h"
#include "ui/base/record_tree.h"

namespace brovanta {
namespace {

using test::RawDiscount;

const char* const kFound = "\n\nPlease review and validate each discount applied.";

class ProductCouponsTest : public test::ProductFormTest {
 protected:
  void Coupons(std::initializer_list<RawDiscount> discounts) const {
    folder_.Write("discount.dat", test::RawDiscountFile(100, discounts));
  }
  /// A daily product with these links, as the list has it.
  ProductRecord With(const DiscountSlots& slots) {
    ProductFields fields;
    fields.name = "Milk";
    fields.purchase_kind = 2;
    fields.day_value = 2;
    fields.start_date = test::kToday;
    fields.discounts = slots;
    return Stored(kProductKind, fields);
  }
  int Edit(const DiscountSlots& slots, const Act& act) {
    const ProductRecord record = With(slots);
    return Run(&record, kProductMode, act);
  }
  ColorButton* Slot(int number) {
    return Find<ColorButton>(qPrintable(QStringLiteral("couponSlotButton%1").arg(number)));
  }
  void PressSlot(int number) { QTest::mouseClick(Slot(number), Qt::LeftButton); }
  int Picture(int number) { return Slot(number)->first_picture(); }
  void ChooseInSlot(int number, const char* entry) {
    ChooseInMenu(qPrintable(QStringLiteral("couponSlotButton%1").arg(number)),
                 QLatin1String(entry));
  }
  /// The links as stored in the last record of "product.dat": "id/source/type" of each slot.
  std::string Links() const {
    const std::vector<std::string> records = Records("product.dat");
    if (records.empty()) return "(no record)";
    std::string links;
    for (std::size_t slot = 0; slot < 5; ++slot) {
      const std::size_t at = 376 + 12 * slot + 4;
      if (slot > 0) links += ' ';
      links += std::to_string(test::WordAt(records.back(), at)) + '/' +
               std::to_string(static_cast<std::int16_t>(test::HalfAt(records.back(), at + 4))) +
               '/' +
               std::to_string(static_cast<std::int16_t>(test::HalfAt(records.back(), at + 6)));
    }
    return links;
  }
  void SelectRow(const QString& name) {
    auto* tree = Find<RecordTree>("recordTree");
    for (QTreeWidgetItemIterator it(tree); *it != nullptr; ++it) {
      const TreeItemInfo* info = InfoOf(*it);
      if (info == nullptr || info->name != name) continue;
      QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(*it).center());
      return;
    }
    ADD_FAILURE() << "no row " << name.toStdString();
  }
  void FillInACoupon(const QString& name) {
    Type("couponNameEdit", name);
    Choose("typeBox", QStringLiteral("Mail In Rebate"));
    Choose("valueTypeBox", QStringLiteral("Percent (%)"));
  }
};

TEST_F(ProductCouponsTest, APickedCouponOpensWithTheBoxTicked) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  Edit({{{5, 1, 2}}}, [&] {
    InNextDialog([&] {
      EXPECT_EQ(Line("couponNameEdit")->text(), QStringLiteral("Soap week"));
      EXPECT_TRUE(Find<QCheckBox>("applyBox")->isChecked());
    });
    PressSlot(1);
  });
}

TEST_F(ProductCouponsTest, AFoundCouponOpensWithTheBoxNotTicked) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  Edit({{{5, 0, 102}}}, [&] {
    InNextDialog([&] {
      EXPECT_EQ(Line("couponNameEdit")->text(), QStringLiteral("Soap week"));
      EXPECT_FALSE(Find<QCheckBox>("applyBox")->isChecked());
    });
    PressSlot(1);
  });
}

TEST_F(ProductCouponsTest, TheModeChangesBetween100And101) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  for (const std::int16_t type : {std::int16_t{1}, std::int16_t{6}, std::int16_t{100},
                                  std::int16_t{101}, std::int16_t{32767}}) {
    Edit({{{5, 1, type}}}, [&] {
      InNextDialog(
          [&] { EXPECT_EQ(Find<QCheckBox>("applyBox")->isChecked(), type <= 100) << type; });
      PressSlot(1);
    });
  }
}

TEST_F(ProductCouponsTest, ClearingTheApplyChoiceEmptiesTheSlot) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  EXPECT_EQ(Edit({{{5, 1, 2}, {5, 1, 2}}},
                 [&] {
                   InNextDialog([&] {
                     QTest::keyClick(Find("applyBox"), Qt::Key_Space);
                     PressOk();
                   });
                   PressSlot(1);
                   EXPECT_EQ(Picture(1), 146);
                   EXPECT_NE(Slot(1)->menu(), nullptr);
                   EXPECT_EQ(Slot(1)->toolTip(), QStringLiteral("Coupon 1: empty"));
                   EXPECT_EQ(Picture(2), 147);
                   PressOk();
                 }),
            0);
  EXPECT_EQ(Links(), "0/0/0 5/1/2 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, OkWithoutTickingClearsAFoundCoupon) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  Edit({{{5, 0, 102}}}, [&] {
    InNextDialog([&] { PressOk(); });
    PressSlot(1);
    PressOk();
  });
  EXPECT_EQ(Links(), "0/0/0 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, CancellingTheDiscountDialogKeepsTheLink) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  Edit({{{5, 1, 2}}}, [&] {
    InNextDialog([&] {
      QTest::keyClick(Find("applyBox"), Qt::Key_Space);
      Press("cancelButton");
    });
    PressSlot(1);
    EXPECT_EQ(Picture(1), 147);
    PressOk();
  });
  EXPECT_EQ(Links(), "5/1/2 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, AcceptingAFoundCouponGivesTheSlotItsTrueSourceAndType) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 3}});
  Edit({{{5, 0, 103}}}, [&] {
    EXPECT_EQ(Picture(1), 150);
    InNextDialog([&] {
      QTest::keyClick(Find("applyBox"), Qt::Key_Space);
      PressOk();
    });
    PressSlot(1);
    EXPECT_EQ(Picture(1), 148);
    PressOk();
  });
  EXPECT_EQ(Links(), "5/2/3 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, ACouponThatIsGoneIsReportedAndStaysLinked) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2, .deleted = 1}});
  Edit({{{5, 1, 2}, {6, 0, 102}}}, [&] {
    Type("productNameEdit", QStringLiteral("Typed"));
    PressSlot(1);
    PressSlot(2);
    EXPECT_EQ(Picture(1), 147);
    EXPECT_EQ(Line("productNameEdit")->text(), QStringLiteral("Typed"));
    PressOk();
  });
  EXPECT_EQ(Messages(),
            "The selected coupon was not found in the database.\n"
            "The selected coupon was not found in the database.");
  EXPECT_EQ(Links(), "5/1/2 6/0/102 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, AnEmptySlotDropsItsMenuAndOpensNothing) {
  Edit({}, [&] {
    PressSlot(5);
    ASSERT_NE(Slot(5)->menu(), nullptr);
    EXPECT_TRUE(Slot(5)->menu()->isVisible());
    QTest::keyClick(Slot(5)->menu(), Qt::Key_Escape);
  });
  EXPECT_EQ(Messages(), "");
}

TEST_F(ProductCouponsTest, ANewCouponGoesIntoItsSlot) {
  EXPECT_EQ(Edit({},
                 [&] {
                   InNextDialog([&] {
                     EXPECT_FALSE(Find("applyBox")->isVisible());
                     FillInACoupon(QStringLiteral("Made here"));
                     PressOk();
                   });
                   ChooseInSlot(3, "Add New Coupon");
                   EXPECT_EQ(Picture(3), 148);
                   EXPECT_EQ(Slot(3)->menu(), nullptr);
                   EXPECT_EQ(Slot(3)->accessibleName(),
                             QStringLiteral("Coupon 3: Made here, 0% off, chosen by you"));
                   PressOk();
                 }),
            0);
  EXPECT_EQ(Links(), "0/0/0 0/0/0 2/0/3 0/0/0 0/0/0");
  EXPECT_EQ(RecordsOf("discount.dat", 400).size(), 1U);
}

TEST_F(ProductCouponsTest, ACancelledNewCouponLeavesTheSlot) {
  Edit({}, [&] {
    InNextDialog([&] { Press("cancelButton"); });
    ChooseInSlot(1, "Add New Coupon");
    EXPECT_EQ(Picture(1), 146);
  });
}

TEST_F(ProductCouponsTest, ASelectedCouponGoesIntoItsSlot) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 1}});
  EXPECT_EQ(Edit({},
                 [&] {
                   InNextDialog([&] {
                     SelectRow(QStringLiteral("Soap week"));
                     Press("selectButton");
                   });
                   ChooseInSlot(5, "Select Coupon");
                   EXPECT_EQ(Picture(5), 147);
                   PressOk();
                 }),
            0);
  EXPECT_EQ(Links(), "0/0/0 0/0/0 0/0/0 0/0/0 5/2/1");
}

TEST_F(ProductCouponsTest, APickedCouponOfATypeBelowOneIsHeldBehindTheEmptyPicture) {
  for (const std::int16_t type : {std::int16_t{0}, std::int16_t{-3}}) {
    Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = type}});
    Edit({}, [&] {
      InNextDialog([&] {
        SelectRow(QStringLiteral("Soap week"));
        Press("selectButton");
      });
      ChooseInSlot(2, "Select Coupon");
      EXPECT_EQ(Picture(2), 146) << type;
      EXPECT_NE(Slot(2)->menu(), nullptr) << type;
      PressOk();
    });
    EXPECT_EQ(Links(), "0/0/0 5/2/" + std::to_string(type) + " 0/0/0 0/0/0 0/0/0");
  }
}

TEST_F(ProductCouponsTest, APickedCouponOfATypeAboveFiveKeepsThePictureAndOpens) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 7}});
  Edit({}, [&] {
    InNextDialog([&] {
      SelectRow(QStringLiteral("Soap week"));
      Press("selectButton");
    });
    ChooseInSlot(2, "Select Coupon");
    EXPECT_EQ(Picture(2), 146);
    EXPECT_EQ(Slot(2)->menu(), nullptr);
    PressOk();
  });
  EXPECT_EQ(Links(), "0/0/0 5/2/7 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, APickedCouponOfATypeAbove100LooksAndOpensLikeAFoundOne) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 150}});
  Edit({}, [&] {
    InNextDialog([&] {
      SelectRow(QStringLiteral("Soap week"));
      Press("selectButton");
    });
    ChooseInSlot(2, "Select Coupon");
    EXPECT_EQ(Picture(2), 150);
    bool opened = false;
    InNextDialog([&] {
      opened = true;
      EXPECT_FALSE(Find<QCheckBox>("applyBox")->isChecked());
    });
    PressSlot(2);
    EXPECT_TRUE(opened);
    PressOk();
  });
  EXPECT_EQ(Links(), "0/0/0 5/2/150 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, ACancelledPickerLeavesTheSlotEvenAfterWorkInIt) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 1}});
  Edit({{{5, 2, 1}}}, [&] {
    InNextDialog([&] {
      SelectRow(QStringLiteral("Soap week"));
      Press("cancelButton");
    });
    ChooseInSlot(2, "Select Coupon");
    EXPECT_EQ(Picture(2), 146);
    EXPECT_EQ(Picture(1), 147);
  });
}

TEST_F(ProductCouponsTest, TheSearchReplacesAllFiveSlots) {
  Coupons({{.id = 5, .source = 1, .name = "Milk week", .type = 2},
           {.id = 6, .source = 2, .name = "x", .product = "Oat MILK", .type = 3},
           {.id = 7, .source = 1, .name = "Soap", .type = 1}});
  EXPECT_EQ(Edit({{{7, 1, 1}, {7, 1, 1}, {7, 1, 1}, {7, 1, 1}, {7, 1, 1}}},
                 [&] {
                   Press("findDiscountsButton");
                   EXPECT_EQ(Picture(1), 150);
                   EXPECT_EQ(Picture(2), 150);
                   for (const int slot : {3, 4, 5}) EXPECT_EQ(Picture(slot), 146) << slot;
                   PressOk();
                 }),
            0);
  EXPECT_EQ(Messages(),
            std::string("Brovanta found 2 discounts for the current product.") + kFound);
  EXPECT_EQ(Links(), "5/0/102 6/0/103 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, ASearchWithoutAResultLeavesTheLinks) {
  Coupons({{.id = 7, .source = 1, .name = "Soap", .type = 1}});
  Edit({{{7, 1, 1}}}, [&] {
    Press("findDiscountsButton");
    EXPECT_EQ(Picture(1), 147);
    PressOk();
  });
  EXPECT_EQ(Messages(), "Brovanta could not find any discounts for the current product.");
  EXPECT_EQ(Links(), "7/1/1 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, ASearchThatFailsOnTheWayLeavesTheLinks) {
  test::Bytes bytes = test::RawDiscountFile(9, {{.id = 7, .source = 1, .name = "Milk week"}});
  bytes.resize(bytes.size() - 4);  // the match is read before the error
  folder_.Write("discount.dat", bytes);
  Edit({{{9, 2, 1}}}, [&] {
    Press("findDiscountsButton");
    EXPECT_EQ(Picture(1), 147);
    PressOk();
  });
  EXPECT_EQ(Messages(), "Brovanta could not find any discounts for the current product.");
  EXPECT_EQ(Links(), "9/2/1 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, TheSearchChecksTheFormInItsOrder) {
  const QString longer(51, QLatin1Char('x'));
  Add([&] {
    Type("unitTypeBox", longer);
    Type("storeBox", longer);
    Type("categoryBox", longer);
    Press("findDiscountsButton");
    Type("productNameEdit", longer);  // no message for this one
    Press("findDiscountsButton");
    Type("unitTypeBox", QString());
    Press("findDiscountsButton");
    Type("storeBox", QString());
    Press("findDiscountsButton");
    Type("categoryBox", QString());
    Press("findDiscountsButton");
    EXPECT_EQ(Line("productNameEdit")->text(), longer);
  });
  EXPECT_EQ(Messages(),
            "The product name can not be empty.\n"
            "The unit type has more than 50 characters.\n"
            "The store name has more than 50 characters.\n"
            "The category name has more than 50 characters.\n"
            "Brovanta could not find any discounts for the current product.");
}

TEST_F(ProductCouponsTest, TheSearchMakesNoNamesAndSavesNothing) {
  Coupons({{.id = 5, .source = 1, .name = "Milk week", .type = 2}});
  Add([&] {
    Type("productNameEdit", QStringLiteral("Milk"));
    Type("storeBox", QStringLiteral("Brand new"));
    Press("findDiscountsButton");
    EXPECT_EQ(Picture(1), 150);
  });
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U);
  EXPECT_FALSE(folder_.Read("product.dat").has_value());
}

TEST_F(ProductCouponsTest, TheSearchGoesByStoreAndCategory) {
  folder_.Write("store.lst", test::RawListFile({test::RawItem(7, "Corner")}));
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  Coupons({{.id = 5, .source = 1, .name = "Milk week", .type = 2, .store_id = 8}});
  Add([&] {
    Type("productNameEdit", QStringLiteral("Milk"));
    Type("storeBox", QStringLiteral("CORNER"));
    Press("findDiscountsButton");
    Type("storeBox", QString());
    Press("findDiscountsButton");
  });
  EXPECT_EQ(Messages(),
            std::string("Brovanta could not find any discounts for the current product.\n"
                        "Brovanta found 1 discounts for the current product.") +
                kFound);
}

TEST_F(ProductCouponsTest, ANameOfBlanksMatchesEveryDiscount) {
  Coupons({{.id = 5, .source = 1, .name = "Tea"}, {.id = 6, .source = 1, .name = "Soap"}});
  Add([&] {
    Type("productNameEdit", QStringLiteral("  "));
    Press("findDiscountsButton");
    EXPECT_EQ(Picture(2), 150);
  });
  EXPECT_EQ(Messages(),
            std::string("Brovanta found 2 discounts for the current product.") + kFound);
}

TEST_F(ProductCouponsTest, AFullRowFitsItsScreens) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  for (const QSize& size : test::ScreenSizes()) {
    Edit({{{5, 1, 1}, {5, 1, 3}, {5, 1, 5}, {5, 0, 102}, {}}}, [&] {
      dialog_->resize(size);
      QTest::qWait(0);
      Slot(1)->setFocus();
      EXPECT_EQ(test::Clipped(dialog_), "");
      test::SavePicture(dialog_, QStringLiteral("coupon_row"));
    });
  }
}

}  // namespace
}  // namespace brovanta

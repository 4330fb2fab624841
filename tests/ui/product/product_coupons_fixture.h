// What the tests of the coupon row inside the product dialog share.
#pragma once

#include <QTest>
#include <string>
#include <vector>

#include "tests/db/raw_files.h"
#include "tests/support/framed_file.h"
#include "tests/ui/base/shown_rows.h"
#include "tests/ui/product/product_form.h"
#include "ui/base/color_button.h"

namespace brovanta::test {

class ProductCouponsFixture : public ProductFormTest {
 protected:
  void Coupons(std::initializer_list<RawDiscount> discounts) const {
    folder_.Write("discount.dat", RawDiscountFile(100, discounts));
  }
  /// A daily product with these links, as the list has it.
  ProductRecord With(const DiscountSlots& slots) {
    ProductFields fields;
    fields.name = "Milk";
    fields.purchase_kind = 2;
    fields.day_value = 2;
    fields.start_date = kToday;
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
      links += std::to_string(WordAt(records.back(), at)) + '/' +
               std::to_string(static_cast<std::int16_t>(HalfAt(records.back(), at + 4))) + '/' +
               std::to_string(static_cast<std::int16_t>(HalfAt(records.back(), at + 6)));
    }
    return links;
  }
  void SelectRow(const QString& name) {
    auto* tree = Find<RecordTree>("recordTree");
    const QModelIndex row = RecordNamed(*tree, name);
    ASSERT_TRUE(row.isValid()) << "no row " << name.toStdString();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(row).center());
  }
  void FillInACoupon(const QString& name) {
    Type("couponNameEdit", name);
    Choose("typeBox", QStringLiteral("Mail In Rebate"));
    Choose("valueTypeBox", QStringLiteral("Percent (%)"));
  }
};

}  // namespace brovanta::test

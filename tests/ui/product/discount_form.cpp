#include "tests/ui/product/discount_form.h"

namespace brovanta::test {

int DiscountFormTest::Run(const DiscountRecord* record, int mode, const Act& act) {
  DiscountDialog dialog(record, mode, database_, "http://server:8427", nullptr);
  const int result = RunDialog(dialog, act);
  saved_ = dialog.saved();
  apply_chosen_ = dialog.apply_chosen();
  return result;
}

void DiscountFormTest::FillInTheLeast() {
  Type("couponNameEdit", QStringLiteral("Spring offer"));
  Choose("typeBox", QStringLiteral("Store Coupon"));
  Choose("valueTypeBox", QStringLiteral("Percent (%)"));
}

DiscountFields DiscountFormTest::Full() {
  DiscountFields fields;
  fields.name = "Caf\xE9 week";
  fields.product = "Coffee";
  fields.description = "one\nper\r\nhousehold";
  fields.type = 3;
  fields.value_type = 2;
  fields.value = 1.5;
  fields.start_date = kToday - kDay;
  fields.end_date = kToday + kDay;
  fields.store = NameRef{0, "Fresh"};
  fields.category = NameRef{0, "Breakfast"};
  return fields;
}

DiscountRecord DiscountFormTest::Stored(std::int32_t id, std::int16_t source,
                                        DiscountFields fields) {
  const auto record = database_.discounts().Add(id, source, fields);
  EXPECT_TRUE(record.has_value());
  return record.value_or(DiscountRecord());
}

}  // namespace brovanta::test

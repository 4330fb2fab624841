#include "tests/ui/product/product_form.h"

namespace brovanta::test {

int ProductFormTest::Run(const ProductRecord* record, int mode, const Act& act) {
  ProductDialog dialog(tax_, record, mode, database_, "http://server:8427", nullptr);
  return RunDialog(dialog, act);
}

void ProductFormTest::FillInTheLeast() {
  Type("productNameEdit", QStringLiteral("Milk"));
  Choose("purchaseTypeBox", QStringLiteral("Every Few Days"));
  Choose("dayBox", QStringLiteral("2"));
}

std::string ProductFormTest::OnlyRecord() const {
  const std::vector<std::string> records = Records("product.dat");
  EXPECT_EQ(records.size(), 1U);
  return records.empty() ? std::string(456, '\0') : records[0];
}

ProductRecord ProductFormTest::Stored(int kind, ProductFields fields) {
  const auto record = database_.products().Add(kind, fields);
  EXPECT_TRUE(record.has_value());
  return record.value_or(ProductRecord());
}

}  // namespace brovanta::test

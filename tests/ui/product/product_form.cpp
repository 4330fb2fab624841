#include "tests/ui/product/product_form.h"

#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "tests/support/form_check.h"
#include "tests/support/framed_file.h"

namespace brovanta::test {

ProductFormTest::ProductFormTest() {
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder_.Write(list, Hex("81 38 01 00 83 38 01 00"));
  }
  EXPECT_EQ(database_.Open(folder_.path()), 0);
}

int ProductFormTest::Run(const ProductRecord* record, int mode, const std::function<void()>& act) {
  ProductDialog dialog(tax_, record, mode, database_, nullptr);
  dialog_ = &dialog;
  QTimer::singleShot(0, &dialog, [&] {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    act();
    if (dialog.isVisible()) dialog.reject();
  });
  const int result = dialog.exec();
  dialog_ = nullptr;
  return result;
}

void ProductFormTest::Type(const char* name, const QString& text) {
  auto* field = Find(name);
  if (auto* combo = qobject_cast<QComboBox*>(field)) field = combo->lineEdit();
  field->setFocus();
  QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(field, Qt::Key_Delete);
  TypeText(field, text);
}

void ProductFormTest::Choose(const char* name, const QString& item) {
  auto* combo = Combo(name);
  const int wanted = combo->findText(item);
  ASSERT_GE(wanted, 0) << "no item " << item.toStdString();
  combo->setFocus();
  for (int steps = 0; combo->currentIndex() != wanted && steps < 40; ++steps) {
    QTest::keyClick(combo, combo->currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
  }
  ASSERT_EQ(combo->currentIndex(), wanted);
}

void ProductFormTest::PressOk() {
  QTest::mouseClick(Find<QPushButton>("okButton"), Qt::LeftButton);
}

void ProductFormTest::FillInTheLeast() {
  Type("productNameEdit", QStringLiteral("Milk"));
  Choose("purchaseTypeBox", QStringLiteral("Every Few Days"));
  Choose("dayBox", QStringLiteral("2"));
}

std::string ProductFormTest::Messages() const {
  return answers_.texts().join(QLatin1Char('\n')).toStdString();
}

std::vector<std::string> ProductFormTest::Records(const char* file) const {
  const auto framed = ReadFramedFile(folder_.File(file), true, 456);
  return framed ? framed->records : std::vector<std::string>();
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

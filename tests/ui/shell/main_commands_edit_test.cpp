// Adding and editing: the commands that open the product dialog.
#include <gmock/gmock.h>

#include <QComboBox>
#include <QLineEdit>

#include "tests/ui/shell/main_screen.h"
#include "ui/shell/main_commands.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;

class EditCommandsTest : public MainScreenTest {
 protected:
  /// Gives the product dialog that opens next a new name and accepts it.
  void RenameInNextDialog(const char* name) {
    shown_name_.clear();
    InNextDialog([this, name](QWidget& dialog) {
      shown_name_ = dialog.findChild<QLineEdit*>(QStringLiteral("productNameEdit"))->text();
      Type(dialog, "productNameEdit", name);
      Click(dialog, "okButton");
    });
  }

  QString shown_name_;
};

TEST_F(EditCommandsTest, AddOpensANewProductWithTheTaxAndShowsItInTheUnfilteredList) {
  options_.set_tax(7.5);
  AddProduct("Milk", kToday, "Corner");
  Open();
  ChooseFilter("storeFilterButton", "Corner");
  std::string tax;
  InNextDialog([&tax](QWidget& dialog) {
    tax = dialog.findChild<QLineEdit*>(QStringLiteral("taxEdit"))->text().toStdString();
    Type(dialog, "productNameEdit", "Bread");
    auto* type = dialog.findChild<QComboBox*>(QStringLiteral("purchaseTypeBox"));
    QTest::keyClick(type, Qt::Key_Down);
    Click(dialog, "okButton");
  });
  Tool(kToolAdd);
  EXPECT_EQ(tax, "7.50");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk@Corner", "Bread"));
  EXPECT_EQ(Text("storeFilterButton"), "All Stores");
  EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Milk", "Bread"));
}

TEST_F(EditCommandsTest, AddCancelledChangesNothing) {
  AddProduct("Milk", kToday, "Corner");
  Open();
  ChooseFilter("storeFilterButton", "Corner");
  Select("Milk");
  for (const bool by_key : {false, true}) {
    const auto opened = WatchForDialog();
    if (by_key) {
      Press(Qt::Key_Insert);
    } else {
      ToolsMenu("Add");
    }
    EXPECT_TRUE(*opened);
    EXPECT_TRUE(tree().CaretInfo());
    EXPECT_EQ(Text("storeFilterButton"), "Corner");
  }
}

TEST_F(EditCommandsTest, EditChangesTheSelectedProductAndResetsTheFilters) {
  AddProduct("Milk", kToday, "Corner");
  AddProduct("Bread", kToday);
  Open();
  ChooseFilter("storeFilterButton", "Corner");
  Select("Milk");
  RenameInNextDialog("Oat milk");
  Tool(kToolEdit);
  EXPECT_EQ(shown_name_.toStdString(), "Milk");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Oat milk@Corner", "Bread"));
  EXPECT_EQ(Text("storeFilterButton"), "All Stores");
  EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Oat milk", "Bread"));
}

TEST_F(EditCommandsTest, MenuKeysEnterAndDoubleTapEditToo) {
  AddProduct("Milk", kToday);
  Open();
  const std::vector<std::function<void()>> ways{
      [this] { ToolsMenu("Edit"); }, [this] { Press(Qt::Key_F2); },
      [this] { Press(Qt::Key_Return); }, [this] { Press(Qt::Key_Enter); },
      [this] {
        const QRect row = tree().visualRect(tree().RecordIndex(0, 0));
        QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, row.center());
      }};
  for (const auto& way : ways) {
    Select("Milk");
    tree().setFocus();
    const auto opened = WatchForDialog();
    way();
    EXPECT_TRUE(*opened);
    EXPECT_TRUE(tree().CaretInfo());
  }
}

TEST_F(EditCommandsTest, EditedRecordOutlivesTheRowAndTheListItCameFrom) {
  AddProduct("Milk", kToday);
  Open();
  const QRect row = tree().visualRect(tree().RecordIndex(0, 0));
  Select("Milk");
  RenameInNextDialog("Oat milk");
  QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, row.center());
  RenameInNextDialog("Rice milk");
  Select("Oat milk");
  Press(Qt::Key_F2);
  EXPECT_EQ(shown_name_.toStdString(), "Oat milk");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Rice milk"));
}

TEST_F(EditCommandsTest, EditOfARecordThatIsNotFoundDoesNothing) {
  AddProduct("Milk", kToday);
  Open();
  Select("Milk");
  ProductFilter other;
  other.text = "bread";
  ASSERT_EQ(screen().database()->products().Load(&other), 0);
  const auto opened = WatchForDialog();
  Tool(kToolEdit);
  EXPECT_FALSE(*opened);
  EXPECT_TRUE(tree().CaretInfo());
}

TEST_F(EditCommandsTest, EditOfAPurchaseOpensItAsOneAndLeavesTheProductOfTheSameIdAlone) {
  EXPECT_EQ(AddProduct("Milk", kToday), AddPurchase("Eggs", static_cast<DateStamp>(kNow)));
  Open();
  const Bytes products = *folder_.Read("product.dat");
  ChooseTab(2);
  Select("Eggs");
  bool type_enabled = true;
  InNextDialog([&type_enabled](QWidget& dialog) {
    type_enabled = dialog.findChild<QComboBox*>(QStringLiteral("purchaseTypeBox"))->isEnabled();
    Type(dialog, "productNameEdit", "Ten eggs");
    Click(dialog, "okButton");
  });
  Tool(kToolEdit);
  EXPECT_FALSE(type_enabled);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Ten eggs"));
  EXPECT_THAT(StoredNames(kPurchaseKind), ElementsAre("Ten eggs"));
  EXPECT_EQ(*folder_.Read("product.dat"), products);
}

TEST_F(EditCommandsTest, EditWithoutASelectedRecordOpensNothing) {
  AddProduct("Milk", kToday);
  Open();
  const auto opened = WatchForDialog();
  Press(Qt::Key_F2);
  SelectHeading(0);
  Press(Qt::Key_F2);
  EXPECT_FALSE(*opened);
}

TEST_F(EditCommandsTest, AddDoesNothingOnPurchases) {
  AddPurchase("Eggs", static_cast<DateStamp>(kNow));
  Open();
  ChooseTab(2);
  Select("Eggs");
  const auto opened = WatchForDialog();
  Tool(kToolAdd);
  Press(Qt::Key_Insert);
  EXPECT_FALSE(*opened);
  EXPECT_TRUE(tree().CaretInfo());
}

}  // namespace
}  // namespace brovanta::test

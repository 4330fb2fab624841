// The notes of the product dialog: line breaks, characters and keys.
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTest>

#include "tests/support/framed_file.h"
#include "tests/ui/product/product_form.h"
#include "ui/product/product_dialog.h"

namespace brovanta {
namespace {

using test::TextAt;

class ProductDialogNotesTest : public test::ProductFormTest {
 protected:
  static constexpr std::size_t kNotes = 72;

  void ShowNotesTab() {
    auto* bar = Find<QTabBar>("tabBar");
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
  }

  /// A daily product with these notes, as the list has it.
  ProductRecord WithNotes(const std::string& notes) {
    ProductFields fields;
    fields.name = "Milk";
    fields.notes = notes;
    fields.purchase_kind = 2;
    fields.day_value = 2;
    fields.start_date = test::kToday;
    return Stored(kProductKind, fields);
  }
};

TEST_F(ProductDialogNotesTest, UntouchedNotesAreWrittenBackAsTheyStood) {
  for (const char* notes : {"a\r\nb\r\n", "a\nb", "a\rb", "tab\there", "a\xA0 b", "\r\n", ""}) {
    const ProductRecord record = WithNotes(notes);
    EXPECT_EQ(Run(&record, kProductMode,
                  [&] {
                    ShowNotesTab();
                    PressOk();
                  }),
              0);
    EXPECT_EQ(TextAt(Records("product.dat").back(), kNotes, 250), notes);
  }
}

TEST_F(ProductDialogNotesTest, EditedNotesKeepTheirOtherCharacters) {
  const ProductRecord record = WithNotes("5\xA0kg\r\n\xE4");  // a no-break space
  Run(&record, kProductMode, [&] {
    ShowNotesTab();
    QTest::keyClick(Find("notesEdit"), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(Find("notesEdit"), Qt::Key_Return);
    QTest::keyClicks(Find("notesEdit"), QStringLiteral("x"));
    QTest::keyClick(Find("notesEdit"), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(Find("notesEdit"), QStringLiteral("y"));
    PressOk();
  });
  EXPECT_EQ(TextAt(OnlyRecord(), kNotes, 250), "5\xA0kg\r\n\xE4\r\nx\r\ny");
}

TEST_F(ProductDialogNotesTest, ClearedNotesAreStoredEmpty) {
  const ProductRecord record = WithNotes("old");
  Run(&record, kProductMode, [&] {
    ShowNotesTab();
    Type("notesEdit", QString());
    PressOk();
  });
  EXPECT_EQ(OnlyRecord().substr(kNotes, 250), std::string(250, '\0'));
}

TEST_F(ProductDialogNotesTest, EnterIsALineBreakAndControlEnterIsOk) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              ShowNotesTab();
              QTest::keyClicks(Find("notesEdit"), QStringLiteral("a"));
              QTest::keyClick(Find("notesEdit"), Qt::Key_Return);
              EXPECT_TRUE(dialog_->isVisible());
              QTest::keyClick(Find("notesEdit"), Qt::Key_Return, Qt::ControlModifier);
            }),
            0);
  EXPECT_EQ(TextAt(OnlyRecord(), kNotes, 250), "a\r\n");
}

TEST_F(ProductDialogNotesTest, EscapeInTheNotesAsksNothing) {
  EXPECT_NE(Add([&] {
              FillInTheLeast();
              ShowNotesTab();
              QTest::keyClicks(Find("notesEdit"), QStringLiteral("a"));
              QTest::keyClick(Find("notesEdit"), Qt::Key_Escape);
              EXPECT_FALSE(dialog_->isVisible());
            }),
            0);
  EXPECT_EQ(Messages(), "");
  EXPECT_FALSE(folder_.Read("product.dat").has_value());
}

TEST_F(ProductDialogNotesTest, AFailedSaveLeavesTheNotesOpenAndARefusedFieldShowsTheForm) {
  folder_.Write("product.dat", test::Hex("00 00 00 00"));
  Add([&] {
    FillInTheLeast();
    ShowNotesTab();
    QTest::keyClicks(Find("notesEdit"), QStringLiteral("low fat"));
    PressOk();
    EXPECT_TRUE(Find("notesEdit")->isVisible());
    EXPECT_EQ(Find<QPlainTextEdit>("notesEdit")->toPlainText(), QStringLiteral("low fat"));
    Find<QTabBar>("tabBar")->setCurrentIndex(0);
    Type("productNameEdit", QString());
    ShowNotesTab();
    PressOk();
    EXPECT_TRUE(Find("productNameEdit")->isVisible());
    EXPECT_EQ(dialog_->focusWidget(), Find("productNameEdit"));
  });
  EXPECT_EQ(Messages(),
            "There was an error while saving the product data to the database.\n"
            "The product name can not be empty.");
}

}  // namespace
}  // namespace brovanta

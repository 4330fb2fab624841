// What the clipboard may bring into the product dialog: control characters and very long texts.
#include <QPlainTextEdit>
#include <QTest>

#include "tests/support/framed_file.h"
#include "tests/ui/product/product_form.h"
#include "ui/base/filter_menu.h"

namespace brovanta {
namespace {

using test::DoubleAt;
using test::TextAt;
using test::WordAt;

class ProductDialogPasteTest : public test::ProductFormTest {
 protected:
  static QString AfterZero() { return QString(QChar(0)) + QStringLiteral("zz"); }
};

TEST_F(ProductDialogPasteTest, ANameThatWouldBeStoredEmptyIsEmpty) {
  Add([&] {
    FillInTheLeast();
    Paste("productNameEdit", AfterZero());
    PressOk();
    EXPECT_TRUE(dialog_->isVisible());
  });
  EXPECT_EQ(Messages(), "The product name can not be empty.");
  EXPECT_FALSE(folder_.Read("product.dat").has_value());
}

TEST_F(ProductDialogPasteTest, ListTextsThatWouldBeStoredEmptyMeanNone) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              for (const char* list : {"unitTypeBox", "storeBox", "categoryBox"}) {
                Paste(list, AfterZero());
              }
              PressOk();
            }),
            0);
  EXPECT_EQ(OnlyRecord().substr(324, 12), std::string(12, '\0'));
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    EXPECT_EQ(folder_.Read(list)->size(), 8U) << list;
  }
}

TEST_F(ProductDialogPasteTest, LineBreaksAndTabsBecomeBlanks) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Paste("productNameEdit", QStringLiteral("whole\nmilk\t3.5 %"));
              Paste("storeBox", QStringLiteral("x\ty\nz"));
              Paste("unitPriceEdit", QStringLiteral("\t1.5\n"));
              PressOk();
            }),
            0);
  const std::string record = OnlyRecord();
  EXPECT_EQ(TextAt(record, 12, 50), "whole milk 3.5 %");
  EXPECT_EQ(DoubleAt(record, 360), 1.5);
  ASSERT_EQ(WordAt(record, 324), 5000U);
  EXPECT_EQ(database_.stores().Find(5000)->Name.view(), "x y z");
}

TEST_F(ProductDialogPasteTest, NotesKeepTheirLineBreaksAndTabsAndEndNowhereEarly) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              auto* notes = Find<QPlainTextEdit>("notesEdit");
              notes->insertPlainText(QStringLiteral("a\tb\nc") + QChar(0) + QStringLiteral("d"));
              PressOk();
            }),
            0);
  EXPECT_EQ(TextAt(OnlyRecord(), 72, 250), "a\tb\r\nc d");
}

TEST_F(ProductDialogPasteTest, EndlessTextsGiveTheirMessagesOrAreCut) {
  const QString endless(100000, QLatin1Char('7'));
  EXPECT_EQ(
      Add([&] {
        FillInTheLeast();
        for (const char* field :
             {"productNameEdit", "unitTypeBox", "storeBox", "categoryBox", "unitPriceEdit"}) {
          Paste(field, endless);
        }
        Find<QPlainTextEdit>("notesEdit")->insertPlainText(endless);
        for (const char* field : {"productNameEdit", "unitTypeBox", "storeBox", "categoryBox"}) {
          PressOk();
          EXPECT_TRUE(dialog_->isVisible());
          Paste(field, QStringLiteral("short"));
        }
        PressOk();
      }),
      0);
  EXPECT_EQ(Messages(),
            "The product name has more than 50 characters.\n"
            "The unit type has more than 50 characters.\n"
            "The store name has more than 50 characters.\n"
            "The category name has more than 50 characters.");
  EXPECT_EQ(TextAt(OnlyRecord(), 72, 250), std::string(249, '7'));
  EXPECT_EQ(DoubleAt(OnlyRecord(), 360), 77777777777777777777.0) << "20 characters are read";
}

TEST_F(ProductDialogPasteTest, OneCharacterTooManyBehindTheEndOfAnAcceptedNameDoesNotCount) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Paste("productNameEdit", QString(50, QLatin1Char('n')) + AfterZero());
              PressOk();
            }),
            0);
  EXPECT_EQ(TextAt(OnlyRecord(), 12, 50), std::string(49, 'n'));
}

}  // namespace
}  // namespace brovanta

// OK on a full disk and in a folder that takes no files: the message, and everything typed stays.
#include <QTest>
#include <filesystem>

#include "tests/support/framed_file.h"
#include "tests/support/plain_user.h"
#include "tests/support/write_limit.h"
#include "tests/ui/product/discount_form.h"
#include "tests/ui/product/product_form.h"

namespace brovanta {
namespace {

using test::WordAt;

const std::string kProductError =
    "There was an error while saving the product data to the database.";
const std::string kDiscountError =
    "There was an error while saving the discount data to the database.";

/// A folder in which nothing can be made or replaced, for its owner too.
class ClosedFolder {
 public:
  explicit ClosedFolder(const std::string& path) : path_(path) {
    std::filesystem::permissions(path_, std::filesystem::perms(0555));
  }
  ClosedFolder(const ClosedFolder&) = delete;
  ClosedFolder& operator=(const ClosedFolder&) = delete;
  ~ClosedFolder() { std::filesystem::permissions(path_, std::filesystem::perms(0755)); }

 private:
  std::string path_;
};

class ProductFaultsTest : public test::ProductFormTest {
 protected:
  void FillIn() {
    FillInTheLeast();
    Type("storeBox", QStringLiteral("Kiosk"));
  }
  void ExpectNothingSaved() {
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(Line("productNameEdit")->text(), QStringLiteral("Milk"));
    EXPECT_EQ(Combo("storeBox")->currentText(), QStringLiteral("Kiosk"));
    EXPECT_EQ(Combo("dayBox")->currentText(), QStringLiteral("2"));
    EXPECT_EQ(folder_.Read("store.lst")->size(), 8U);
    EXPECT_FALSE(folder_.Read("product.dat").has_value());
  }
};

TEST_F(ProductFaultsTest, AFullDiskKeepsTheFormAndASecondTrySucceeds) {
  EXPECT_EQ(Add([&] {
              FillIn();
              {
                const test::WriteLimit full(20);
                PressOk();
              }
              ExpectNothingSaved();
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), kProductError);
  EXPECT_EQ(WordAt(OnlyRecord(), 324), 5000U);
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);
}

TEST_F(ProductFaultsTest, ADiskThatIsFullForTheRecordKeepsTheOldOne) {
  ProductFields fields;
  fields.name = "Milk";
  fields.purchase_kind = 2;
  fields.day_value = 2;
  fields.start_date = test::kToday;
  const ProductRecord record = Stored(kProductKind, fields);
  const auto before = folder_.Read("product.dat");
  EXPECT_EQ(Run(&record, kProductMode,
                [&] {
                  Type("productNameEdit", QStringLiteral("Oat milk"));
                  {
                    const test::WriteLimit full(100);
                    PressOk();
                  }
                  EXPECT_TRUE(dialog_->isVisible());
                  EXPECT_EQ(folder_.Read("product.dat"), before);
                  PressOk();
                }),
            0);
  EXPECT_EQ(Messages(), kProductError);
  EXPECT_EQ(test::TextAt(OnlyRecord(), 12, 50), "Oat milk");
}

TEST_F(ProductFaultsTest, AFolderThatTakesNoFilesKeepsTheFormAndASecondTrySucceeds) {
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0777));
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
    std::filesystem::permissions(entry.path(), std::filesystem::perms(0666));
  }
  EXPECT_EQ(Add([&] {
              FillIn();
              {
                const ClosedFolder closed(folder_.path());
                const test::PlainUser plain;
                ASSERT_TRUE(plain.active());
                PressOk();
              }
              ExpectNothingSaved();
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), kProductError);
  EXPECT_EQ(WordAt(OnlyRecord(), 324), 5000U);
}

class DiscountFaultsTest : public test::DiscountFormTest {};

TEST_F(DiscountFaultsTest, AFullDiskKeepsTheFormAndASecondTrySucceeds) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Type("storeBox", QStringLiteral("Kiosk"));
              {
                const test::WriteLimit full(20);
                PressOk();
              }
              EXPECT_TRUE(dialog_->isVisible());
              EXPECT_EQ(Line("couponNameEdit")->text(), QStringLiteral("Spring offer"));
              EXPECT_EQ(Combo("storeBox")->currentText(), QStringLiteral("Kiosk"));
              EXPECT_FALSE(folder_.Read("discount.dat").has_value());
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), kDiscountError);
  EXPECT_EQ(Records().size(), 1U);
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);
}

TEST_F(DiscountFaultsTest, EndlessTextsGiveTheirMessages) {
  const QString endless(100000, QLatin1Char('7'));
  EXPECT_EQ(
      Add([&] {
        FillInTheLeast();
        for (const char* field :
             {"storeBox", "categoryBox", "couponNameEdit", "productBox", "valueEdit"}) {
          Paste(field, endless);
        }
        for (const char* field : {"storeBox", "categoryBox", "couponNameEdit", "productBox"}) {
          PressOk();
          EXPECT_TRUE(dialog_->isVisible());
          Paste(field, QStringLiteral("short"));
        }
        PressOk();
      }),
      0);
  EXPECT_EQ(Messages(),
            "The store name has more than 50 characters.\n"
            "The category name has more than 50 characters.\n"
            "The discount name has more than 50 characters.\n"
            "The product name has more than 50 characters.");
  EXPECT_EQ(test::DoubleAt(Records().at(0), 368), 77777777777777777777.0);
}

}  // namespace
}  // namespace brovanta

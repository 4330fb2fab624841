// The code of every discount operation for every kind of trouble with "discount.dat".
#include <gtest/gtest.h>

#include <filesystem>

#include "db/discount_list.h"
#include "db/error_codes.h"
#include "platform/file.h"
#include "tests/db/database_test.h"
#include "tests/db/raw_files.h"
#include "tests/support/plain_user.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Hex;
using test::Join;
using test::RawDiscountFile;
using test::RawListFile;

class DiscountCodesTest : public test::DatabaseTest {
 protected:
  // Every operation on a key that is not there: each ends with the code, and neither the file nor
  // a name list changes.
  void ExpectCode(int code) {
    const auto before = folder_.Read("discount.dat");
    EXPECT_EQ(list_.Load(nullptr), code);
    EXPECT_EQ(list_.Mark(99, 0, kMarkDeleted), code);
    EXPECT_EQ(list_.Mark(99, 0, kMarkFlagged), code);
    EXPECT_EQ(list_.Read(99, 0), std::nullopt);
    DiscountFields fields;
    fields.store = NameRef{0, "Corner Shop"};
    EXPECT_EQ(list_.Update(99, 0, fields), std::nullopt);
    ProductRecord product;
    product.Name.Assign("nothing has this name");
    EXPECT_EQ(list_.FindForProduct(product), code);
    EXPECT_EQ(folder_.Read("discount.dat"), before);
    EXPECT_EQ(folder_.Read("store.lst"), RawListFile({}));
  }
  void ExpectMaxIds(std::int32_t source_1, std::int32_t source_2) {
    EXPECT_EQ(list_.MaxIds().source_1, source_1);
    EXPECT_EQ(list_.MaxIds().source_2, source_2);
  }
  // Adding gives nothing and leaves the file as it is.
  void ExpectNothingAdded() {
    const auto before = folder_.Read("discount.dat");
    DiscountFields fields;
    EXPECT_EQ(list_.Add(0, 0, fields), std::nullopt);
    EXPECT_EQ(list_.Add(5, 1, fields), std::nullopt);
    EXPECT_EQ(folder_.Read("discount.dat"), before);
  }
  Bytes TwoRecords() const {
    return RawDiscountFile(7, {{.id = 2, .source = 1}, {.id = 7, .source = 2}});
  }

  DiscountList& list_ = database_.discounts();
};

TEST_F(DiscountCodesTest, MissingFile) {
  ExpectCode(ERR_OPEN);
  ExpectMaxIds(0, 0);
  EXPECT_FALSE(folder_.Read("discount.dat"));
  DiscountFields fields;
  EXPECT_TRUE(list_.Add(0, 0, fields));
}

TEST_F(DiscountCodesTest, FolderInTheWay) {
  std::filesystem::create_directory(folder_.File("discount.dat"));
  EXPECT_EQ(list_.Load(nullptr), ERR_OPEN);
  EXPECT_EQ(list_.Mark(2, 1, kMarkDeleted), ERR_OPEN);
  ProductRecord product;
  EXPECT_EQ(list_.FindForProduct(product), ERR_OPEN);
  DiscountFields fields;
  EXPECT_EQ(list_.Add(0, 0, fields), std::nullopt);
  ExpectMaxIds(0, 0);
}

TEST_F(DiscountCodesTest, FileHeldBySomeoneElse) {
  folder_.Write("discount.dat", TwoRecords());
  platform::File holder;
  ASSERT_TRUE(holder.Open(database_.paths().discount, platform::File::Mode::kRead));
  ExpectCode(ERR_OPEN);
  ExpectNothingAdded();
  ExpectMaxIds(0, 0);
}

TEST_F(DiscountCodesTest, ReadOnlyFile) {
  folder_.Write("discount.dat", TwoRecords());
  std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
  std::filesystem::permissions(folder_.File("discount.dat"), std::filesystem::perms{0444});
  const test::PlainUser user;
  if (!user.active()) GTEST_SKIP() << "permissions do not count here";
  EXPECT_EQ(list_.Load(nullptr), ERR_OPEN);
  EXPECT_EQ(list_.Mark(2, 1, kMarkDeleted), ERR_OPEN);
  ExpectNothingAdded();
  ExpectMaxIds(0, 0);
}

TEST_F(DiscountCodesTest, WrongMagic) {
  Bytes file = TwoRecords();
  file[0] = std::byte{0x80};
  folder_.Write("discount.dat", file);
  ExpectCode(ERR_FORMAT);
  ExpectNothingAdded();
  ExpectMaxIds(0, 0);
}

TEST_F(DiscountCodesTest, EmptyFileIsNotMadeAnew) {
  folder_.Write("discount.dat", {});
  ExpectCode(ERR_FORMAT);
  ExpectNothingAdded();
  ExpectMaxIds(0, 0);
}

TEST_F(DiscountCodesTest, WrongFirstMark) {
  Bytes file = TwoRecords();
  file[8] = std::byte{0x80};
  folder_.Write("discount.dat", file);
  ExpectCode(ERR_FORMAT);
  ExpectMaxIds(0, 0);
}

TEST_F(DiscountCodesTest, WrongLaterMark) {
  Bytes file = TwoRecords();
  file[412] = std::byte{0x80};
  folder_.Write("discount.dat", file);
  ExpectCode(ERR_FORMAT);
  ExpectMaxIds(2, 0);
  EXPECT_EQ(list_.size(), 1u);
  EXPECT_EQ(list_.Mark(7, 2, kMarkDeleted), ERR_FORMAT);
  EXPECT_EQ(list_.Mark(2, 1, kMarkDeleted), 2);
}

TEST_F(DiscountCodesTest, WrongEndMark) {
  Bytes file = TwoRecords();
  file[817] = std::byte{0};
  folder_.Write("discount.dat", file);
  ExpectCode(ERR_FORMAT);
  ExpectNothingAdded();
  ExpectMaxIds(2, 7);
}

TEST_F(DiscountCodesTest, AbsentKey) {
  folder_.Write("discount.dat", TwoRecords());
  EXPECT_EQ(list_.Mark(99, 0, kMarkDeleted), ERR_NOT_FOUND);
  DiscountFields fields;
  EXPECT_EQ(list_.Update(99, 0, fields), std::nullopt);
}

TEST_F(DiscountCodesTest, CutAtEveryByte) {
  const Bytes whole = TwoRecords();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    SCOPED_TRACE(size);
    folder_.Write("discount.dat",
                  Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
    const bool within_a_record = (size >= 12 && size < 412) || (size >= 416 && size < 816);
    ExpectCode(within_a_record ? ERR_IO : ERR_FORMAT);
    ExpectNothingAdded();
    ExpectMaxIds(size < 412 ? 0 : 2, size < 816 ? 0 : 7);
    if (HasFailure()) break;
  }
}

TEST_F(DiscountCodesTest, GarbageBehindTheEndMarkIsReadOverButNotAppendedTo) {
  folder_.Write("discount.dat", Join({TwoRecords(), Hex("82 38 01 00 01")}));
  ExpectMaxIds(2, 7);
  EXPECT_EQ(list_.Load(nullptr), 0);
  EXPECT_EQ(list_.size(), 2u);
  ExpectNothingAdded();
}

TEST_F(DiscountCodesTest, MutatedFilesGiveDocumentedCodesAndKeepTheirBytes) {
  const Bytes whole = TwoRecords();
  for (std::size_t at = 0; at < whole.size(); ++at) {
    Bytes mutated = whole;
    mutated[at] ^= std::byte{0xFF};
    folder_.Write("discount.dat", mutated);
    const bool in_a_mark = at < 4 || (at >= 8 && at < 12) || (at >= 412 && at < 416) || at >= 816;
    ASSERT_EQ(list_.Load(nullptr), in_a_mark ? ERR_FORMAT : 0) << at;
    ProductRecord product;
    product.Name.Assign("soap");
    const int found = list_.FindForProduct(product);
    ASSERT_TRUE(in_a_mark ? found == ERR_FORMAT : found >= 0) << at;
    ASSERT_EQ(list_.Mark(99, 5, kMarkDeleted), in_a_mark ? ERR_FORMAT : ERR_NOT_FOUND) << at;
    ASSERT_EQ(folder_.Read("discount.dat"), mutated) << at;
  }
}

}  // namespace
}  // namespace brovanta

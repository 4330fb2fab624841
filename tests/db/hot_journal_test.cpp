// Readers beside a journal that a program left behind, or that one is just writing.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string_view>
#include <utility>

#include "db/error_codes.h"
#include "db/journal.h"
#include "db/record_file.h"
#include "db/shopping_database.h"
#include "platform/system_calls.h"
#include "tests/db/raw_files.h"
#include "tests/support/plain_user.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using platform::File;
using test::Bytes;
using test::Hex;
using test::Join;
using test::RawDiscountFile;

const char* const kJournal = "backup.dat";

/// A program that had the folder open before another one ended in the middle of a change.
class HotJournalTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      folder_.Write(list, NameList().Encode());
    }
    folder_.Write("discount.dat", whole_);
    ASSERT_EQ(database_.Open(folder_.path()), 0);
  }

  /// The other one had written half of a third discount.
  void LeaveHalfAChange() const {
    const auto size = static_cast<std::int64_t>(whole_.size());
    folder_.Write(kJournal,
                  EncodeJournal(std::vector<UndoRecord>{
                      {UndoKind::kOverwritten, "discount.dat", size, 4, Hex("07 00 00 00")},
                      {UndoKind::kOverwritten, "discount.dat", size, size - 4, test::EndMark()}}));
    Bytes torn = whole_;
    torn.resize(torn.size() - 4);
    torn = Join({torn, test::RecordMark(), test::Run(200, 0xEE)});
    test::Put(torn, 4, 8);
    folder_.Write("discount.dat", torn);
  }
  void ExpectRolledBack() const {
    EXPECT_EQ(folder_.Read("discount.dat"), whole_);
    EXPECT_EQ(folder_.Read(kJournal), EncodeEmptyJournal());
  }
  /// With the journal as it is, in a folder that may only be read.
  void ExpectToReadBesideIt(unsigned journal_mode) {
    using std::filesystem::permissions;
    using std::filesystem::perms;
    const auto journal = folder_.Read(kJournal);
    permissions(folder_.File(kJournal), perms{journal_mode});
    permissions(folder_.File("discount.dat"), perms{0666});
    permissions(folder_.path(), perms{0555});
    {
      const test::PlainUser user;
      if (!user.active()) GTEST_SKIP() << "permissions do not count here";
      EXPECT_EQ(database_.discounts().Load(nullptr), 0);
      EXPECT_EQ(database_.discounts().size(), 2U);
    }
    permissions(folder_.path(), perms{0755});
    EXPECT_EQ(folder_.Read(kJournal), journal);
    EXPECT_EQ(folder_.Read("discount.dat"), whole_);
  }
  std::string Path(const char* name) const { return folder_.path() + "\\" + name; }

  test::TempFolder folder_;
  const Bytes whole_ = RawDiscountFile(7, {{.id = 6, .source = 1}, {.id = 7, .type = 3}});
  ShoppingDatabase database_;
};

TEST_F(HotJournalTest, LoadRollsBackBeforeItReads) {
  LeaveHalfAChange();
  EXPECT_EQ(database_.discounts().Load(nullptr), 0);
  EXPECT_EQ(database_.discounts().size(), 2U);
  ExpectRolledBack();
}

TEST_F(HotJournalTest, EveryOtherReaderDoesSoToo) {
  LeaveHalfAChange();
  EXPECT_EQ(database_.discounts().MaxIds().source_1, 6);
  ExpectRolledBack();

  LeaveHalfAChange();
  EXPECT_TRUE(database_.discounts().Read(7, 0));
  ExpectRolledBack();

  LeaveHalfAChange();
  EXPECT_TRUE(database_.discounts().ReadLinked({.Id = 7, .Source = 0, .Type = 103}));
  ExpectRolledBack();

  LeaveHalfAChange();
  ProductRecord product;
  EXPECT_GE(database_.discounts().FindForProduct(product), 0);
  ExpectRolledBack();
}

TEST_F(HotJournalTest, WhileSomeoneElseHoldsItReadersFailAndChangeNothing) {
  LeaveHalfAChange();
  const auto torn = folder_.Read("discount.dat");
  {
    File holder;
    ASSERT_TRUE(holder.Open(Path(kJournal), File::Mode::kReadWrite));
    EXPECT_EQ(database_.discounts().Load(nullptr), ERR_OPEN);
    EXPECT_EQ(database_.discounts().size(), 0U);
    EXPECT_EQ(database_.discounts().MaxIds().source_1, 0);
    EXPECT_EQ(database_.discounts().Mark(7, 0, kMarkDeleted), ERR_OPEN);
    EXPECT_EQ(folder_.Read("discount.dat"), torn);
  }
  EXPECT_EQ(database_.discounts().Load(nullptr), 0);
  ExpectRolledBack();
}

TEST_F(HotJournalTest, AnEmptyJournalThatSomeoneElseHoldsDoesNotDisturbReaders) {
  folder_.Write(kJournal, EncodeEmptyJournal());
  File holder;
  ASSERT_TRUE(holder.Open(Path(kJournal), File::Mode::kReadWrite));
  EXPECT_EQ(database_.discounts().Load(nullptr), 0);
  EXPECT_EQ(database_.discounts().size(), 2U);
}

TEST_F(HotJournalTest, AFileThatTheOtherOneMadeIsMissingAgain) {
  folder_.Write(kJournal,
                EncodeJournal(std::vector<UndoRecord>{{UndoKind::kMade, "product.dat", 0, 0, {}}}));
  folder_.Write("product.dat", test::RawRecordFile(0, {}));
  ProductFilter products;
  products.kind = kProductKind;
  EXPECT_EQ(database_.products().Load(&products), ERR_OPEN);
  EXPECT_FALSE(folder_.Read("product.dat"));
}

TEST_F(HotJournalTest, ATornJournalIsSetAsideByAReader) {
  folder_.WriteText(kJournal, "not one of ours");
  EXPECT_EQ(database_.discounts().Load(nullptr), 0);
  EXPECT_EQ(database_.discounts().size(), 2U);
  EXPECT_EQ(folder_.ReadText("backup.dat.bad"), "not one of ours");
}

TEST_F(HotJournalTest, AFolderThatMayNotBeWrittenIsReadAndNotChanged) {
  std::filesystem::permissions(folder_.File("discount.dat"), std::filesystem::perms{0666});
  std::filesystem::permissions(folder_.path(), std::filesystem::perms{0555});
  {
    const test::PlainUser user;
    if (!user.active()) GTEST_SKIP() << "permissions do not count here";
    EXPECT_EQ(database_.discounts().Load(nullptr), 0);
    EXPECT_EQ(database_.discounts().size(), 2U);
    EXPECT_EQ(database_.discounts().Mark(7, 0, kMarkDeleted), ERR_OPEN);
  }
  std::filesystem::permissions(folder_.path(), std::filesystem::perms{0755});
  EXPECT_EQ(folder_.Read("discount.dat"), whole_);
  EXPECT_FALSE(folder_.Read(kJournal));
}

TEST_F(HotJournalTest, AForeignJournalThatCannotBeSetAsideKeepsNobodyFromReading) {
  folder_.WriteText(kJournal, "a backup of another kind");
  ExpectToReadBesideIt(0666);
}

TEST_F(HotJournalTest, NeitherDoesATornOneWhoseFirstWordsAreWhole) {
  LeaveHalfAChange();
  folder_.Write("discount.dat", whole_);
  Bytes torn = *folder_.Read(kJournal);
  torn.back() ^= std::byte{1};
  folder_.Write(kJournal, torn);
  ExpectToReadBesideIt(0666);
}

TEST_F(HotJournalTest, NeitherDoesAnEmptiedOneThatMayNotBeCut) {
  folder_.Write(kJournal, Join({EncodeEmptyJournal(), Bytes(40)}));
  ExpectToReadBesideIt(0444);
}

// A journal of another kind could not be set aside; then it went, and somebody ended in the middle
// of a change before the file was opened again.
TEST_F(HotJournalTest, AChangeThatBeginsWhileTheReaderLooksAgainIsNotReadHalf) {
  class Meanwhile : public platform::SystemCalls {
   public:
    explicit Meanwhile(std::function<void()> change) : change_(std::move(change)) {}
    int Rename(const char* from, const char* to) override {
      if (times_opened_ >= 2) return SystemCalls::Rename(from, to);
      errno = EACCES;
      return -1;
    }
    int Open(const char* path, int flags, mode_t mode) override {
      const bool is_file = std::string_view(path).ends_with("discount.dat");
      if (is_file && ++times_opened_ == 2) change_();
      return SystemCalls::Open(path, flags, mode);
    }

   private:
    std::function<void()> change_;
    int times_opened_ = 0;
  };
  folder_.WriteText(kJournal, "a backup of another kind");
  Meanwhile calls([this] { LeaveHalfAChange(); });
  const platform::SystemCallsInUse in_use(calls);
  EXPECT_EQ(database_.discounts().Load(nullptr), 0);
  EXPECT_EQ(database_.discounts().size(), 2U);
  ExpectRolledBack();
}

TEST_F(HotJournalTest, AWholeOneThatMayNotBeWrittenKeepsReadersOut) {
  LeaveHalfAChange();
  std::filesystem::permissions(folder_.File(kJournal), std::filesystem::perms{0444});
  EXPECT_EQ(database_.discounts().Load(nullptr), ERR_OPEN);
}

TEST_F(HotJournalTest, AFolderInThePlaceOfTheJournalKeepsNobodyFromReading) {
  std::filesystem::remove(folder_.File(kJournal));
  std::filesystem::create_directory(folder_.File(kJournal));
  EXPECT_EQ(database_.discounts().Load(nullptr), 0);
  EXPECT_EQ(database_.discounts().size(), 2U);
  EXPECT_EQ(database_.discounts().Mark(7, 0, kMarkDeleted), ERR_OPEN);
  EXPECT_EQ(folder_.Read("discount.dat"), whole_);
}

}  // namespace
}  // namespace brovanta

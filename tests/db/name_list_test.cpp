#include "db/name_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "db/error_codes.h"
#include "platform/file.h"
#include "platform/text_file.h"
#include "tests/db/raw_files.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_limit.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::EndMark;
using test::FileMagic;
using test::Hex;
using test::Join;
using test::Padded;
using test::RawItem;
using test::RawListFile;
using test::RecordMark;

ListItem Item(std::int32_t id, std::string_view name) {
  ListItem item;
  item.Id = id;
  item.Name.Assign(name);
  return item;
}

std::vector<std::int32_t> Ids(NameList& list) {
  std::vector<std::int32_t> ids;
  for (const ListItem* item = list.First(); item != nullptr; item = list.Next()) {
    ids.push_back(item->Id);
  }
  return ids;
}

using IdList = std::vector<std::int32_t>;

class NameListTest : public testing::Test {
 protected:
  int Load(const Bytes& file) {
    folder_.Write("store.lst", file);
    return list_.Load(path_);
  }

  test::TempFolder folder_;
  std::string path_ = folder_.path() + "\\store.lst";
  NameList list_;
};

TEST_F(NameListTest, AnEmptyListIsEightBytes) {
  EXPECT_EQ(list_.Save(path_), 0);
  EXPECT_EQ(folder_.Read("store.lst"), Hex("81 38 01 00 83 38 01 00"));
}

TEST_F(NameListTest, SavesItemsInAscendingIdOrder) {
  list_.Insert(Item(5000, "Corner Shop"));
  ListItem first = Item(7, "Mega");
  first.Count = 3;
  list_.Insert(first);
  EXPECT_EQ(list_.Save(path_), 0);
  EXPECT_EQ(folder_.Read("store.lst"),
            Join({Hex("81 38 01 00"), Hex("82 38 01 00"), Hex("00 00 00 00 07 00 00 00"),
                  Padded("Mega", 50), Hex("00 00 03 00 00 00"), Hex("82 38 01 00"),
                  Hex("00 00 00 00 88 13 00 00"), Padded("Corner Shop", 50),
                  Hex("00 00 00 00 00 00"), Hex("83 38 01 00")}));
}

TEST_F(NameListTest, LoadsItemsAndIteratesAscending) {
  ASSERT_EQ(Load(RawListFile({RawItem(9, "b"), RawItem(3, "a", 4), RawItem(5001, "c")})), 0);
  EXPECT_TRUE(list_.loaded());
  EXPECT_EQ(Ids(list_), (IdList{3, 9, 5001}));
  EXPECT_EQ(list_.Find(3)->Name.view(), "a");
  EXPECT_EQ(list_.Find(3)->Count, 4);
  EXPECT_EQ(list_.Find(4), nullptr);
  EXPECT_EQ(list_.LargestId(), 5001);
}

TEST_F(NameListTest, LoadingEmptiesTheListFirst) {
  list_.Insert(Item(77, "old"));
  ASSERT_EQ(Load(RawListFile({RawItem(1, "new")})), 0);
  EXPECT_EQ(Ids(list_), IdList{1});
}

TEST_F(NameListTest, ANameMayFillAllFiftyBytes) {
  const std::string name(50, 'n');
  ASSERT_EQ(Load(RawListFile({RawItem(1, name)})), 0);
  EXPECT_EQ(list_.Find(1)->Name.view(), name);
  ASSERT_EQ(list_.Save(path_), 0);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(1, name)}));
}

TEST_F(NameListTest, AMissingFileDoesNotOpen) {
  EXPECT_EQ(list_.Load(path_), ERR_OPEN);
  EXPECT_FALSE(list_.loaded());
}

TEST_F(NameListTest, AFolderInTheWayDoesNotOpenAndIsNotReplaced) {
  std::filesystem::create_directory(folder_.File("store.lst"));
  EXPECT_EQ(list_.Load(path_), ERR_OPEN);
  EXPECT_EQ(list_.Save(path_), ERR_OPEN);
}

TEST_F(NameListTest, AFileHeldBySomeoneElseIsNeitherReadNorWritten) {
  const Bytes file = RawListFile({RawItem(1, "a")});
  ASSERT_EQ(Load(file), 0);
  platform::File holder;
  ASSERT_TRUE(holder.Open(path_, platform::File::Mode::kRead));
  NameList other;
  EXPECT_EQ(other.Load(path_), ERR_OPEN);
  EXPECT_EQ(other.EnsureLoaded(path_), ERR_OPEN);
  EXPECT_EQ(other.Save(path_), ERR_OPEN);
  list_.Insert(Item(2, "b"));
  EXPECT_EQ(list_.Save(path_), ERR_OPEN);
  holder.Close();
  EXPECT_EQ(folder_.Read("store.lst"), file);
}

TEST_F(NameListTest, WrongMagicIsAFormatError) {
  EXPECT_EQ(Load(Join({EndMark(), EndMark()})), ERR_FORMAT);
  EXPECT_EQ(Load({}), ERR_FORMAT);
}

TEST_F(NameListTest, WrongMarkKeepsTheItemsBeforeIt) {
  EXPECT_EQ(Load(Join({FileMagic(), RecordMark(), RawItem(1, "a"), FileMagic()})), ERR_FORMAT);
  EXPECT_EQ(Ids(list_), IdList{1});
  EXPECT_FALSE(list_.loaded());
  EXPECT_EQ(Load(Join({FileMagic(), FileMagic()})), ERR_FORMAT);
  EXPECT_TRUE(list_.empty());
}

TEST_F(NameListTest, AnItemWithAnIdBelowOneEndsReadingAndKeepsTheItemsBeforeIt) {
  for (const std::int32_t id : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(Load(RawListFile({RawItem(4, "a"), RawItem(id, "b"), RawItem(5, "c")})), ERR_IO);
    EXPECT_EQ(Ids(list_), IdList{4});
    EXPECT_FALSE(list_.loaded());
  }
}

TEST_F(NameListTest, CutAtEveryByteGivesItsCodeAndKeepsTheFile) {
  const Bytes whole = RawListFile({RawItem(1, "a"), RawItem(2, "b")});
  ASSERT_EQ(whole.size(), 144u);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    const bool within_an_item = (size >= 8 && size < 72) || (size >= 76 && size < 140);
    ASSERT_EQ(Load(cut), within_an_item ? ERR_IO : ERR_FORMAT) << size;
    ASSERT_EQ(list_.size(), size < 72 ? 0u : size < 140 ? 1u : 2u) << size;
    ASSERT_EQ(folder_.Read("store.lst"), cut) << size;
  }
}

TEST_F(NameListTest, BytesBehindTheEndMarkAreIgnored) {
  EXPECT_EQ(Load(Join({RawListFile({RawItem(1, "a")}), Hex("01 02 03")})), 0);
  EXPECT_EQ(Ids(list_), IdList{1});
}

TEST_F(NameListTest, FirstOwnIdFollowsTheLargest) {
  EXPECT_EQ(list_.NextOwnId(), 5000);
  list_.Insert(Item(12, "a"));
  EXPECT_EQ(list_.NextOwnId(), 5000);
  list_.Insert(Item(4998, "b"));
  EXPECT_EQ(list_.NextOwnId(), 5000);
  list_.Insert(Item(4999, "c"));
  EXPECT_EQ(list_.NextOwnId(), 5000);
  list_.Insert(Item(5000, "d"));
  EXPECT_EQ(list_.NextOwnId(), 5001);
  list_.Insert(Item(6000, "e"));
  EXPECT_EQ(list_.NextOwnId(), 6001);
  list_.Insert(Item(std::numeric_limits<std::int32_t>::max(), "f"));
  EXPECT_EQ(list_.NextOwnId(), std::nullopt);
}

TEST_F(NameListTest, InsertReplacesAndIgnoresIdsBelowOne) {
  list_.Insert(Item(3, "a"));
  list_.Insert(Item(3, "b"));
  list_.Insert(Item(0, "c"));
  list_.Insert(Item(-5, "d"));
  EXPECT_EQ(Ids(list_), IdList{3});
  EXPECT_EQ(list_.Find(3)->Name.view(), "b");
}

TEST_F(NameListTest, TheWalkGoesOnBehindAnErasedEntry) {
  for (const std::int32_t id : {1, 2, 3}) list_.Insert(Item(id, "x"));
  EXPECT_EQ(list_.First()->Id, 1);
  EXPECT_EQ(list_.Next()->Id, 2);
  list_.Erase(2);
  EXPECT_EQ(list_.Next()->Id, 3);
  EXPECT_EQ(list_.Next(), nullptr);
  EXPECT_EQ(list_.Next(), nullptr);
}

TEST_F(NameListTest, SavingAListThatWasNotLoadedKeepsTheEntriesOfTheFile) {
  folder_.Write("store.lst", RawListFile({RawItem(7, "theirs"), RawItem(8, "old")}));
  list_.Insert(Item(8, "new"));
  ASSERT_EQ(list_.Save(path_), 0);
  EXPECT_TRUE(list_.loaded());
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(7, "theirs"), RawItem(8, "new")}));
}

TEST_F(NameListTest, SavingALoadedListWritesWhatItHolds) {
  ASSERT_EQ(Load(RawListFile({RawItem(7, "a"), RawItem(8, "b")})), 0);
  list_.Erase(7);
  ASSERT_EQ(list_.Save(path_), 0);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(8, "b")}));
}

TEST_F(NameListTest, EnsureLoadedTakesAMissingFileAsEmptyAndLooksAgainLater) {
  EXPECT_EQ(list_.EnsureLoaded(path_), 0);
  folder_.Write("store.lst", RawListFile({RawItem(7, "a")}));
  EXPECT_EQ(list_.EnsureLoaded(path_), 0);
  EXPECT_EQ(Ids(list_), IdList{7});
}

TEST_F(NameListTest, RefreshTakesOverWhatAnotherProgramWrote) {
  ASSERT_EQ(Load(RawListFile({RawItem(7, "a"), RawItem(8, "b")})), 0);
  const ListItem* const held = list_.Find(8);
  folder_.Write("store.lst", RawListFile({RawItem(8, "renamed"), RawItem(5000, "theirs")}));
  ASSERT_EQ(list_.Refresh(path_), 0);
  EXPECT_EQ(Ids(list_), (IdList{8, 5000})) << "7 is not in the file any more";
  EXPECT_EQ(held->Name.view(), "renamed") << "entries that stay do not move";
  EXPECT_EQ(list_.NextOwnId(), 5001);
}

TEST_F(NameListTest, RefreshDropsNothingWhenTheFileIsDamaged) {
  ASSERT_EQ(Load(RawListFile({RawItem(7, "a"), RawItem(8, "b")})), 0);
  Bytes damaged = RawListFile({RawItem(8, "b")});
  damaged.back() ^= std::byte{1};
  folder_.Write("store.lst", damaged);
  EXPECT_EQ(list_.Refresh(path_), 0);
  EXPECT_EQ(Ids(list_), (IdList{7, 8}));
  EXPECT_FALSE(list_.loaded());
}

TEST_F(NameListTest, RefreshDropsNothingWhenTheFileIsCutOrHasAnItemWithoutAnId) {
  const Bytes sound = RawListFile({RawItem(7, "a"), RawItem(8, "b")});
  Bytes cut = sound;
  cut.resize(cut.size() - 20);
  const Bytes without_id = RawListFile({RawItem(7, "a"), RawItem(0, "b")});
  for (const Bytes& damaged : {cut, without_id}) {
    ASSERT_EQ(Load(sound), 0);
    folder_.Write("store.lst", damaged);
    std::filesystem::remove(folder_.File("store.lst.bad"));
    EXPECT_EQ(list_.Refresh(path_), 0);
    EXPECT_EQ(Ids(list_), (IdList{7, 8}));
    EXPECT_FALSE(list_.loaded());
    EXPECT_EQ(list_.Save(path_), 0);
    EXPECT_EQ(folder_.Read("store.lst"), sound);
    EXPECT_EQ(folder_.Read("store.lst.bad"), damaged);
  }
}

TEST_F(NameListTest, RefreshOfAListThatWasNotLoadedKeepsWhatIsHeld) {
  folder_.Write("store.lst", RawListFile({RawItem(7, "theirs"), RawItem(8, "old")}));
  list_.Insert(Item(8, "new"));
  ASSERT_EQ(list_.Refresh(path_), 0);
  EXPECT_EQ(list_.Find(8)->Name.view(), "new");
  EXPECT_EQ(list_.Find(7)->Name.view(), "theirs");
}

TEST_F(NameListTest, RefreshKeepsAListWhoseFileIsMissing) {
  ASSERT_EQ(Load(RawListFile({RawItem(7, "a")})), 0);
  std::filesystem::remove(folder_.File("store.lst"));
  EXPECT_EQ(list_.Refresh(path_), 0);
  EXPECT_EQ(Ids(list_), IdList{7});
}

TEST_F(NameListTest, AFileThatWasDamagedSinceItWasLoadedIsKeptAside) {
  ASSERT_EQ(Load(RawListFile({RawItem(7, "a")})), 0);
  folder_.WriteText("store.lst", "damaged");
  ASSERT_EQ(list_.Refresh(path_), 0);
  EXPECT_FALSE(list_.loaded());
  ASSERT_EQ(list_.Save(path_), 0);
  EXPECT_EQ(folder_.ReadText("store.lst.bad"), "damaged");
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(7, "a")}));
}

TEST_F(NameListTest, RefreshOfAFileThatSomeoneHoldsChangesNothing) {
  ASSERT_EQ(Load(RawListFile({RawItem(7, "a")})), 0);
  platform::File holder;
  ASSERT_TRUE(holder.Open(path_, platform::File::Mode::kRead));
  EXPECT_EQ(list_.Refresh(path_), ERR_OPEN);
  EXPECT_TRUE(list_.loaded());
}

TEST_F(NameListTest, ADamagedFileIsKeptAsideWhenTheListIsSaved) {
  const Bytes damaged = Join({FileMagic(), RecordMark(), RawItem(1, "a"), Hex("99")});
  ASSERT_EQ(Load(damaged), ERR_FORMAT);
  list_.Insert(Item(2, "b"));
  ASSERT_EQ(list_.Save(path_), 0);
  EXPECT_TRUE(list_.loaded());
  EXPECT_EQ(folder_.Read("store.lst.bad"), damaged);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(1, "a"), RawItem(2, "b")}));
  ASSERT_EQ(list_.Save(path_), 0);
  EXPECT_FALSE(folder_.Read("store.lst.bad2"));
}

TEST_F(NameListTest, EveryKindOfDamageIsKeptAside) {
  const std::vector<Bytes> kinds = {
      {},                                                             // no byte
      Hex("01 02 03 04 05"),                                          // foreign
      FileMagic(),                                                    // no mark
      Join({FileMagic(), RecordMark(), test::Run(63)}),               // short item
      RawListFile({RawItem(0, "zero")}),                              // id below 1
      Join({FileMagic(), RecordMark(), RawItem(1, "a"), Hex("83")}),  // cut end mark
  };
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    NameList list;
    folder_.Write("store.lst", kinds[i]);
    ASSERT_NE(list.Load(path_), 0) << i;
    ASSERT_EQ(list.Save(path_), 0) << i;
    const std::string kept = i == 0 ? "store.lst.bad" : "store.lst.bad" + std::to_string(i + 1);
    ASSERT_EQ(folder_.Read(kept), kinds[i]) << i;
    ASSERT_EQ(list.Load(path_), 0) << i;
  }
}

TEST_F(NameListTest, AnEnormousForeignFileIsNotReplaced) {
  ASSERT_EQ(Load(Hex("01 02 03 04")), ERR_FORMAT);
  std::filesystem::resize_file(folder_.File("store.lst"), platform::kLargestWholeFile + 1);
  list_.Insert(Item(2, "b"));
  EXPECT_EQ(list_.Save(path_), ERR_IO);
  EXPECT_EQ(std::filesystem::file_size(folder_.File("store.lst")), platform::kLargestWholeFile + 1);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("store.lst.bad")));
}

TEST_F(NameListTest, AFailedSaveLeavesTheFileAndNothingBesideIt) {
  const Bytes damaged = Join({RawListFile({RawItem(1, "a")}), {}});
  Bytes cut = damaged;
  cut.pop_back();
  ASSERT_EQ(Load(cut), ERR_FORMAT);
  list_.Insert(Item(2, "b"));
  for (const std::int64_t limit : {0, 10, 75, 100}) {
    const test::WriteLimit full(limit);
    ASSERT_EQ(list_.Save(path_), ERR_IO) << limit;
    ASSERT_EQ(folder_.Read("store.lst"), cut) << limit;
    ASSERT_FALSE(folder_.Read("store.lst.bad")) << limit;
    ASSERT_FALSE(list_.loaded()) << limit;
  }
}

TEST_F(NameListTest, ARoundTripOfMutatedFilesNeverGrowsOrCrashes) {
  const Bytes whole = RawListFile({RawItem(1, "a"), RawItem(2, "b")});
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const unsigned flip : {0x01u, 0x80u, 0xFFu}) {
      Bytes mutated = whole;
      mutated[at] ^= static_cast<std::byte>(flip);
      const int code = Load(mutated);
      ASSERT_TRUE(code == 0 || code == ERR_FORMAT || code == ERR_IO) << at;
      ASSERT_LE(list_.size(), 2u) << at;
      ASSERT_EQ(folder_.Read("store.lst"), mutated) << at;
    }
  }
}

}  // namespace
}  // namespace brovanta

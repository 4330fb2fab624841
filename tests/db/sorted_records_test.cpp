#include "db/sorted_records.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "db/records.h"

namespace brovanta {
namespace {

constexpr DateStamp kEarliest = std::numeric_limits<DateStamp>::min();
constexpr DateStamp kLatest = std::numeric_limits<DateStamp>::max();

using KeyAndId = std::pair<DateStamp, std::int32_t>;
using Products = SortedRecords<ProductRecord>;

ProductRecord Product(DateStamp key, std::int32_t id) {
  ProductRecord record;
  record.NextDate = key;
  record.Id = id;
  return record;
}

std::vector<KeyAndId> Contents(const Products& records) {
  std::vector<KeyAndId> contents;
  for (const ProductRecord* record : records) contents.emplace_back(record->NextDate, record->Id);
  return contents;
}

/// A list that walks from its start past everything not smaller than the new key.
class PlainList {
 public:
  void Insert(DateStamp key, std::int32_t id) {
    std::size_t place = 0;
    while (place < elements_.size() && elements_[place].first >= key) ++place;
    elements_.insert(elements_.begin() + static_cast<std::ptrdiff_t>(place), {key, id});
  }
  void Remove(std::int32_t id) {
    for (std::size_t place = 0; place < elements_.size(); ++place) {
      if (elements_[place].second != id) continue;
      elements_.erase(elements_.begin() + static_cast<std::ptrdiff_t>(place));
      return;
    }
  }
  [[nodiscard]] const std::vector<KeyAndId>& elements() const { return elements_; }

 private:
  std::vector<KeyAndId> elements_;
};

TEST(SortedRecordsTest, RunsFromTheLatestKeyToTheEarliest) {
  Products records;
  records.Append(Product(5, 1));
  records.Append(Product(kLatest, 2));
  records.Append(Product(-5, 3));
  records.Append(Product(kEarliest, 4));
  records.Append(Product(0, 5));
  records.Sort();
  const std::vector<KeyAndId> expected{{kLatest, 2}, {5, 1}, {0, 5}, {-5, 3}, {kEarliest, 4}};
  EXPECT_EQ(Contents(records), expected);
}

TEST(SortedRecordsTest, EqualKeysKeepTheirOrderOfArrival) {
  Products records;
  for (std::int32_t id = 1; id <= 3; ++id) records.Append(Product(7, id));
  records.Append(Product(8, 4));
  records.Sort();
  records.Insert(Product(7, 5));
  records.Insert(Product(8, 6));
  const std::vector<KeyAndId> expected{{8, 4}, {8, 6}, {7, 1}, {7, 2}, {7, 3}, {7, 5}};
  EXPECT_EQ(Contents(records), expected);
}

TEST(SortedRecordsTest, RecordsAppendedToAFilledListComeBehindEqualOnes) {
  std::mt19937 random(9);
  std::uniform_int_distribution<DateStamp> key(-9, 9);
  Products records;
  PlainList plain;
  for (std::int32_t id = 1; id <= 900; ++id) {
    const DateStamp value = key(random);
    records.Append(Product(value, id));
    plain.Insert(value, id);
    if (id % 100 != 0) continue;
    records.Sort();
    ASSERT_EQ(Contents(records), plain.elements());
  }
}

TEST(SortedRecordsTest, ARecordThatIsNotKeptLeavesNoTrace) {
  Products records;
  for (std::int32_t id = 1; id <= 200; ++id) {
    records.AppendIf([&] { return Product(0, id); },
                     [](ProductRecord& record) {
                       record.NextDate = -record.Id;  // the test may compute the key
                       return record.Id % 100 == 7;
                     });
  }
  records.Sort();
  EXPECT_EQ(Contents(records), (std::vector<KeyAndId>{{-7, 7}, {-107, 107}}));
}

TEST(SortedRecordsTest, DiscountsAreOrderedByStamp) {
  SortedRecords<DiscountRecord> records;
  DiscountRecord older;
  older.Id = 1;
  older.Stamp = 100;
  older.EndDate = 900;
  DiscountRecord newer;
  newer.Id = 2;
  newer.Stamp = 200;
  records.Insert(older);
  records.Insert(newer);
  EXPECT_EQ(records.First()->Id, 2);
  EXPECT_EQ(records.Next()->Id, 1);
  EXPECT_EQ(records.Next(), nullptr);
}

TEST(SortedRecordsTest, SortingGivesWhatInsertionOneByOneGives) {
  std::mt19937 random(7);
  for (const int keys : {1, 3, 50, 100'000}) {
    std::uniform_int_distribution<DateStamp> key(-keys, keys);
    Products sorted;
    Products inserted;
    PlainList plain;
    for (std::int32_t id = 1; id <= 700; ++id) {
      const DateStamp value = key(random);
      sorted.Append(Product(value, id));
      inserted.Insert(Product(value, id));
      plain.Insert(value, id);
    }
    sorted.Sort();
    EXPECT_EQ(Contents(sorted), plain.elements());
    EXPECT_EQ(Contents(inserted), plain.elements());
  }
}

TEST(SortedRecordsTest, InsertionsAndRemovalsFollowAPlainList) {
  std::mt19937 random(8);
  std::uniform_int_distribution<DateStamp> key(-20, 20);
  Products records;
  PlainList plain;
  for (std::int32_t id = 1; id <= 600; ++id) {
    const DateStamp value = key(random);
    records.Insert(Product(value, id));
    plain.Insert(value, id);
    if (id % 3 != 0) continue;
    const std::int32_t victim = std::uniform_int_distribution<std::int32_t>(1, id)(random);
    records.RemoveFirst([&](const ProductRecord& record) { return record.Id == victim; });
    plain.Remove(victim);
    ASSERT_EQ(Contents(records), plain.elements());
  }
}

TEST(SortedRecordsTest, PointersStayValidWhileOthersComeAndGo) {
  Products records;
  std::vector<const ProductRecord*> pointers;
  for (std::int32_t id = 1; id <= 500; ++id) {
    records.Insert(Product(id % 10, id));
    pointers.push_back(records.FindFirst([&](const ProductRecord& it) { return it.Id == id; }));
  }
  records.RemoveFirst([](const ProductRecord& record) { return record.Id == 250; });
  for (std::int32_t id = 1; id <= 500; ++id) {
    if (id == 250) continue;
    EXPECT_EQ(pointers[static_cast<std::size_t>(id - 1)]->Id, id);
  }
}

// Before, at and behind every border between the pieces of memory that they lie in.
TEST(SortedRecordsTest, ThousandsOfRecordsKeepTheirOrderAndTheirBytes) {
  constexpr int kMany = 12000;
  Products records;
  for (int round = 0; round < 2; ++round) {  // the second in memory that was used before
    records.Clear();
    for (int i = 0; i < kMany; ++i) {
      ProductRecord product = Product(kMany - i, i);
      product.Name.Assign("Product " + std::to_string(i));
      records.Append(product);
    }
    records.Sort();
    ASSERT_EQ(records.size(), static_cast<std::size_t>(kMany));
    int id = 0;
    for (const ProductRecord* record : records) {
      ASSERT_EQ(record->Id, id);
      ASSERT_EQ(record->Name.view(), "Product " + std::to_string(id));
      ++id;
    }
  }
}

TEST(SortedRecordsTest, RemovingTakesTheFirstThatFitsAndOnlyThat) {
  Products records;
  records.Insert(Product(1, 9));
  records.Insert(Product(2, 9));
  records.RemoveFirst([](const ProductRecord& record) { return record.Id == 9; });
  records.RemoveFirst([](const ProductRecord& record) { return record.Id == 8; });
  EXPECT_EQ(Contents(records), (std::vector<KeyAndId>{{1, 9}}));
}

TEST(SortedRecordsTest, WalkEndsWithNothingAndStartsAnew) {
  Products records;
  EXPECT_EQ(records.First(), nullptr);
  records.Insert(Product(1, 1));
  ASSERT_NE(records.First(), nullptr);
  EXPECT_EQ(records.Next(), nullptr);
  EXPECT_EQ(records.Next(), nullptr);
  EXPECT_EQ(records.First()->Id, 1);
}

TEST(SortedRecordsTest, RemovingARecordAlreadyPassedDoesNotSkipTheNext) {
  Products records;
  for (std::int32_t id = 1; id <= 3; ++id) records.Insert(Product(0, id));
  ASSERT_EQ(records.First()->Id, 1);
  records.RemoveFirst([](const ProductRecord& record) { return record.Id == 1; });
  EXPECT_EQ(records.Next()->Id, 2);
}

TEST(SortedRecordsTest, AClearedListFillsAnewFromItsOwnMemory) {
  Products records;
  for (std::int32_t id = 1; id <= 200; ++id) records.Insert(Product(id, id));
  records.Clear();
  EXPECT_EQ(records.size(), 0U);
  EXPECT_EQ(records.First(), nullptr);
  for (std::int32_t id = 1; id <= 300; ++id) records.Append(Product(-id, id));
  records.Sort();
  EXPECT_EQ(records.size(), 300U);
  EXPECT_EQ(records.First()->Id, 1);
}

}  // namespace
}  // namespace brovanta

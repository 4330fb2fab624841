#include "bench/db/household.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "db/schedule.h"
#include "util/little_endian.h"

namespace brovanta::bench {
namespace {

constexpr std::array kAdjectives = {"Fresh", "Organic", "Frozen", "Sliced",  "Whole", "Large",
                                    "Small", "Dried",   "Sweet",  "Salted",  "Plain", "Crispy",
                                    "Soft",  "Ground",  "Smoked", "Roasted", "Light", "Dark"};
constexpr std::array kNouns = {"milk",    "bread",  "apples", "rice",   "coffee",    "cheese",
                               "butter",  "eggs",   "pasta",  "tomato", "soap",      "shampoo",
                               "yoghurt", "onions", "pears",  "flour",  "detergent", "napkins",
                               "juice",   "tea",    "honey",  "salmon", "chicken",   "batteries"};
constexpr std::array kPacks = {"1 l", "500 g", "6 pack", "family size", "2 for 1", "12 pieces"};

/// The same numbers on every machine: the library's distributions are not laid down.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : random_(seed) {}

  std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>(random_()) % bound; }
  template <typename List>
  const char* OneOf(const List& list) {
    return list[Below(static_cast<std::uint32_t>(list.size()))];
  }
  std::string Name() {
    return std::string(OneOf(kAdjectives)) + " " + OneOf(kNouns) + ", " + OneOf(kPacks);
  }

 private:
  std::mt19937 random_;
};

DateStamp Days(std::int64_t count) { return static_cast<DateStamp>(count * kSecondsPerDay); }

template <typename Records, typename Encode>
void WriteRecordFile(const std::string& path, const Records& records, Encode encode) {
  std::ofstream file(path, std::ios::binary);
  const auto put_word = [&](std::uint32_t word) {
    std::array<std::byte, kWordSize> bytes;
    StoreLittle(bytes.data(), word);
    file.write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  };
  put_word(FILE_MAGIC);
  put_word(static_cast<std::uint32_t>(records.size()));
  for (const auto& record : records) {
    put_word(RECORD_MARK);
    const auto bytes = encode(record);
    file.write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  }
  put_word(END_MARK);
}

void SetSchedule(ProductRecord& product, Dice& dice) {
  product.StartDate = kToday - Days(dice.Below(700)) + Days(30);
  product.PurchaseKind = kOneTime;
  if (product.Id % 2 == 0) return;
  product.PurchaseKind = static_cast<std::uint16_t>(kDaily + dice.Below(3));
  if (product.PurchaseKind == kDaily) {
    product.DayValue = static_cast<std::uint16_t>(1 + dice.Below(6));
  } else if (product.PurchaseKind == kWeekly) {
    product.Every = static_cast<std::uint16_t>(1 + dice.Below(4));
    product.DayValue = static_cast<std::uint16_t>(1 + dice.Below(7));
  } else {
    product.Every = static_cast<std::uint16_t>(1 + dice.Below(6));
    product.DayValue = static_cast<std::uint16_t>(1 + dice.Below(31));
  }
  if (dice.Below(2) == 0) product.LastPurchased = kToday - Days(dice.Below(60));
}

}  // namespace

std::vector<DiscountRecord> MakeDiscounts() {
  Dice dice(1);
  std::vector<DiscountRecord> discounts(kRecords);
  for (std::size_t i = 0; i < kRecords; ++i) {
    DiscountRecord& discount = discounts[i];
    const std::int64_t day_of_arrival = static_cast<std::int64_t>(i * 3650 / kRecords) - 3650;
    discount.Id = static_cast<std::int32_t>(i + 2);
    discount.Name.Assign(dice.Name());
    discount.Product.Assign(dice.Name());
    discount.Description.Assign("Save on " + dice.Name() + " when you also buy " + dice.Name());
    discount.Source = static_cast<std::int16_t>(dice.Below(3));
    discount.Type = static_cast<std::int16_t>(1 + dice.Below(3));
    discount.ValueType = static_cast<std::uint16_t>(1 + dice.Below(2));
    discount.Value = 0.25 * (1 + dice.Below(80));
    discount.Stamp = kToday + Days(day_of_arrival);
    if (dice.Below(10) == 0) {
      discount.Stamp += Days(dice.Below(static_cast<std::uint32_t>(1 - day_of_arrival)));
    }
    discount.StartDate = discount.Stamp;
    if (dice.Below(4) != 0) discount.EndDate = kToday - Days(2400) + Days(dice.Below(3650));
    discount.StoreId = dice.Below(21);
    discount.CategoryId = dice.Below(13);
  }
  return discounts;
}

std::vector<ProductRecord> MakeProducts() {
  Dice dice(2);
  std::vector<ProductRecord> products(kRecords);
  for (std::size_t i = 0; i < kRecords; ++i) {
    ProductRecord& product = products[i];
    product.Id = static_cast<std::int32_t>(i + 1);
    product.Name.Assign(dice.Name());
    product.Notes.Assign("Ask for " + dice.Name());
    product.StoreId = dice.Below(21);
    product.CategoryId = dice.Below(13);
    product.UnitId = 1 + dice.Below(5);
    product.UnitPrice = 0.01 * dice.Below(2000);
    product.Quantity = 1 + dice.Below(4);
    product.TaxPercent = 8.25;
    if (dice.Below(10) == 0) product.Discounts[0] = {dice.Below(kRecords), 1, 102};
    SetSchedule(product, dice);
  }
  return products;
}

const BenchFolder& BenchFolder::Instance() {
  static const BenchFolder folder;
  return folder;
}

BenchFolder::BenchFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "brovanta-bench-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    std::perror(name.c_str());
    std::exit(EXIT_FAILURE);
  }
  path_ = name;
}

BenchFolder::~BenchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void WriteDataFiles() {
  static const bool written = [] {
    const BenchFolder& folder = BenchFolder::Instance();
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      std::ofstream(folder.File(list), std::ios::binary).write("\x81\x38\x01\0\x83\x38\x01\0", 8);
    }
    WriteRecordFile(folder.File("discount.dat"), MakeDiscounts(), EncodeDiscount);
    WriteRecordFile(folder.File("product.dat"), MakeProducts(), EncodeProduct);
    return true;
  }();
  static_cast<void>(written);
}

std::size_t ReadWholeFile(const std::string& path) {
  static std::vector<std::byte> buffer(std::size_t{128} * 1024);
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  std::size_t total = 0;
  for (ssize_t count = 0; (count = read(descriptor, buffer.data(), buffer.size())) > 0;) {
    total += static_cast<std::size_t>(count);
  }
  close(descriptor);
  return total;
}

}  // namespace brovanta::bench

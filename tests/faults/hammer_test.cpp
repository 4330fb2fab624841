// Four programs on one folder that know nothing of each other: what one of them confirmed is there
// afterwards, once, and no file holds anything else.
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "db/error_codes.h"
#include "db/feed_import.h"
#include "db/record_file.h"
#include "db/shopping_database.h"
#include "platform/system_calls.h"
#include "search/results_file.h"
#include "search/search_manager.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {
namespace {

using platform::SystemCallsInUse;

constexpr std::int64_t kNoon = 1714996800;  // Monday 2024-05-06
constexpr int kPrograms = 4;
constexpr int kRounds = 24;
constexpr int kVictimsEvery = 3;  // rounds
constexpr int kRewrites = 2;      // of the results of a search

/// "P2.7": what program 2 did in round 7.
std::string Name(char kind, int program, int round) {
  return kind + std::to_string(program) + "." + std::to_string(round);
}
std::int32_t FeedId(int program, int round) { return 100 * (program + 1) + round; }

/// One of the programs. Whatever collides with another one is tried again.
class Hammer {
 public:
  Hammer(std::string folder, int program) : folder_(std::move(folder)), program_(program) {
    (void)database_.Open(folder_);  // a list that someone holds is loaded when it is needed
    (void)searches_.SetSearchFolder(folder_);
  }

  void Run() {
    for (int round = 0; round < kRounds; ++round) {
      ChangeProducts(round);
      ChangeDiscounts(round);
      ImportFeeds(round);
      SaveSearch(round);
      LookAround();
      if (round % kVictimsEvery == 0) LeaveAVictim(round);
    }
  }

  [[nodiscard]] int collisions() const { return collisions_; }
  [[nodiscard]] int changes() const { return changes_; }

 private:
  /// Until it is done; `attempt` gives 0 or the code, which must be that of a collision.
  void Insist(const char* what, const std::function<int()>& attempt) {
    for (int code = attempt(); code != 0; code = attempt()) {
      if (code != ERR_OPEN) {
        std::cerr << "program " << program_ << ": " << what << " gives " << code << "\n";
        _exit(1);
      }
      ++collisions_;
      sched_yield();
    }
    ++changes_;
  }
  /// The same for an operation that gives its result or nothing.
  template <typename Attempt>
  auto Obtain(Attempt attempt) {
    auto result = attempt();
    for (int tries = 1; !result; result = attempt()) {
      if (++tries > kMostTries) {
        std::cerr << "program " << program_ << ": no result after " << kMostTries << " tries\n";
        _exit(1);
      }
      ++collisions_;
      sched_yield();
    }
    ++changes_;
    return *result;
  }
  /// So often nobody collides; what fails then fails for another reason.
  static constexpr int kMostTries = 200000;
  static int CodeOf(int result) { return result > 0 ? 0 : result; }

  void ChangeProducts(int round);
  void ChangeDiscounts(int round);
  void ImportFeeds(int round);
  void SaveSearch(int round);
  void LookAround();
  void LeaveAVictim(int round);

  std::string folder_;
  int program_;
  int collisions_ = 0;
  int changes_ = 0;  // and looks
  ShoppingDatabase database_;
  SearchManager searches_;
};

void Hammer::ChangeProducts(int round) {
  ProductFields fields;
  fields.name = Name('P', program_, round);
  fields.store = NameRef{0, Name('S', program_, round)};
  fields.unit = NameRef{0, Name('U', program_, round)};
  ProductList& products = database_.products();
  const std::int32_t id = Obtain([&] { return products.Add(kProductKind, fields); }).Id;
  fields.notes = "changed";
  Obtain([&] { return products.Update(kProductKind, id, fields); });
  Insist("a purchase", [&] { return CodeOf(products.Mark(kProductKind, id, kProductPurchased)); });
  if (round % 2 == 1) {
    Insist("a deletion", [&] { return CodeOf(products.Mark(kProductKind, id, kProductDelete)); });
  }
}

void Hammer::ChangeDiscounts(int round) {
  DiscountFields fields;
  fields.name = Name('D', program_, round);
  fields.category = NameRef{0, Name('C', program_, round)};
  DiscountList& discounts = database_.discounts();
  const std::int32_t id = Obtain([&] { return discounts.Add(0, 0, fields); }).Id;
  Insist("a flag", [&] { return CodeOf(discounts.Mark(id, 0, kMarkFlagged)); });
}

void Hammer::ImportFeeds(int round) {
  std::array<NewDiscount, 2> coupons;
  for (NewDiscount& coupon : coupons) {
    coupon.id = FeedId(program_, round);
    coupon.source = static_cast<std::int16_t>(&coupon == coupons.data() ? 1 : 2);
    coupon.fields.name = Name('F', program_, round);
    coupon.fields.store = NameRef{1, ""};
  }
  Insist("a coupon feed",
         [&] { return database_.discounts().AddAll(coupons) == 2 ? 0 : ERR_OPEN; });
  const std::string feed = folder_ + "\\feed" + std::to_string(program_);
  const std::string text = "<IT><ID>" + std::to_string(FeedId(program_, round)) + "</ID><NM>" +
                           Name('L', program_, round) + "</NM></IT>";
  Insist("a feed", [&] {
    return platform::ReplaceFile(feed, std::as_bytes(std::span(text))) ? 0 : ERR_OPEN;
  });
  Insist("a list feed", [&] {
    return ImportAndSaveList(database_.categories(), feed, database_.paths().category);
  });
}

void Hammer::SaveSearch(int round) {
  SearchResultList results;
  SearchResultItem item;
  item.Title = Name('R', program_, round);
  results.Append({item});
  std::int32_t number = 0;
  Insist("a search", [&] {
    number = searches_.saved_searches().SaveSearch(program_, *item.Title, &results);
    return CodeOf(number);
  });
  // Each result that is added is one that somebody asked for, whatever the others do meanwhile.
  const std::string path = searches_.saved_searches().ResultsPath(number);
  for (int time = 1; time <= kRewrites; ++time) {
    Insist("a look at results", [&] { return ReadSearchResults(results, path); });
    item.Text = std::to_string(time);
    results.Append({item});
    Insist("results written again", [&] { return WriteSearchResults(results, path); });
  }
  if (round % 2 == 1) {
    Insist("the end of a search",
           [&] { return CodeOf(searches_.saved_searches().DeleteSavedSearch(number)); });
  }
}

/// Whoever reads sees whole records.
void Hammer::LookAround() {
  const auto look = [](int code, bool sound) { return code != 0 || sound ? code : ERR_FORMAT; };
  Insist("a look at the discounts", [&] {
    const int code = database_.discounts().Load(nullptr);
    return look(code, database_.discounts().size() > 0);
  });
  ProductFilter all;
  all.kind = kPurchaseKind;
  Insist("a look at the purchases", [&] {
    const int code = database_.products().Load(&all);
    return look(code, database_.products().size() > 0);
  });
  Insist("a look at the searches",
         [&] { return searches_.saved_searches().LoadSavedSearches({}); });
}

/// A program that ends in the middle of a change of each kind, for the others to mend.
void Hammer::LeaveAVictim(int round) {
  const pid_t child = fork();
  if (child < 0) _exit(1);
  if (child == 0) {
    FaultyCalls calls(Fault::kStop, 20 + 11 * program_ + 5 * round);
    const SystemCallsInUse in_use(calls);
    for (int i = 0;; ++i) {
      ProductFields fields;
      fields.name = Name('V', program_, 100 * round + i);
      fields.store = NameRef{0, Name('W', program_, 100 * round + i)};
      const auto added = database_.products().Add(kProductKind, fields);
      if (added) (void)database_.products().Mark(kProductKind, added->Id, kProductPurchased);
      SearchResultList results;
      SearchResultItem item;
      item.Title = fields.name;
      results.Append({item});
      const std::int32_t number =
          searches_.saved_searches().SaveSearch(program_, fields.name, &results);
      if (number < 1) continue;
      (void)WriteSearchResults(results, searches_.saved_searches().ResultsPath(number));
    }
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child || !WIFEXITED(status)) _exit(1);
}

/// What stands in the folder afterwards.
class HammerTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      folder_.Write(list, NameList().Encode());
    }
  }

  [[nodiscard]] std::string Path(const char* name) const { return folder_.path() + "\\" + name; }

  /// Every record of a file that is sound to its last byte, by name; those of victims left out.
  template <typename Format>
  std::map<std::string, typename Format::Record> Records(const char* name) {
    std::map<std::string, typename Format::Record> records;
    std::set<std::int64_t> keys;
    std::int32_t largest = 0;
    RecordScanner<Format> scan;
    EXPECT_EQ(scan.Open(Path(name)), 0) << name;
    std::int64_t end = static_cast<std::int64_t>(kFirstRecordMark);
    while (scan.Next()) {
      const auto record = scan.Decode();
      end = scan.offset() + static_cast<std::int64_t>(Format::kSize);
      std::string key(record.Name.view());
      if constexpr (requires { record.Source; }) {
        EXPECT_TRUE(keys.insert(record.Id * 4LL + record.Source).second) << name << " " << key;
        if (record.Source != 0) key += "/" + std::to_string(record.Source);
        if (record.Source == 0) largest = std::max(largest, record.Id);
      } else {
        EXPECT_TRUE(keys.insert(record.Id).second) << name << " " << key;
        largest = std::max(largest, record.Id);
      }
      const bool is_new = records.try_emplace(key, record).second;
      EXPECT_TRUE(is_new) << name << " holds " << key << " twice";
    }
    EXPECT_EQ(scan.code(), 0) << name;
    EXPECT_EQ(scan.last_id(), largest) << name;
    EXPECT_EQ(folder_.Read(name)->size(), static_cast<std::size_t>(end) + kWordSize) << name;
    std::erase_if(records, [](const auto& entry) { return entry.first.starts_with("V"); });
    return records;
  }

  /// The names of a list by id, each once.
  std::map<std::int32_t, std::string> Names(const char* name) {
    std::map<std::int32_t, std::string> names;
    std::set<std::string> seen;
    NameList list;
    EXPECT_EQ(list.Load(Path(name)), 0) << name;
    for (const auto& [id, item] : list) {
      names[id] = item.Name.view();
      EXPECT_TRUE(seen.insert(names[id]).second) << name << " holds " << names[id] << " twice";
    }
    return names;
  }

  void ExpectProducts();
  void ExpectDiscounts();
  void ExpectSearches();

  TempFolder folder_;
  const FixedClock clock_{kNoon};
};

void HammerTest::ExpectProducts() {
  const auto stores = Names("store.lst");
  const auto units = Names("unit.lst");
  const auto products = Records<ProductFormat>("product.dat");
  const auto purchases = Records<ProductFormat>("purchase.dat");
  EXPECT_EQ(products.size(), static_cast<std::size_t>(kPrograms * kRounds));
  EXPECT_EQ(purchases.size(), products.size());
  EXPECT_EQ(units.size(), products.size());
  for (const auto& [name, product] : products) {
    const std::string owner = name.substr(1);
    const int round = std::atoi(owner.substr(owner.find('.') + 1).c_str());
    EXPECT_EQ(product.Notes.view(), "changed");
    EXPECT_EQ(product.Deleted, round % 2) << name;
    EXPECT_EQ(product.LastPurchased, TodayStamp()) << name;
    EXPECT_EQ(stores.at(static_cast<std::int32_t>(product.StoreId)), "S" + owner);
    EXPECT_EQ(units.at(static_cast<std::int32_t>(product.UnitId)), "U" + owner);
    EXPECT_TRUE(purchases.contains(name)) << name;
  }
}

void HammerTest::ExpectDiscounts() {
  const auto categories = Names("category.lst");
  const auto discounts = Records<DiscountFormat>("discount.dat");
  EXPECT_EQ(discounts.size(), static_cast<std::size_t>(3 * kPrograms * kRounds));
  EXPECT_EQ(categories.size(), static_cast<std::size_t>(2 * kPrograms * kRounds));
  for (int program = 0; program < kPrograms; ++program) {
    for (int round = 0; round < kRounds; ++round) {
      const auto own = discounts.find(Name('D', program, round));
      ASSERT_NE(own, discounts.end());
      EXPECT_EQ(own->second.Flagged, 1);
      EXPECT_EQ(categories.at(static_cast<std::int32_t>(own->second.CategoryId)),
                Name('C', program, round));
      EXPECT_EQ(categories.at(FeedId(program, round)), Name('L', program, round));
      EXPECT_TRUE(discounts.contains(Name('F', program, round) + "/1"));
      EXPECT_TRUE(discounts.contains(Name('F', program, round) + "/2"));
    }
  }
}

void HammerTest::ExpectSearches() {
  SearchManager manager;
  ASSERT_EQ(manager.SetSearchFolder(folder_.path()), 0);
  SavedSearches& saved = manager.saved_searches();
  ASSERT_EQ(saved.LoadSavedSearches({}), 0);
  std::set<std::string> words;
  for (const SavedSearch& search : saved.searches()) {
    EXPECT_TRUE(words.insert(search.Words).second) << search.Words;
    SearchResultList results;
    EXPECT_EQ(ReadSearchResults(results, saved.ResultsPath(search.Number)), 0);
    const bool is_victims = search.Words.starts_with("V");
    ASSERT_EQ(results.size(), is_victims ? 1U : 1U + kRewrites) << search.Words;
    for (const SearchResultItem& item : results.items()) EXPECT_EQ(item.Title, search.Words);
    for (int time = 1; time <= kRewrites && !is_victims; ++time) {
      EXPECT_EQ(results.items()[static_cast<std::size_t>(time)].Text, std::to_string(time));
    }
  }
  std::erase_if(words, [](const std::string& one) { return one.starts_with("V"); });
  EXPECT_EQ(words.size(), static_cast<std::size_t>(kPrograms * kRounds / 2));
}

TEST_F(HammerTest, FourProgramsOnOneFolderLoseNothing) {
  std::vector<pid_t> programs;
  for (int program = 0; program < kPrograms; ++program) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      FaultyCalls without_waiting;  // for the device
      const SystemCallsInUse in_use(without_waiting);
      Hammer hammer(folder_.path(), program);
      hammer.Run();
      std::cout << "program " << program << ": " << hammer.changes() << " changes and looks, "
                << hammer.collisions() << " collisions\n"
                << std::flush;
      _exit(0);
    }
    programs.push_back(child);
  }
  for (const pid_t program : programs) {
    int status = 0;
    ASSERT_EQ(waitpid(program, &status, 0), program);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  }
  ShoppingDatabase database;
  ASSERT_EQ(database.Open(folder_.path()), 0);  // rolls the last victim back
  EXPECT_EQ(folder_.Read("backup.dat")->size(), 8U);
  ExpectProducts();
  ExpectDiscounts();
  ExpectSearches();
}

}  // namespace
}  // namespace brovanta::test

// Two misfortunes in a row: a program is killed in the middle of a change, the next one rolls that
// back and confirms a change of its own, and then the power goes.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <random>

#include "db/shopping_database.h"
#include "tests/faults/power_loss.h"
#include "tests/faults/scenario.h"
#include "tests/faults/strikes.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {
namespace {

using platform::SystemCallsInUse;

constexpr std::int64_t kNoon = 1714996800;  // Monday 2024-05-06

bool AddProduct(const std::string& folder, const char* name) {
  ShoppingDatabase database;
  (void)database.Open(folder);
  ProductFields fields;
  fields.name = name;
  return database.products().Add(kProductKind, fields).has_value();
}

bool AddBread(const std::string& folder) { return AddProduct(folder, "Bread"); }

bool MarkPurchased(const std::string& folder) {
  ShoppingDatabase database;
  (void)database.Open(folder);
  return database.products().Mark(kProductKind, 1, kProductPurchased) == 1;
}

/// A coupon feed of so many coupons, and the letter that fills them.
struct Feed {
  int count;
  char letter;
  bool operator()(const std::string& folder) const {
    ShoppingDatabase database;
    (void)database.Open(folder);
    std::vector<NewDiscount> coupons(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      NewDiscount& coupon = coupons[static_cast<std::size_t>(i)];
      coupon.id = 100 + i;
      coupon.source = 1;
      coupon.fields.name = coupon.fields.product = std::string(40, letter);
    }
    return database.discounts().AddAll(coupons) == coupons.size();
  }
};

/// A program's change; whether it said that it succeeded.
using Action = std::function<bool(const std::string& folder)>;

class DoubleFaultsTest : public testing::Test {
 protected:
  DoubleFaultsTest() {
    FaultyCalls without_waiting;  // for the device
    const SystemCallsInUse in_use(without_waiting);
    const TempFolder folder;
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      folder.Write(list, NameList().Encode());
    }
    EXPECT_TRUE(AddProduct(folder.path(), "Milk"));
    before_ = AllFiles(folder.path());
  }

  /// The data files after the actions.
  [[nodiscard]] Snapshot StateAfter(const std::vector<Action>& actions) const {
    FaultyCalls without_waiting;
    const SystemCallsInUse in_use(without_waiting);
    const TempFolder folder;
    Restore(folder.path(), before_);
    for (const Action& action : actions) EXPECT_TRUE(action(folder.path()));
    return TakeSnapshot(folder.path());
  }

  /// What a start after the power loss finds.
  static Snapshot FilesAfter(const std::string& folder, const Snapshot& disk) {
    Restore(folder, disk);
    FaultyCalls without_waiting;
    const SystemCallsInUse in_use(without_waiting);
    ShoppingDatabase database;
    EXPECT_EQ(database.Open(folder), 0);
    return TakeSnapshot(folder);
  }

  static bool IsOneOf(const std::vector<Snapshot>& states, const Snapshot& files) {
    return std::find(states.begin(), states.end(), files) != states.end();
  }

  /// Loses the power after each event from the given one on: `before` or `after` must stand, after
  /// the last one `after`.
  void LosePower(const RecordingCalls& recording, std::size_t from,
                 const std::vector<Snapshot>& before, const std::vector<Snapshot>& after,
                 const std::string& where) {
    const TempFolder disk;
    const int draws = IsNightly() ? 100 : 2;
    const std::size_t all = recording.events().size();
    for (std::size_t count = from; count <= all; ++count) {
      const auto lose = [&](Survivors survivors) {
        const Snapshot files =
            FilesAfter(disk.path(), DiskAfter(before_, recording, count, survivors, random_));
        ++points_;
        EXPECT_TRUE(IsOneOf(after, files) || (count < all && IsOneOf(before, files)))
            << where << ", power lost after event " << count << " of " << all << ", survivors "
            << static_cast<int>(survivors);
      };
      for (const Survivors survivors : kWholeSurvivors) lose(survivors);
      for (int draw = 0; draw < draws; ++draw) lose(Survivors::kSome);
    }
  }

  /// Kills the first program at each of its calls; the second one confirms its change.
  void KillThenLosePower(const Action& first, const Action& second = AddBread) {
    const std::vector<Snapshot> unconfirmed{StateAfter({}), StateAfter({first})};
    const std::vector<Snapshot> confirmed{StateAfter({second}), StateAfter({first, second})};
    bool died = true;
    for (int k = 1; died && !HasFailure(); ++k) {
      // A folder of its own each time, and another spelling for the second program: it knows
      // nothing of what the first one knew.
      const TempFolder folder;
      Restore(folder.path(), before_);
      RecordingCalls recording(folder.path());
      std::size_t killed_at = 0;
      std::size_t rolled_back_at = 0;
      Snapshot rolled_back;
      {
        const SystemCallsInUse in_use(recording);
        recording.DieAtCall(k);
        (void)first(folder.path());
        died = recording.Resurrect();
        killed_at = recording.events().size();
        ShoppingDatabase database;
        ASSERT_EQ(database.Open(folder.path() + "/."), 0) << k;
        rolled_back_at = recording.events().size();
        rolled_back = TakeSnapshot(folder.path());
        ASSERT_TRUE(second(folder.path() + "/.")) << k;
      }
      const std::string where = "killed at call " + std::to_string(k);
      LosePower(recording, killed_at, unconfirmed, confirmed, where);
      // A change of which nobody was told may come and go until the next one begins; one that was
      // rolled back may not come.
      if (rolled_back != unconfirmed.front()) continue;
      LosePower(recording, rolled_back_at, {rolled_back}, {confirmed.front()},
                where + ", rolled back");
    }
  }

  void ExpectPoints(int least) const {
    std::cout << points_ << " points\n";
    EXPECT_GE(points_, least);
  }

  FixedClock clock_{kNoon};
  std::mt19937 random_{1};
  Snapshot before_;
  int points_ = 0;
};

TEST_F(DoubleFaultsTest, WhatWasConfirmedAfterARollBackOutlivesThePower) {
  KillThenLosePower(MarkPurchased);
  ExpectPoints(1000);
}

// The device still holds the record that was rolled back behind the end of its file.
TEST_F(DoubleFaultsTest, ARecordThatWasRolledBackDoesNotComeBackInThePlaceOfTheNextOne) {
  KillThenLosePower([](const std::string& folder) { return AddProduct(folder, "Cheese"); });
  ExpectPoints(1000);
}

// The same with more than the block of the old end: of what was rolled back, and, in a file that
// was made, of all of it.
TEST_F(DoubleFaultsTest, AFeedThatWasRolledBackDoesNotComeBackInThePlaceOfTheNextOne) {
  KillThenLosePower(Feed{5, 'a'}, Feed{5, 'b'});
  ExpectPoints(1000);
}

// The device still holds the first journal behind the end of the emptied one, and the second one is
// as long: with its size alone the first one would be back.
TEST_F(DoubleFaultsTest, AnEmptiedJournalDoesNotComeBackInThePlaceOfTheNextOne) {
  const Action bread = AddBread;
  const Action cheese = [](const std::string& folder) { return AddProduct(folder, "Cheese"); };
  const TempFolder folder;
  Restore(folder.path(), before_);
  RecordingCalls recording(folder.path());
  std::size_t confirmed_at = 0;
  {
    const SystemCallsInUse in_use(recording);
    ASSERT_TRUE(bread(folder.path()));
    confirmed_at = recording.events().size();
    ASSERT_TRUE(cheese(folder.path()));
  }
  LosePower(recording, confirmed_at, {StateAfter({bread})}, {StateAfter({bread, cheese})},
            "after the first");
  ExpectPoints(60);
}

}  // namespace
}  // namespace brovanta::test

// Two misfortunes in a row: a program is killed in the middle of a change, the next one rolls that
// back and confirms a change of its own, and then the power goes.
#include <gtest/gtest.h>

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
constexpr int kLeastPoints = 1000;

bool AddProduct(const std::string& folder, const char* name) {
  ShoppingDatabase database;
  (void)database.Open(folder);
  ProductFields fields;
  fields.name = name;
  return database.products().Add(kProductKind, fields).has_value();
}

bool MarkPurchased(const std::string& folder) {
  ShoppingDatabase database;
  (void)database.Open(folder);
  return database.products().Mark(kProductKind, 1, kProductPurchased) == 1;
}

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
    EXPECT_TRUE(AddProduct(folder.path(), "Bread"));
    confirmed_.push_back(TakeSnapshot(folder.path()));
    Restore(folder.path(), before_);
    unconfirmed_.push_back(TakeSnapshot(folder.path()));
    EXPECT_TRUE(MarkPurchased(folder.path()));
    unconfirmed_.push_back(TakeSnapshot(folder.path()));
    EXPECT_TRUE(AddProduct(folder.path(), "Bread"));
    confirmed_.push_back(TakeSnapshot(folder.path()));
  }

  /// What a start after the power loss finds.
  [[nodiscard]] Snapshot FilesAfter(const std::string& folder, const Snapshot& disk) const {
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

  FixedClock clock_{kNoon};
  Snapshot before_;
  std::vector<Snapshot> unconfirmed_;  // without the purchase and with it
  std::vector<Snapshot> confirmed_;    // the same, and the bread
  int points_ = 0;
};

TEST_F(DoubleFaultsTest, WhatWasConfirmedAfterARollBackOutlivesThePower) {
  std::mt19937 random(1);
  const int draws = IsNightly() ? 100 : 2;
  bool died = true;
  for (int k = 1; died && !HasFailure(); ++k) {
    // A folder of its own each time, and another spelling for the second program: it knows nothing
    // of what the first one knew.
    const TempFolder folder;
    const TempFolder disk;
    Restore(folder.path(), before_);
    RecordingCalls recording(folder.path());
    std::size_t killed_at = 0;
    {
      const SystemCallsInUse in_use(recording);
      recording.DieAtCall(k);
      (void)MarkPurchased(folder.path());
      died = recording.Resurrect();
      killed_at = recording.events().size();
      ASSERT_TRUE(AddProduct(folder.path() + "/.", "Bread")) << k;
    }
    const std::size_t all = recording.events().size();
    for (std::size_t count = killed_at; count <= all; ++count) {
      const auto lose = [&](Survivors survivors) {
        const Snapshot files =
            FilesAfter(disk.path(), DiskAfter(before_, recording, count, survivors, random));
        ++points_;
        EXPECT_TRUE(IsOneOf(confirmed_, files) || (count < all && IsOneOf(unconfirmed_, files)))
            << "killed at call " << k << ", power lost after event " << count << " of " << all
            << ", survivors " << static_cast<int>(survivors);
      };
      for (const Survivors survivors :
           {Survivors::kAll, Survivors::kNone, Survivors::kNamesOnly, Survivors::kBytesOnly}) {
        lose(survivors);
      }
      for (int draw = 0; draw < draws; ++draw) lose(Survivors::kSome);
    }
  }
  std::cout << points_ << " points\n";
  EXPECT_GE(points_, kLeastPoints);
}

}  // namespace
}  // namespace brovanta::test

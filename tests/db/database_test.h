// A database in a folder of its own, on a day that stands still.
#pragma once

#include <gtest/gtest.h>

#include "db/shopping_database.h"
#include "tests/db/raw_files.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"

namespace brovanta::test {

/// The three lists are there, empty; it is 2005-04-06, 12:00:00, in a zone without offset.
class DatabaseTest : public testing::Test {
 protected:
  static constexpr DateStamp kNow = 1112788800;
  static constexpr DateStamp kToday = 1112749200;  // 01:00:00
  static constexpr DateStamp kDay = 86400;

  void SetUp() override {
    for (const char* name : {"store.lst", "category.lst", "unit.lst"}) {
      folder_.Write(name, RawListFile({}));
    }
    ASSERT_EQ(database_.Open(folder_.path()), 0);
  }

  ZoneGuard zone_{"UTC"};
  FixedClock clock_{kNow};
  TempFolder folder_;
  ShoppingDatabase database_;
};

}  // namespace brovanta::test

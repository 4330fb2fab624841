#include "ui/base/store_names.h"

#include <gtest/gtest.h>

namespace brovanta {
namespace {

TEST(StoreNamesTest, GivesTheNameOfAKnownStoreAndNothingElse) {
  NameList stores;
  ListItem item;
  item.Id = 7;
  item.Name.Assign("Caf\xE9");
  stores.Insert(item);
  StoreNames names(stores);
  for (int time = 0; time < 2; ++time) {  // found, then remembered
    EXPECT_EQ(names.Of(7), QStringLiteral("Caf\u00E9"));
    EXPECT_EQ(names.Of(8), QString());
    EXPECT_EQ(names.Of(0), QString());
    EXPECT_EQ(names.Of(0xFFFFFFFF), QString());
  }
}

}  // namespace
}  // namespace brovanta

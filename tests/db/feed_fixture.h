// What the tests of the feeds share: a feed in a file of its own, and what has come of it.
#pragma once

#include <string>
#include <string_view>

#include "db/feed_import.h"
#include "platform/file.h"
#include "tests/db/discount_list_fixture.h"

namespace brovanta::test {

class FeedFixture : public DiscountListFixture {
 protected:
  [[nodiscard]] std::string feed() const { return folder_.File("update.dat"); }
  int Coupons(std::string_view text) {
    folder_.WriteText("update.dat", text);
    return ImportCoupons(list_, feed());
  }
  int List(std::string_view text) {
    folder_.WriteText("update.dat", text);
    return ImportList(names_, feed());
  }
  /// The coupon that a feed with these fields alone leaves, as it stands in the file.
  DiscountRecord One(const std::string& fields) {
    const std::string start = "<CP><ID>9</ID><SR>1</SR><NM>Soap</NM><SI>7</SI><CI>8</CI>";
    EXPECT_TRUE(platform::RemoveFile(folder_.File("discount.dat")));
    EXPECT_EQ(Coupons(start + fields + "</CP>"), 0);
    const auto record = list_.Read(9, 1);
    EXPECT_TRUE(record) << fields;
    return record.value_or(DiscountRecord{});
  }
  [[nodiscard]] Ids InFile() {
    EXPECT_EQ(Load(), folder_.Read("discount.dat") ? 0 : -11);
    return Shown();
  }
  /// The names of the list with their ids: "7=Corner Shop 9=Market".
  [[nodiscard]] std::string Names() const {
    std::string text;
    for (const auto& [id, item] : names_) {
      if (!text.empty()) text += " ";
      text += std::to_string(id) + "=" + std::string(item.Name.view());
    }
    return text;
  }

  NameList names_;
};

}  // namespace brovanta::test

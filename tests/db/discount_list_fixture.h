// What the tests of DiscountList share: its file written by hand, what it shows, golden fields.
#pragma once

#include <initializer_list>
#include <vector>

#include "db/discount_list.h"
#include "tests/db/database_test.h"
#include "tests/db/golden_records.h"
#include "tests/db/raw_files.h"

namespace brovanta::test {

using Ids = std::vector<std::int32_t>;

class DiscountListFixture : public DatabaseTest {
 protected:
  void Store(std::initializer_list<RawDiscount> discounts) const {
    folder_.Write("discount.dat", RawDiscountFile(100, discounts));
  }
  Bytes File() const { return folder_.Read("discount.dat").value_or(Bytes{}); }
  int Load(const DiscountFilter& filter = {}) { return list_.Load(&filter); }
  Ids Shown() {
    Ids ids;
    for (const DiscountRecord* record = list_.First(); record != nullptr; record = list_.Next()) {
      ids.push_back(record->Id);
    }
    EXPECT_EQ(ids.size(), list_.size());
    return ids;
  }
  // The fields of the golden record that a caller gives.
  static DiscountFields GoldenFields() {
    DiscountFields fields;
    fields.name = "Spring offer";
    fields.product = "Caf\xE9 cr\xE8me";
    fields.description = "Ten percent off every pack";
    fields.type = 3;
    fields.value_type = 1;
    fields.value = 10.5;
    fields.start_date = 86400;
    fields.end_date = -2;
    fields.store = NameRef{5001, "known"};
    fields.category = NameRef{static_cast<std::int32_t>(0xFFEEDDCC), "known"};
    return fields;
  }
  // Its bytes, stamped today and with both flags 0.
  static Bytes StoredBytes(std::int32_t id, std::int16_t source) {
    Bytes bytes = GoldenDiscountBytes();
    Put(bytes, 8, id);
    Put(bytes, 362, source);
    Put(bytes, 376, kToday);
    Put(bytes, 396, std::uint16_t{0});
    return bytes;
  }

  DiscountList& list_ = database_.discounts();
};

}  // namespace brovanta::test

// Records with every field set to another value, and their bytes as worked out from the layout.
#pragma once

#include "db/records.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

inline DiscountRecord GoldenDiscount() {
  DiscountRecord record;
  record.Id = 0x01020304;
  record.Name.Assign("Spring offer");
  record.Product.Assign("Caf\xE9 cr\xE8me");
  record.Description.Assign("Ten percent off every pack");
  record.Source = 2;
  record.Type = 3;
  record.ValueType = 1;
  record.Value = 10.5;
  record.Stamp = 1112749200;  // 2005-04-06 01:00:00
  record.StartDate = 86400;   // 1970-01-02 00:00:00
  record.EndDate = -2;
  record.StoreId = 5001;
  record.CategoryId = 0xFFEEDDCC;
  record.Flagged = 1;
  record.Deleted = 2;
  return record;
}

inline Bytes GoldenDiscountBytes() {
  return Join({
      Run(8),
      Hex("04 03 02 01"),
      Padded("Spring offer", 50),
      Padded("Caf\xE9 cr\xE8me", 50),
      Padded("Ten percent off every pack", 250),
      Hex("02 00"),
      Hex("03 00"),
      Hex("01 00"),
      Hex("00 00 00 00 00 00 25 40"),  // 10.5 = 1.3125 * 2^3
      Hex("90 34 53 42"),
      Hex("80 51 01 00"),
      Hex("FE FF FF FF"),
      Hex("89 13 00 00"),
      Hex("CC DD EE FF"),
      Hex("01"),
      Hex("02"),
      Run(2),
  });
}

inline ProductRecord GoldenProduct() {
  ProductRecord record;
  record.Id = 0x0A0B0C0D;
  record.Name.Assign("Oat milk");
  record.ShortText.Assign("oat");
  record.Notes.Assign("The barista kind");
  record.StoreId = 5000;
  record.CategoryId = 12;
  record.UnitId = 0x80000001;
  record.PurchaseKind = 3;
  record.Every = 2;
  record.DayValue = 6;
  record.StartDate = 1112749200;
  record.LastPurchased = 1112835600;  // one day later
  record.NextDate = 1113959000;
  record.DaysOverdue = 49709;
  record.UnitPrice = 1.25;
  record.Quantity = -3.0;
  record.Discounts[0] = {7, 1, 102};
  record.Discounts[1] = {0x11223344, -1, -2};
  record.Discounts[4] = {9, 0, 3};
  record.TaxPercent = 8.0;
  record.Deleted = 1;
  return record;
}

inline Bytes GoldenProductBytes() {
  return Join({
      Run(8),
      Hex("0D 0C 0B 0A"),
      Padded("Oat milk", 50),
      Padded("oat", 10),
      Padded("The barista kind", 250),
      Run(2),
      Hex("88 13 00 00"),
      Hex("0C 00 00 00"),
      Hex("01 00 00 80"),
      Hex("03 00"),
      Hex("02 00"),
      Hex("06 00"),
      Run(2),
      Hex("90 34 53 42"),
      Hex("10 86 54 42"),
      Hex("58 AA 65 42"),
      Hex("2D C2"),
      Run(2),
      Hex("00 00 00 00 00 00 F4 3F"),  // 1.25 = 1.25 * 2^0
      Hex("00 00 00 00 00 00 08 C0"),  // -3 = -1.5 * 2^1
      Run(4),
      Hex("07 00 00 00 01 00 66 00"),
      Run(4),
      Hex("44 33 22 11 FF FF FE FF"),
      Run(12),
      Run(12),
      Run(4),
      Hex("09 00 00 00 00 00 03 00"),
      Run(4),
      Hex("00 00 00 00 00 00 20 40"),  // 8 = 1 * 2^3
      Hex("01"),
      Run(7),
  });
}

}  // namespace brovanta::test

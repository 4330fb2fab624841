// Product files put together by hand, from the documented layout, for the tests of the lists.
#pragma once

#include <array>
#include <bit>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace brovanta::test {

inline constexpr std::int32_t kDay = 86400;

/// Universal seconds of a date, by the standard library's calendar and not by ours.
inline std::int32_t At(int year, int month, int day, int hour = 1, int minute = 0, int second = 0) {
  const std::chrono::sys_days days{std::chrono::year{year} / month / day};
  return static_cast<std::int32_t>(std::int64_t{days.time_since_epoch().count()} * kDay +
                                   std::int64_t{hour} * 3600 + std::int64_t{minute} * 60 + second);
}

/// The lowest `size` bytes of a number, least significant first.
inline Bytes Little(std::uint64_t number, std::size_t size) {
  Bytes bytes;
  for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<std::byte>(number >> 8 * i));
  return bytes;
}
inline Bytes Word(std::int64_t number) { return Little(static_cast<std::uint64_t>(number), 4); }

struct StoredSlot {
  std::uint32_t id = 0;
  std::uint16_t source = 0;
  std::uint16_t type = 0;
};

/// One record of a product or purchase file; Image() gives its 456 bytes.
struct StoredProduct {
  Bytes reserved = Run(8);
  std::int32_t id = 1;
  std::string name = "Milk";
  std::string short_text{};
  std::string notes{};
  std::uint32_t store = 0;
  std::uint32_t category = 0;
  std::uint32_t unit = 0;
  std::uint16_t kind = 1;
  std::uint16_t every = 0;
  std::uint16_t day_value = 0;
  std::int32_t start = 0;
  std::int32_t last_purchased = 0;
  std::int32_t next_date = 0;
  std::uint16_t days_overdue = 0;
  double price = 0.0;
  double quantity = 0.0;
  std::array<StoredSlot, 5> slots{};
  double tax = 0.0;
  unsigned char deleted = 0;
  Bytes padding = Run(2);  // the one behind the day value, which the table leaves open

  [[nodiscard]] Bytes Image() const {
    Bytes image = Join({reserved,
                        Word(id),
                        Padded(name, 50),
                        Padded(short_text, 10),
                        Padded(notes, 250),
                        Run(2),
                        Word(store),
                        Word(category),
                        Word(unit),
                        Little(kind, 2),
                        Little(every, 2),
                        Little(day_value, 2),
                        padding,
                        Word(start),
                        Word(last_purchased),
                        Word(next_date),
                        Little(days_overdue, 2),
                        Run(2),
                        Number(price),
                        Number(quantity)});
    for (const StoredSlot& slot : slots) {
      image = Join({image, Run(4), Word(slot.id), Little(slot.source, 2), Little(slot.type, 2)});
    }
    return Join({image, Run(4), Number(tax), Run(1, deleted), Run(7)});
  }

 private:
  static Bytes Number(double number) { return Little(std::bit_cast<std::uint64_t>(number), 8); }
};

/// A whole record file.
inline Bytes ProductFile(std::int32_t last_id, const std::vector<StoredProduct>& products) {
  Bytes file = Join({Hex("81 38 01 00"), Word(last_id)});
  for (const StoredProduct& product : products) {
    file = Join({file, Hex("82 38 01 00"), product.Image()});
  }
  return Join({file, Hex("83 38 01 00")});
}

}  // namespace brovanta::test

// The stores or categories that the records of a list use.
#pragma once

#include <cstdint>

#include "db/name_list.h"
#include "db/records.h"
#include "db/sorted_records.h"

namespace brovanta {

/// One item for each id in the records' field that `names` knows; its `Count` is the number of
/// records that have the id.
template <typename Record>
[[nodiscard]] NameList CountNames(const SortedRecords<Record>& records,
                                  std::uint32_t Record::*id_field, const NameList& names) {
  NameList counted;
  for (const Record* record : records) {
    const auto id = static_cast<std::int32_t>(record->*id_field);
    if (ListItem* item = counted.Find(id); item != nullptr) {
      ++item->Count;
    } else if (const ListItem* known = names.Find(id); known != nullptr) {
      ListItem first = *known;
      first.Count = 1;
      counted.Insert(first);
    }
  }
  return counted;
}

}  // namespace brovanta

// The names of stores as wide text.
#pragma once

#include <QHash>
#include <QString>
#include <cstdint>

#include "db/name_list.h"

namespace brovanta {

/// Converts each name once, however many rows show it. The list is borrowed and must not change.
class StoreNames {
 public:
  explicit StoreNames(const NameList& stores) : stores_(stores) {}

  /// Empty for 0 and for a store that is not in the list.
  [[nodiscard]] QString Of(std::uint32_t id);

 private:
  const NameList& stores_;
  QHash<std::uint32_t, QString> names_;
};

}  // namespace brovanta

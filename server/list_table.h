// The table of stores or categories: columns id,name.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "server/entries.h"
#include "server/table_reader.h"

namespace brovanta::server {

/// Reads the entries of a whole file, in its order.
[[nodiscard]] Table<ListEntry> ReadListTable(std::string_view text);

/// The table in the form that ReadListTable reads, column names first.
[[nodiscard]] std::string WriteListTable(std::span<const ListEntry> entries);

}  // namespace brovanta::server

#include "server/list_table.h"

#include <array>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace brovanta::server {
namespace {

enum Column : std::size_t { kId, kName };
constexpr std::array<std::string_view, 2> kColumns = {"id", "name"};

}  // namespace

Table<ListEntry> ReadListTable(std::string_view text) {
  Table<ListEntry> table;
  TableReader reader(text, kColumns);
  std::unordered_map<std::int32_t, std::size_t> lines;
  while (reader.Next()) {
    ListEntry entry;
    entry.id = reader.Number(kId, kMaxListId);
    entry.name = reader.Text(kName, kListNameLength);
    const auto [known, fresh] = lines.try_emplace(entry.id, reader.line());
    if (!fresh && entry.id != 0) {
      reader.Refuse(kId, "stands in line " + std::to_string(known->second) + " already");
    }
    table.rows.push_back({reader.line(), std::move(entry)});
  }
  table.problems = reader.TakeProblems();
  return table;
}

std::string WriteListTable(std::span<const ListEntry> entries) {
  std::string text;
  AppendCsvRecord(text, {kColumns.begin(), kColumns.end()});
  for (const ListEntry& entry : entries) {
    AppendCsvRecord(text, {std::to_string(entry.id), entry.name});
  }
  return text;
}

}  // namespace brovanta::server

// Any bytes as the files that people import into the update server: what is accepted is written and
// read back the same, travels whole through the feed, and every fault has its line.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/require.h"
#include "server/agent_file.h"
#include "server/coupon_table.h"
#include "server/feed.h"
#include "server/list_table.h"
#include "server/narrow_text.h"
#include "util/text.h"

namespace brovanta::server {
namespace {

using fuzz::Require;

void RequireSensible(const std::vector<Problem>& problems, std::string_view bytes) {
  Require(problems.size() <= kMaxProblems, "only so many problems are told");
  const auto lines = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
  for (const Problem& problem : problems) {
    Require(problem.line <= lines, "the line is one of the file");
    Require(problem.message.find('\n') == std::string::npos, "a problem is told in one line");
  }
}

template <typename Entry>
std::vector<Entry> EntriesOf(const Table<Entry>& table) {
  std::vector<Entry> entries;
  for (const auto& row : table.rows) entries.push_back(row.entry);
  return entries;
}

void RunList(std::string_view bytes) {
  const auto table = ReadListTable(bytes);
  RequireSensible(table.problems, bytes);
  if (!table.problems.empty()) return;
  const auto entries = EntriesOf(table);
  const auto again = ReadListTable(WriteListTable(entries));
  Require(again.problems.empty() && EntriesOf(again) == entries, "what was written is read");
  for (const ListEntry& entry : entries) {
    const std::string span = ListSpan(entry);
    Require(TagInt(span.c_str(), "<ID>", "</ID>") == entry.id, "the id travels");
    const auto name = TagText(span.c_str(), "<NM>", "</NM>");
    Require(name && *name == NarrowText(entry.name), "the name travels whole");
  }
}

void RunCoupons(std::string_view bytes) {
  const auto table = ReadCouponTable(bytes);
  RequireSensible(table.problems, bytes);
  if (!table.problems.empty()) return;
  const auto coupons = EntriesOf(table);
  const auto again = ReadCouponTable(WriteCouponTable(coupons));
  Require(again.problems.empty() && EntriesOf(again) == coupons, "what was written is read");
  for (const Coupon& coupon : coupons) {
    const std::string span = CouponSpan(coupon, *LocalZone::Current());
    Require(span.find("</CP>") == span.size() - std::string_view("</CP>\n").size(),
            "the span ends at its end");
    Require(TagInt(span.c_str(), "<CI>", "</CI>") == coupon.category_id, "the last field travels");
  }
}

void RunAgents(std::string_view bytes) {
  RequireSensible(AgentFileProblems(bytes), bytes);
  const std::string filled = WithServerAddress(bytes, "localhost:8427");
  Require(filled.find(kServerToken) == std::string::npos, "no token is left");
}

}  // namespace
}  // namespace brovanta::server

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  brovanta::server::RunList(bytes);
  brovanta::server::RunCoupons(bytes);
  brovanta::server::RunAgents(bytes);
  return 0;
}

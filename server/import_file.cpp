#include "server/import_file.h"

#include <fcntl.h>

#include <cerrno>
#include <span>
#include <system_error>
#include <utility>

#include "platform/file.h"
#include "server/agent_file.h"
#include "server/coupon_table.h"
#include "server/list_table.h"
#include "util/unique_fd.h"

namespace brovanta::server {
namespace {

std::string LastError() { return std::generic_category().message(errno); }

template <typename Entry>
ImportOutcome ImportTable(Store& store, Table<Entry> table,
                          std::optional<std::vector<Row<Entry>>> Import::*place, bool replace) {
  if (!table.problems.empty()) return {std::move(table.problems), 0};
  const std::size_t entries = table.rows.size();
  Import import;
  import.replace = replace;
  import.*place = std::move(table.rows);
  return {store.Apply(import), entries};
}

ImportOutcome ImportAgents(Store& store, std::string_view text) {
  auto problems = AgentFileProblems(text);
  if (!problems.empty()) return {std::move(problems), 0};
  Import import;
  import.agents = std::string(text);
  return {store.Apply(import), 1};
}

std::optional<std::string> ExportList(Store& store, ListKind kind) {
  std::vector<ListEntry> entries;
  const bool read = store.ForEachEntry(kind, 0, [&entries](const ListEntry& entry) {
    entries.push_back(entry);
    return true;
  });
  return read ? std::optional(WriteListTable(entries)) : std::nullopt;
}

std::optional<std::string> ExportCoupons(Store& store) {
  std::vector<Coupon> coupons;
  const bool read = store.ForEachCoupon(0, 0, [&coupons](const Coupon& coupon) {
    coupons.push_back(coupon);
    return true;
  });
  return read ? std::optional(WriteCouponTable(coupons)) : std::nullopt;
}

std::optional<std::string> ExportAny(Store& store, Subject subject, std::string& error) {
  switch (subject) {
    case Subject::kStores:
      return ExportList(store, ListKind::kStores);
    case Subject::kCategories:
      return ExportList(store, ListKind::kCategories);
    case Subject::kCoupons:
      return ExportCoupons(store);
    case Subject::kAgents: {
      std::optional<std::string> bytes;
      if (store.ReadAgentFile(bytes) && !bytes) error = "there is no agent file in the database";
      return bytes;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, std::string& error) {
  const UniqueFd fd(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!fd.valid()) {
    error = LastError();
    return std::nullopt;
  }
  std::string bytes;
  std::string piece(262'144, '\0');
  for (;;) {
    const ssize_t got = read(fd.get(), piece.data(), piece.size());
    if (got == 0) return bytes;
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) {
      error = LastError();
      return std::nullopt;
    }
    bytes.append(piece, 0, static_cast<std::size_t>(got));
    if (bytes.size() > kMaxImportBytes) {
      error = "larger than " + std::to_string(kMaxImportBytes) + " bytes";
      return std::nullopt;
    }
  }
}

bool WriteWholeFile(const std::string& path, std::string_view bytes, std::string& error) {
  if (platform::ReplaceFile(path, std::as_bytes(std::span(bytes)))) return true;
  error = LastError();
  return false;
}

ImportOutcome ImportText(Store& store, Subject subject, std::string_view text, bool replace) {
  switch (subject) {
    case Subject::kStores:
      return ImportTable(store, ReadListTable(text), &Import::stores, replace);
    case Subject::kCategories:
      return ImportTable(store, ReadListTable(text), &Import::categories, replace);
    case Subject::kCoupons:
      return ImportTable(store, ReadCouponTable(text), &Import::coupons, replace);
    case Subject::kAgents:
      return ImportAgents(store, text);
  }
  return {};
}

std::optional<std::string> ExportText(Store& store, Subject subject, std::string& error) {
  error.clear();
  auto text = ExportAny(store, subject, error);
  if (!text && error.empty()) error = "the database cannot be read";
  return text;
}

}  // namespace brovanta::server

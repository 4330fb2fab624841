#include "data/check_lists.h"

#include <map>
#include <string>

#include "db/records.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

class ListCheck {
 public:
  ListCheck(FileReport& report, FileNotes& notes) : report_(report), notes_(notes) {
    report_.records = 0;
  }

  void Take(std::size_t byte, FileBytes record) {
    ++*report_.records;
    const ListItem item = DecodeListItem(record.first<list_layout::kSize>());
    if (item.Id < 1) {
      sound_ = false;
      notes_.Add(Severity::kError,
                 "the id is " + std::to_string(item.Id) +
                     ", below 1; the program reads neither this item nor those behind it",
                 byte + list_layout::kId, item.Id);
      return;
    }
    if (!ids_.insert(static_cast<std::uint32_t>(item.Id)).second) {
      notes_.Add(Severity::kError,
                 "an item with this id stands in front of it already, and is lost", byte, item.Id);
    } else if (item.Id < last_) {
      notes_.Add(Severity::kNote, "the items are not in ascending order", byte, item.Id);
    }
    if (item.Id == kLastOfAllIds) {
      notes_.Add(Severity::kError, "the id is the largest that there is: no new name can be added",
                 byte + list_layout::kId, item.Id);
    }
    last_ = item.Id;
    TakeName(byte, item);
  }

  [[nodiscard]] bool sound() const { return sound_; }
  [[nodiscard]] std::set<std::uint32_t> TakeIds() { return std::move(ids_); }

 private:
  // Names that are there twice come with the lists and the coupons of the update server.
  void TakeName(std::size_t byte, const ListItem& item) {
    const std::string name(item.Name.view());
    const auto [first, is_new] = names_.emplace(name, item.Id);
    if (is_new) return;
    notes_.Add(Severity::kNote,
               "the name " + Quoted(name) + " is that of " + std::to_string(first->second) + " too",
               byte + list_layout::kName, item.Id);
  }

  FileReport& report_;
  FileNotes& notes_;
  std::set<std::uint32_t> ids_;
  std::map<std::string, std::int32_t> names_;
  std::int32_t last_ = 0;
  bool sound_ = true;
};

}  // namespace

KnownIds CheckNameList(FileBytes bytes, FileReport& report, FileNotes& notes) {
  ListCheck check(report, notes);
  const Frame frame{list_layout::kSize, kFirstListMark, Severity::kWarning};
  const bool framed = WalkFrame(bytes, frame, notes, [&](std::size_t byte, FileBytes rest) {
    check.Take(byte, rest);
    return std::optional<std::size_t>();
  });
  if (!framed || !check.sound()) return std::nullopt;
  return check.TakeIds();
}

}  // namespace brovanta::data_tool

#include "db/feed_import.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "db/journal.h"
#include "db/unit_of_work.h"
#include "platform/text_file.h"
#include "util/text.h"

namespace brovanta {
namespace {

constexpr std::size_t kShortestName = 2;

// The spans of a feed from an opening tag to the end of a closing one.
class FeedSpans {
 public:
  FeedSpans(std::string_view text, std::string_view open, std::string_view close)
      : text_(text), open_(open), close_(close) {}

  /// The next one, or nothing at the end.
  std::optional<std::string> Next() {
    const std::size_t start = text_.find(open_, cursor_);
    const std::size_t closing = text_.find(close_, cursor_);
    if (start == std::string_view::npos || closing == std::string_view::npos) return std::nullopt;
    // Kept: both are looked for from the cursor, so that a stray closing tag ends the feed.
    if (closing < start) return std::nullopt;
    cursor_ = closing + close_.size();
    return std::string(text_.substr(start, cursor_ - start));
  }

 private:
  std::string_view text_;
  std::string_view open_;
  std::string_view close_;
  std::size_t cursor_ = 0;
};

std::uint16_t ValueTypeOf(std::int32_t number) {
  return number == 1 ? std::uint16_t{1} : std::uint16_t{2};
}

// Nothing for a span that is no coupon. What is out of range keeps its low 16 bits.
std::optional<NewDiscount> ParseCoupon(const char* span) {
  NewDiscount coupon;
  coupon.id = TagInt(span, "<ID>", "</ID>");
  auto name = TagText(span, "<NM>", "</NM>");
  if (coupon.id == 0 || !name) return std::nullopt;
  coupon.source = static_cast<std::int16_t>(TagInt(span, "<SR>", "</SR>"));
  DiscountFields& fields = coupon.fields;
  fields.name = std::move(*name);
  fields.product = TagText(span, "<PR>", "</PR>").value_or("");
  fields.description = TagText(span, "<DS>", "</DS>").value_or("");
  fields.type = static_cast<std::int16_t>(TagInt(span, "<TP>", "</TP>"));
  fields.value_type = ValueTypeOf(TagInt(span, "<VT>", "</VT>"));
  fields.value = TagDouble(span, "<VL>", "</VL>");
  fields.start_date = TagInt(span, "<SD>", "</SD>");
  fields.end_date = TagInt(span, "<ED>", "</ED>");
  // Kept: a reference without an id is a new name even though it is empty.
  fields.store = NameRef{TagInt(span, "<SI>", "</SI>"), ""};
  fields.category = NameRef{TagInt(span, "<CI>", "</CI>"), ""};
  return coupon;
}

}  // namespace

int ImportCoupons(DiscountList& discounts, const std::string& path) {
  std::string text;
  if (const int code = platform::ReadTextFile(path, text); code != 0) return code;
  std::vector<NewDiscount> coupons;
  FeedSpans spans(text, "<CP>", "</CP>");
  while (const auto span = spans.Next()) {
    if (auto coupon = ParseCoupon(span->c_str())) coupons.push_back(std::move(*coupon));
  }
  discounts.AddAll(coupons);
  return 0;
}

int ImportAndSaveList(NameList& names, const std::string& feed_path, const std::string& list_path) {
  const std::string journal = JournalBeside(list_path);
  if (const int code = RollBackJournal(journal); code != 0) return code;
  // What the file does not take is not kept in memory either.
  NameList updated = names;
  UnitOfWork work(journal);
  int code = work.Begin();
  if (code == 0) code = updated.Refresh(list_path);
  if (code == 0) code = ImportList(updated, feed_path);
  if (code == 0) code = updated.NoteSave(work, list_path);
  if (code == 0) code = work.Commit();
  if (code != 0) return code;
  updated.MarkSaved();
  names = std::move(updated);
  return 0;
}

int ImportList(NameList& names, const std::string& path) {
  std::string text;
  if (const int code = platform::ReadTextFile(path, text); code != 0) return code;
  FeedSpans spans(text, "<IT>", "</IT>");
  while (const auto span = spans.Next()) {
    ListItem item;
    item.Id = TagInt(span->c_str(), "<ID>", "</ID>");
    const auto name = TagText(span->c_str(), "<NM>", "</NM>");
    if (item.Id < 1 || !name) break;
    if (name->size() < kShortestName) continue;
    item.Name.AssignWhole(*name);
    names.Insert(item);
  }
  return 0;
}

}  // namespace brovanta

#include "server/feed.h"

#include <optional>
#include <string_view>

#include "server/narrow_text.h"

namespace brovanta::server {
namespace {

void AppendField(std::string& span, std::string_view tag, std::string_view text) {
  span.append("<").append(tag).append(">").append(text);
  span.append("</").append(tag).append(">");
}

void AppendNumber(std::string& span, std::string_view tag, std::int64_t number) {
  AppendField(span, tag, std::to_string(number));
}

void AppendText(std::string& span, std::string_view tag, std::string_view utf8) {
  AppendField(span, tag, NarrowText(utf8));
}

DateStamp StampOf(const std::optional<Day>& day, const LocalZone& zone) {
  return day ? NoonStamp(zone, *day) : kNoDate;
}

}  // namespace

std::string ListSpan(const ListEntry& entry) {
  std::string span = "<IT>";
  AppendNumber(span, "ID", entry.id);
  AppendText(span, "NM", entry.name);
  return span + "</IT>\n";
}

std::string CouponSpan(const Coupon& coupon, const LocalZone& zone) {
  std::string span = "<CP>";
  AppendNumber(span, "ID", coupon.id);
  AppendNumber(span, "SR", static_cast<int>(coupon.source));
  AppendText(span, "NM", coupon.name);
  AppendText(span, "PR", coupon.product);
  AppendText(span, "DS", coupon.description);
  AppendNumber(span, "TP", static_cast<int>(coupon.type));
  AppendNumber(span, "VT", static_cast<int>(coupon.value_type));
  AppendField(span, "VL", coupon.value);
  AppendNumber(span, "SD", StampOf(coupon.start_date, zone));
  AppendNumber(span, "ED", StampOf(coupon.end_date, zone));
  AppendNumber(span, "SI", coupon.store_id);
  AppendNumber(span, "CI", coupon.category_id);
  return span + "</CP>\n";
}

bool FeedText::Add(const std::string& span) {
  if (span.size() > limit_ - text_.size()) return false;
  text_ += span;
  return true;
}

}  // namespace brovanta::server

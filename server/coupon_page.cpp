#include "server/coupon_page.h"

#include <string_view>

#include "server/coupon_words.h"
#include "server/html.h"

namespace brovanta::server {
namespace {

void AppendTerm(std::string& body, std::string_view term, std::string_view text) {
  if (text.empty()) return;
  body.append("<dt>").append(term).append("</dt><dd>").append(Escaped(text)).append("</dd>\n");
}

std::string Validity(const Coupon& coupon) {
  if (coupon.start_date && coupon.end_date) {
    return DayInWords(*coupon.start_date) + " to " + DayInWords(*coupon.end_date);
  }
  if (coupon.start_date) return "from " + DayInWords(*coupon.start_date);
  if (coupon.end_date) return "until " + DayInWords(*coupon.end_date);
  return "no end date";
}

std::string_view Standing(const Coupon& coupon, Day today) {
  if (coupon.end_date && *coupon.end_date < today) return "This offer has ended.";
  if (coupon.start_date && *coupon.start_date > today) return "This offer has not started yet.";
  return "";
}

}  // namespace

std::string CouponPage(const CouponView& view, Day today) {
  const Coupon& coupon = view.coupon;
  std::string body = "<h1>" + Escaped(coupon.name) + "</h1>\n";
  body += "<div class=\"value\">" + Escaped(ValueInWords(coupon)) + "</div>\n";
  const std::string_view standing = Standing(coupon, today);
  if (!standing.empty()) {
    body.append("<p class=\"over\">").append(Escaped(standing)).append("</p>\n");
  }
  if (!coupon.description.empty()) body += "<p>" + Escaped(coupon.description) + "</p>\n";
  body += "<dl>\n";
  AppendTerm(body, "Store", view.store);
  AppendTerm(body, "Product", coupon.product);
  AppendTerm(body, "Category", view.category);
  AppendTerm(body, "Kind", Title(coupon.type));
  AppendTerm(body, "Valid", Validity(coupon));
  AppendTerm(body, "Number", std::to_string(coupon.id));
  body += "</dl>\n";
  return HtmlPage(coupon.name, body);
}

}  // namespace brovanta::server

#include "server/coupon_page.h"

#include <gmock/gmock.h>

namespace brovanta::server {
namespace {

using testing::HasSubstr;
using testing::Not;

Day May(unsigned day) { return {std::chrono::year(2025), std::chrono::May, std::chrono::day(day)}; }

CouponView Example() {
  CouponView view;
  view.coupon = {CouponSource::kCoupon,
                 12,
                 "20% off Milk",
                 "Whole Milk",
                 "Show this page at the till.",
                 CouponType::kStoreCoupon,
                 ValueType::kPercent,
                 "20",
                 May(10),
                 May(20),
                 3,
                 8};
  view.store = "Corner Shop";
  view.category = "Dairy & Eggs";
  return view;
}

TEST(CouponPage, SaysEverythingAboutTheOffer) {
  const std::string page = CouponPage(Example(), May(15));
  EXPECT_THAT(page, HasSubstr("<h1>20% off Milk</h1>"));
  EXPECT_THAT(page, HasSubstr("<div class=\"value\">20% off</div>"));
  EXPECT_THAT(page, HasSubstr("<p>Show this page at the till.</p>"));
  EXPECT_THAT(page, HasSubstr("<dt>Store</dt><dd>Corner Shop</dd>"));
  EXPECT_THAT(page, HasSubstr("<dt>Product</dt><dd>Whole Milk</dd>"));
  EXPECT_THAT(page, HasSubstr("<dt>Category</dt><dd>Dairy &amp; Eggs</dd>"));
  EXPECT_THAT(page, HasSubstr("<dt>Kind</dt><dd>Store Coupon</dd>"));
  EXPECT_THAT(page, HasSubstr("<dt>Valid</dt><dd>May 10, 2025 to May 20, 2025</dd>"));
  EXPECT_THAT(page, HasSubstr("<dt>Number</dt><dd>12</dd>"));
}

TEST(CouponPage, SaysWhenTheOfferIsOverOrHasNotStarted) {
  EXPECT_THAT(CouponPage(Example(), May(9)), HasSubstr("This offer has not started yet."));
  EXPECT_THAT(CouponPage(Example(), May(10)), Not(HasSubstr("This offer has")));
  EXPECT_THAT(CouponPage(Example(), May(20)), Not(HasSubstr("This offer has")));
  EXPECT_THAT(CouponPage(Example(), May(21)), HasSubstr("This offer has ended."));
}

TEST(CouponPage, SaysHowLongAnOpenOfferIsValid) {
  CouponView view = Example();
  view.coupon.end_date.reset();
  EXPECT_THAT(CouponPage(view, May(15)), HasSubstr("<dd>from May 10, 2025</dd>"));
  view.coupon.start_date.reset();
  EXPECT_THAT(CouponPage(view, May(15)), HasSubstr("<dd>no end date</dd>"));
  view.coupon.end_date = May(20);
  EXPECT_THAT(CouponPage(view, May(15)), HasSubstr("<dd>until May 20, 2025</dd>"));
}

TEST(CouponPage, LeavesOutWhatIsEmpty) {
  CouponView view = Example();
  view.coupon.product.clear();
  view.coupon.description.clear();
  const std::string page = CouponPage(view, May(15));
  EXPECT_THAT(page, Not(HasSubstr("Product")));
  EXPECT_THAT(page, Not(HasSubstr("<p>")));
}

TEST(CouponPage, EscapesEveryText) {
  CouponView view = Example();
  const std::string evil = "<script>alert(\"x\")</script>";
  view.coupon.name = view.coupon.product = view.coupon.description = evil;
  view.store = view.category = evil;
  const std::string page = CouponPage(view, May(15));
  EXPECT_THAT(page, Not(HasSubstr("<script")));
  EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(&quot;x&quot;)&lt;/script&gt;"));
}

}  // namespace
}  // namespace brovanta::server

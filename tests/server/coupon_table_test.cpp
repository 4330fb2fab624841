#include "server/coupon_table.h"

#include <gmock/gmock.h>

namespace brovanta::server {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kHeader =
    "source,id,name,product,description,type,value_type,value,start_date,end_date,store_id,"
    "category_id\n";

Table<Coupon> Read(const std::string& lines) {
  return ReadCouponTable(std::string(kHeader) + lines);
}

std::vector<Problem> ProblemsOf(const std::string& lines) { return Read(lines).problems; }

Day MakeDay(int year, unsigned month, unsigned day) {
  return {std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)};
}

TEST(ReadCouponTable, ReadsEveryField) {
  const auto table = Read(
      "deal,12,20% off Milk,Whole Milk,\"At the till, please\",internet code,percent,20,"
      "2025-05-01,2025-05-31,3,8\n");
  EXPECT_THAT(table.problems, IsEmpty());
  ASSERT_THAT(table.rows, SizeIs(1));
  EXPECT_EQ(table.rows[0].line, 2u);
  const Coupon expected{CouponSource::kDeal,
                        12,
                        "20% off Milk",
                        "Whole Milk",
                        "At the till, please",
                        CouponType::kInternetCode,
                        ValueType::kPercent,
                        "20",
                        MakeDay(2025, 5, 1),
                        MakeDay(2025, 5, 31),
                        3,
                        8};
  EXPECT_EQ(table.rows[0].entry, expected);
}

TEST(ReadCouponTable, DatesProductAndDescriptionMayBeEmpty) {
  const auto table = Read("coupon,1,A,,,store coupon,amount,0.5,,,1,1\n");
  EXPECT_THAT(table.problems, IsEmpty());
  ASSERT_THAT(table.rows, SizeIs(1));
  EXPECT_FALSE(table.rows[0].entry.start_date);
  EXPECT_FALSE(table.rows[0].entry.end_date);
}

TEST(ReadCouponTable, RefusesWordsItDoesNotKnow) {
  EXPECT_THAT(ProblemsOf("Coupon,1,A,,,voucher,euro,1,,,1,1\n"),
              ElementsAre(Problem{2, "source \"Coupon\" is not \"coupon\" or \"deal\""},
                          Problem{2,
                                  "type \"voucher\" is not \"internet code\", \"store coupon\""
                                  " or \"mail in rebate\""},
                          Problem{2, "value_type \"euro\" is not \"percent\" or \"amount\""}));
}

TEST(ReadCouponTable, AcceptsPlainDecimalsOnly) {
  for (const char* value : {"0", "1", "0.5", "12.34", "9999999.99"}) {
    EXPECT_THAT(ProblemsOf("coupon,1,A,,,store coupon,amount," + std::string(value) + ",,,1,1\n"),
                IsEmpty())
        << value;
  }
  for (const char* value :
       {"", "-1", ".5", "1.", "1.234", "1.5x", "01", "1e3", "10000000", "nan"}) {
    EXPECT_THAT(ProblemsOf("coupon,1,A,,,store coupon,amount," + std::string(value) + ",,,1,1\n"),
                SizeIs(1))
        << value;
  }
}

TEST(ReadCouponTable, NothingIsMoreThanAHundredPercentOff) {
  EXPECT_THAT(ProblemsOf("coupon,1,A,,,store coupon,percent,100,,,1,1\n"), IsEmpty());
  EXPECT_THAT(ProblemsOf("coupon,1,A,,,store coupon,percent,100.5,,,1,1\n"),
              ElementsAre(Problem{2, "value is more than 100 percent"}));
  EXPECT_THAT(ProblemsOf("coupon,1,A,,,store coupon,amount,100.5,,,1,1\n"), IsEmpty());
}

TEST(ReadCouponTable, RefusesDatesThatAreNone) {
  EXPECT_THAT(
      ProblemsOf("coupon,1,A,,,store coupon,amount,1,2025-02-30,soon,1,1\n"),
      ElementsAre(
          Problem{2, "start_date \"2025-02-30\" is not a date from 1970-01-02 to 2038-01-18"},
          Problem{2, "end_date \"soon\" is not a date from 1970-01-02 to 2038-01-18"}));
}

TEST(ReadCouponTable, RefusesAnEndBeforeTheStart) {
  EXPECT_THAT(ProblemsOf("coupon,1,A,,,store coupon,amount,1,2025-05-02,2025-05-01,1,1\n"),
              ElementsAre(Problem{2, "end_date is before the start date"}));
  EXPECT_THAT(ProblemsOf("coupon,1,A,,,store coupon,amount,1,2025-05-01,2025-05-01,1,1\n"),
              IsEmpty());
}

TEST(ReadCouponTable, AsksForAStoreAndACategory) {
  EXPECT_THAT(ProblemsOf("coupon,1,A,,,store coupon,amount,1,,,,0\n"),
              ElementsAre(Problem{2, "store_id \"\" is not a whole number from 1 to 4998"},
                          Problem{2, "category_id \"0\" is not a whole number from 1 to 4998"}));
}

TEST(ReadCouponTable, CouponsAndDealsHaveIdsOfTheirOwn) {
  const std::string rest = ",1,A,,,store coupon,amount,1,,,1,1\n";
  EXPECT_THAT(ProblemsOf("coupon" + rest + "deal" + rest), IsEmpty());
  EXPECT_THAT(ProblemsOf("deal" + rest + "deal" + rest),
              ElementsAre(Problem{3, "id stands in line 2 already"}));
}

TEST(ReadCouponTable, ReadsToTheEndAtEveryCut) {
  const std::string table = std::string(kHeader) +
                            "deal,12,20% off Milk,Whole Milk,\"At the till\",internet code,"
                            "percent,20,2025-05-01,2025-05-31,3,8\n";
  for (std::size_t length = 0; length + 2 < table.size(); ++length) {
    EXPECT_TRUE(length == kHeader.size() || length + 1 == kHeader.size() ||
                !ReadCouponTable(table.substr(0, length)).problems.empty())
        << length;
  }
}

TEST(WriteCouponTable, WritesWhatReadCouponTableReads) {
  const std::string lines =
      "coupon,1,\"$1.50 off, today\",,,mail in rebate,amount,1.50,,2025-12-31,4998,1\n"
      "deal,2147483647,Caf\xC3\xA9,x,\"say \"\"hi\"\"\",store coupon,percent,5.5,2025-01-01,,1,2\n";
  const auto table = Read(lines);
  ASSERT_THAT(table.problems, IsEmpty());
  std::vector<Coupon> coupons;
  for (const auto& row : table.rows) coupons.push_back(row.entry);
  EXPECT_EQ(WriteCouponTable(coupons), std::string(kHeader) + lines);
}

}  // namespace
}  // namespace brovanta::server

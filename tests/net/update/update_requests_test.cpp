#include "net/update/update_requests.h"

#include <gtest/gtest.h>

namespace brovanta {
namespace {

const UpdateServer kServer{"http://localhost:8427", "United+States-90210"};

NameList Names(std::initializer_list<std::int32_t> ids) {
  NameList names;
  for (const std::int32_t id : ids) {
    ListItem item;
    item.Id = id;
    names.Insert(item);
  }
  return names;
}

TEST(UpdateRequestsTest, UserIsCountryAndZipCodeInFormEncoding) {
  EXPECT_EQ(UserIdentifier("United States", "90210"), "United+States-90210");
  EXPECT_EQ(UserIdentifier("", ""), "-");
  EXPECT_EQ(UserIdentifier("Germany & co", "D 1/2"), "Germany+%26+co-D+1%2f2");
  EXPECT_EQ(UserIdentifier("\xC3\x96sterreich", "1010"), "%ff%ffsterreich-1010");
}

TEST(UpdateRequestsTest, HighestSharedIdLeavesTheUsersOwnOut) {
  EXPECT_EQ(HighestSharedId(Names({})), 0);
  EXPECT_EQ(HighestSharedId(Names({12, 40, 5003})), 40);
  EXPECT_EQ(HighestSharedId(Names({4998})), 4998);
  EXPECT_EQ(HighestSharedId(Names({7, 4999})), 7);
  EXPECT_EQ(HighestSharedId(Names({5000, 9999})), 0);
}

TEST(UpdateRequestsTest, AgentsAreAskedForWithoutParameters) {
  EXPECT_EQ(AgentsRequest(kServer), "http://localhost:8427/webspider.xml");
}

TEST(UpdateRequestsTest, ListsAreAskedForFromTheHighestIdHeld) {
  EXPECT_EQ(StoresRequest(kServer, Names({})),
            "http://localhost:8427/stores.aspx?idx=0&user=United+States-90210");
  EXPECT_EQ(StoresRequest(kServer, Names({12, 40, 5003})),
            "http://localhost:8427/stores.aspx?idx=40&user=United+States-90210");
  EXPECT_EQ(CategoriesRequest(kServer, Names({3})),
            "http://localhost:8427/categories.aspx?idx=3&user=United+States-90210");
}

TEST(UpdateRequestsTest, CouponsAreAskedForFromBothHighestIds) {
  EXPECT_EQ(CouponsRequest(kServer, {12, 7}),
            "http://localhost:8427/coupons.aspx?idx=12&edx=7&user=United+States-90210");
  EXPECT_EQ(CouponsRequest(kServer, {}),
            "http://localhost:8427/coupons.aspx?idx=0&edx=0&user=United+States-90210");
}

TEST(UpdateRequestsTest, NegativeIdsMakeNoRequest) {
  EXPECT_EQ(CouponsRequest(kServer, {-1, 7}), std::nullopt);
  EXPECT_EQ(CouponsRequest(kServer, {12, -1}), std::nullopt);
}

TEST(UpdateRequestsTest, SlashAtTheEndOfTheAddressDoesNotMatter) {
  EXPECT_EQ(AgentsRequest({"http://localhost:8427/", ""}), "http://localhost:8427/webspider.xml");
  EXPECT_EQ(AgentsRequest({"", ""}), "/webspider.xml");
}

}  // namespace
}  // namespace brovanta

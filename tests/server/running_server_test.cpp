#include "tests/server/running_server.h"

#include <gmock/gmock.h>
#include <httplib.h>

namespace brovanta::test {
namespace {

using server::Subject;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::string Get(const RunningServer& server, const std::string& target) {
  const auto result = httplib::Client(server.url()).Get(target);
  return result ? result->body : "no answer";
}

TEST(RunningServerTest, ServesWhatIsImportedWhileItRuns) {
  RunningServer server;
  EXPECT_THAT(server.url(), StartsWith("http://127.0.0.1:"));
  EXPECT_EQ(Get(server, "/stores.aspx?idx=0&user=x"), "");
  EXPECT_TRUE(server.Import(Subject::kStores, "id,name\n7,Corner Shop\n"));
  EXPECT_FALSE(server.Import(Subject::kStores, "id,name\n8,\n"));
  EXPECT_EQ(Get(server, "/stores.aspx?idx=0&user=x"), "<IT><ID>7</ID><NM>Corner Shop</NM></IT>\n");
}

TEST(RunningServerTest, TheDemonstrationCanBeAddedTo) {
  RunningServer server;
  server.FillWithDemo(*server::ParseDay("2026-11-14"));
  EXPECT_THAT(Get(server, "/webspider.xml"), HasSubstr(server.url() + "/demo/millstream/search?"));
  EXPECT_EQ(Get(server, "/stores.aspx?idx=30&user=x"), "");
  EXPECT_TRUE(server.Import(Subject::kStores, "id,name\n31,New Shop\n"));
  EXPECT_EQ(Get(server, "/stores.aspx?idx=30&user=x"), "<IT><ID>31</ID><NM>New Shop</NM></IT>\n");
}

TEST(RunningServerTest, CanBeGoneForAWhile) {
  RunningServer server;
  server.Stop();
  EXPECT_EQ(Get(server, "/stores.aspx?idx=0"), "no answer");
  server.Restart();
  EXPECT_EQ(Get(server, "/stores.aspx?idx=0"), "");
  server.Stop();
  EXPECT_THAT(server.Log(), ElementsAre(HasSubstr("GET /stores.aspx?idx=0 200 0")));
}

}  // namespace
}  // namespace brovanta::test

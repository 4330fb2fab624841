#include "server/listener.h"

#include <gtest/gtest.h>

#include "tests/server/raw_client.h"

namespace brovanta::server {
namespace {

TEST(ParseListenAddress, ReadsHostAndPort) {
  EXPECT_EQ(ParseListenAddress("127.0.0.1:8427"), (ListenAddress{"127.0.0.1", 8427}));
  EXPECT_EQ(ParseListenAddress("[::1]:0"), (ListenAddress{"::1", 0}));
  EXPECT_EQ(ParseListenAddress("shop.example:65535"), (ListenAddress{"shop.example", 65535}));
}

TEST(ParseListenAddress, RefusesEverythingElse) {
  for (const char* text : {"", ":", "8427", ":8427", "localhost", "localhost:", "::1:80", "[]:80",
                           "[name]:80", "a:65536", "a:-1", "a:x", "a:080"}) {
    EXPECT_FALSE(ParseListenAddress(text)) << text;
  }
}

TEST(Listen, PicksAFreePort) {
  std::string error;
  const auto listener = Listen({"127.0.0.1", 0}, error);
  ASSERT_TRUE(listener) << error;
  EXPECT_TRUE(listener->address.starts_with("127.0.0.1:"));
  EXPECT_NE(LocalEndpoint(listener->socket.get()).port, 0);
  EXPECT_TRUE(test::RawClient(listener->address).connected());
}

TEST(Listen, RefusesAPortThatIsTaken) {
  std::string error;
  const auto first = Listen({"127.0.0.1", 0}, error);
  ASSERT_TRUE(first);
  const auto port = static_cast<std::uint16_t>(LocalEndpoint(first->socket.get()).port);
  EXPECT_FALSE(Listen({"127.0.0.1", port}, error));
  EXPECT_EQ(error, "Address already in use");
}

TEST(Listen, RefusesAHostThatIsNotHere) {
  std::string error;
  EXPECT_FALSE(Listen({"192.0.2.1", 0}, error));  // an address kept for examples
  EXPECT_NE(error, "");
}

TEST(Endpoints, BothSidesOfAConnectionAgree) {
  std::string error;
  const auto listener = Listen({"127.0.0.1", 0}, error);
  ASSERT_TRUE(listener) << error;
  const test::RawClient client(listener->address);
  EXPECT_EQ(RemoteEndpoint(client.fd()).port, LocalEndpoint(listener->socket.get()).port);
  EXPECT_EQ(RemoteEndpoint(client.fd()).host, "127.0.0.1");
  EXPECT_EQ(RemoteEndpoint(-1).port, 0);
  EXPECT_EQ(LocalEndpoint(-1).host, "");
}

}  // namespace
}  // namespace brovanta::server

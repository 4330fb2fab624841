#include "server/request_log.h"

#include <gtest/gtest.h>

#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"

namespace brovanta::server {
namespace {

TEST(RequestLine, SaysWhoAskedWhatAndWhatCameOfIt) {
  const test::FixedClock clock(1746088205);  // 2025-05-01 08:30:05 UTC
  EXPECT_EQ(RequestLine({"127.0.0.1", "GET", "/stores.aspx?idx=0&user=Ohio-43004", 200, 1234}),
            "2025-05-01 08:30:05 127.0.0.1 GET /stores.aspx?idx=0&user=- 200 1234");
  const test::ZoneGuard zone("Asia/Tokyo");
  EXPECT_EQ(RequestLine({"::1", "HEAD", "/", 404, 0}), "2025-05-01 17:30:05 ::1 HEAD / 404 0");
}

TEST(RequestLine, MarksWhatCouldNotBeRead) {
  const test::FixedClock clock(1746088205);
  EXPECT_EQ(RequestLine({"", "", "", 400, 0}), "2025-05-01 08:30:05 - - - 400 0");
}

TEST(RequestLine, StaysOneLine) {
  const test::FixedClock clock(1746088205);
  EXPECT_EQ(RequestLine({"::1", "GE\nT", "/a\r\nb", 400, 0}),
            "2025-05-01 08:30:05 ::1 GE?T /a??b 400 0");
}

}  // namespace
}  // namespace brovanta::server

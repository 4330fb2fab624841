#include "net/http/http_transfer.h"

#include <gtest/gtest.h>

#include "net/http/http_codes.h"

namespace brovanta {
namespace {

TEST(HttpTransferTest, FailuresBecomeInternetErrorNumbers) {
  EXPECT_EQ(InternetError(CURLE_OK), 0);
  EXPECT_EQ(InternetError(CURLE_OPERATION_TIMEDOUT), 12002);
  EXPECT_EQ(InternetError(CURLE_COULDNT_RESOLVE_HOST), 12007);
  EXPECT_EQ(InternetError(CURLE_COULDNT_RESOLVE_PROXY), 12007);
  EXPECT_EQ(InternetError(CURLE_COULDNT_CONNECT), 12029);
  EXPECT_EQ(InternetError(CURLE_PARTIAL_FILE), 12030);
  EXPECT_EQ(InternetError(CURLE_SEND_ERROR), 12030);
  EXPECT_EQ(InternetError(CURLE_RECV_ERROR), 12031);
  EXPECT_EQ(InternetError(CURLE_GOT_NOTHING), 12152);
  EXPECT_EQ(InternetError(CURLE_WEIRD_SERVER_REPLY), 12152);
  EXPECT_EQ(InternetError(CURLE_UNSUPPORTED_PROTOCOL), 12152);
  EXPECT_EQ(InternetError(CURLE_URL_MALFORMAT), HTTP_ERR_BAD_URL);
  EXPECT_EQ(InternetError(CURLE_OUT_OF_MEMORY), -1);
}

TEST(HttpTransferTest, EveryFailureIsANumberBelowTheOwnCodes) {
  for (int code = 1; code < CURL_LAST; ++code) {
    const std::int32_t number = InternetError(static_cast<CURLcode>(code));
    const bool own = number == kHttpNoMemory || number == HTTP_ERR_BAD_URL;
    EXPECT_TRUE(own || (number > 12000 && number < 0x10000000)) << code;
  }
}

TEST(HttpTransferTest, ServerNameThatCannotBeOneFailsBeforeAnythingIsSent) {
  class Nothing : public HttpReceiver {
   public:
    [[nodiscard]] Verdict TakeHeaders(int, const std::string&) override { return 1; }
    [[nodiscard]] Verdict TakeBody(std::string_view) override { return 1; }
  };
  const std::atomic<std::int32_t> flag{0};
  const HttpSession session(0, flag, {"text/*", "Test"}, {});
  Nothing receiver;
  HttpTransfer transfer(session, receiver);
  const HttpUrl url{"http", "no server", 80, "/"};
  const std::int32_t code = transfer.Prepare(url);
  EXPECT_EQ(code != 0 ? code : transfer.Run(), HTTP_ERR_BAD_URL);
}

}  // namespace
}  // namespace brovanta

#include <gtest/gtest.h>

#include <string>

#include "platform/file.h"
#include "tests/net/http/http_fixture.h"

namespace brovanta::test {
namespace {

using std::string_literals::operator""s;

class DownloadToFileTest : public HttpFixture {};

TEST_F(DownloadToFileTest, SavesTheBodyOverTheOldFile) {
  folder_.WriteText("update.dat", "what stood here before, and was longer");
  const LoopbackServer server(Sending(HttpReply("200 OK", "<IT>new</IT>")));
  EXPECT_EQ(ToFile(server.Url("/stores.aspx")), 0);
  EXPECT_EQ(Saved(), "<IT>new</IT>");
}

TEST_F(DownloadToFileTest, RequestIsExactlyThis) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "")));
  ASSERT_EQ(ToFile(server.Url("/stores.aspx?idx=40&user=United+States-90210")), 0);
  ASSERT_EQ(server.requests().size(), 1U);
  EXPECT_EQ(server.requests()[0],
            "GET /stores.aspx?idx=40&user=United+States-90210 HTTP/1.1\r\n"
            "Host: 127.0.0.1:" +
                std::to_string(server.port()) +
                "\r\n"
                "Accept: text/*\r\n"
                "User-Agent: Brovanta\r\n"
                "\r\n");
}

TEST_F(DownloadToFileTest, ProxyOfTheSystemIsAskedInTheSameWords) {
  const LoopbackServer proxy(Sending(HttpReply("200 OK", "by proxy")));
  setenv("http_proxy", proxy.Url().c_str(), 1);
  EXPECT_EQ(ToFile("http://server.example/webspider.xml"), 0);
  unsetenv("http_proxy");
  EXPECT_EQ(Saved(), "by proxy");
  ASSERT_EQ(proxy.requests().size(), 1U);
  EXPECT_EQ(proxy.requests()[0],
            "GET http://server.example/webspider.xml HTTP/1.1\r\n"
            "Host: server.example\r\n"
            "Accept: text/*\r\n"
            "User-Agent: Brovanta\r\n"
            "\r\n");
}

TEST_F(DownloadToFileTest, ServerOnThisMachineIsAskedWithoutTheProxy) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "directly")));
  const LoopbackServer proxy(Sending(HttpReply("200 OK", "by proxy")));
  setenv("http_proxy", proxy.Url().c_str(), 1);
  const std::string port = std::to_string(server.port());
  for (const char* host : {"127.0.0.1", "localhost", "LocalHost"}) {
    EXPECT_EQ(ToFile("http://" + std::string(host) + ":" + port + "/webspider.xml"), 0) << host;
    EXPECT_EQ(Saved(), "directly") << host;
  }
  unsetenv("http_proxy");
  EXPECT_TRUE(proxy.requests().empty());
}

TEST_F(DownloadToFileTest, EveryOtherStatusIsSuccessAndSaved) {
  for (const char* status :
       {"200 OK", "201 Created", "307 Temporary Redirect", "308 Permanent Redirect",
        "403 Forbidden", "404 Not Found", "500 Internal Server Error", "503 Service Unavailable"}) {
    const LoopbackServer server(
        Sending(HttpReply(status, status, {"Location: http://127.0.0.1/elsewhere"})));
    EXPECT_EQ(ToFile(server.Url("/")), 0) << status;
    EXPECT_EQ(Saved(), status);
  }
}

TEST_F(DownloadToFileTest, StatusWithoutBodyGivesAnEmptyFile) {
  const LoopbackServer server(Sending("HTTP/1.1 204 No Content\r\n\r\n"));
  EXPECT_EQ(ToFile(server.Url("/")), 0);
  EXPECT_EQ(Saved(), "");
}

TEST_F(DownloadToFileTest, UnauthorizedHasItsOwnCode) {
  folder_.WriteText("update.dat", "old");
  const LoopbackServer server(Sending(HttpReply("401 Unauthorized", "no")));
  EXPECT_EQ(ToFile(server.Url("/")), 0x10000110);
  EXPECT_EQ(Saved(), "old");
}

TEST_F(DownloadToFileTest, RedirectFailsEvenWithALocation) {
  folder_.WriteText("update.dat", "old");
  for (const char* status : {"301 Moved Permanently", "302 Found", "303 See Other"}) {
    const LoopbackServer server(Serving({
        {"/", HttpReply(status, "moved", {"Location: http://127.0.0.1/next"})},
        {"/next", HttpReply("200 OK", "next")},
    }));
    EXPECT_EQ(ToFile(server.Url("/")), 0x10000101) << status;
    EXPECT_EQ(server.requests().size(), 1U);
  }
  EXPECT_EQ(Saved(), "old");
}

TEST_F(DownloadToFileTest, SecureAddressFailsAtOnce) {
  EXPECT_EQ(ToFile("https://127.0.0.1/webspider.xml"), 0x10000011);
  EXPECT_EQ(ToFile("ftp://127.0.0.1/webspider.xml"), 0x10000011);
  EXPECT_EQ(Saved(), "(none)");
}

TEST_F(DownloadToFileTest, AddressThatCannotBeSplit) {
  for (const char* url : {"", "/webspider.xml", "127.0.0.1/webspider.xml", "http://"}) {
    EXPECT_EQ(ToFile(url), HTTP_ERR_BAD_URL) << url;
  }
}

TEST_F(DownloadToFileTest, BadAddressComesBeforeTheFlag) {
  flag_ = 1;
  EXPECT_EQ(ToFile("nonsense"), HTTP_ERR_BAD_URL);
}

TEST_F(DownloadToFileTest, FileThatCannotBeMade) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "new")));
  EXPECT_EQ(DownloadUrlToFile(server.Url("/"), folder_.File("missing\\update.dat"), 0, flag_),
            0x10000100);
}

TEST_F(DownloadToFileTest, FileThatSomebodyElseHoldsIsNotReplaced) {
  folder_.WriteText("update.dat", "held");
  platform::File holder;
  ASSERT_TRUE(holder.Open(output(), platform::File::Mode::kRead));
  const LoopbackServer server(Sending(HttpReply("200 OK", "new")));
  EXPECT_EQ(ToFile(server.Url("/")), HTTP_ERR_FILE);
  EXPECT_EQ(Saved(), "held");
}

TEST_F(DownloadToFileTest, OutputPathMayHaveTheDocumentedForm) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "new")));
  EXPECT_EQ(DownloadUrlToFile(server.Url("/"), folder_.path() + "\\update.dat", 0, flag_), 0);
  EXPECT_EQ(Saved(), "new");
}

TEST_F(DownloadToFileTest, CarriageReturnsOfTextStay) {
  const std::string text = "<IT>\r\n<ID>1</ID>\r\n</IT>\r\n";
  const LoopbackServer server(Sending(HttpReply("200 OK", text)));
  EXPECT_EQ(ToFile(server.Url("/")), 0);
  EXPECT_EQ(Saved(), text);
}

TEST_F(DownloadToFileTest, SixteenBitTextLosesItsCarriageReturns) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "a\0\r\0\n\0b\0"s)));
  EXPECT_EQ(ToFile(server.Url("/")), 0);
  EXPECT_EQ(Saved(), "a\0\n\0b\0"s);
}

TEST_F(DownloadToFileTest, ZeroUnitsCutTheirPiece) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "ab\0\0cd\n\0ef"s)));
  EXPECT_EQ(ToFile(server.Url("/")), 0);
  EXPECT_EQ(Saved(), "abef");
}

TEST_F(DownloadToFileTest, OddLengthIsKept) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "seven..")));
  EXPECT_EQ(ToFile(server.Url("/")), 0);
  EXPECT_EQ(Saved(), "seven..");
}

TEST_F(DownloadToFileTest, LongestBodyIsKeptWhole) {
  const std::string longest(639'998, 'x');
  const LoopbackServer server(Sending(HttpReply("200 OK", longest)));
  EXPECT_EQ(ToFile(server.Url("/")), 0);
  EXPECT_EQ(Saved(), longest);
}

TEST_F(DownloadToFileTest, LongerBodyIsCutAtTheLastWholePieceWithoutAnError) {
  for (const std::size_t size : {640'000U, 5'000'000U}) {
    const LoopbackServer server(Sending(HttpReply("200 OK", std::string(size, 'x'))));
    EXPECT_EQ(ToFile(server.Url("/")), 0) << size;
    EXPECT_EQ(Saved(), std::string(638'976, 'x')) << size;
  }
}

TEST_F(DownloadToFileTest, EndlessBodyEndsAtTheLimit) {
  const LoopbackServer server([](LoopbackPeer& peer, const std::string&) {
    peer.Send("HTTP/1.1 200 OK\r\n\r\n");
    const std::string piece(10'000, 'x');
    while (peer.Send(piece)) {
    }
  });
  EXPECT_EQ(ToFile(server.Url("/")), 0);
  EXPECT_EQ(Saved().size(), 638'976U);
}

TEST_F(DownloadToFileTest, CancelledBeforeItStartsAsksNobody) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "new")));
  flag_ = -1;
  EXPECT_EQ(ToFile(server.Url("/")), 0x10000111);
  EXPECT_TRUE(server.requests().empty());
  EXPECT_EQ(Saved(), "(none)");
}

TEST_F(DownloadToFileTest, CancelledAfterSending) {
  const LoopbackServer server([this](LoopbackPeer& peer, const std::string&) {
    flag_ = -1;
    peer.Send(HttpReply("401 Unauthorized", ""));  // the flag comes before the status
  });
  EXPECT_EQ(ToFile(server.Url("/")), HTTP_ERR_CANCELLED);
}

TEST_F(DownloadToFileTest, CancelledInTheMiddleOfTheBodyLeavesTheOldFile) {
  folder_.WriteText("update.dat", "old");
  const LoopbackServer server([this](LoopbackPeer& peer, const std::string&) {
    peer.Send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n" + std::string(50'000, 'x'));
    flag_ = -1;
    peer.WaitUntilClosed();
  });
  EXPECT_EQ(ToFile(server.Url("/")), HTTP_ERR_CANCELLED);
  EXPECT_EQ(Saved(), "old");
}

}  // namespace
}  // namespace brovanta::test

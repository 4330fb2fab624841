#include "net/http/http_client.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/net/http/http_fixture.h"

namespace brovanta::test {
namespace {

using std::string_literals::operator""s;

class DownloadToBufferTest : public HttpFixture {
 protected:
  static std::string Redirect(const std::string& header_line) {
    return HttpReply("302 Found", "moved", {header_line});
  }
};

TEST_F(DownloadToBufferTest, ReturnsThePage) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "<html>\r\nmilk\r\n</html>")));
  EXPECT_EQ(DownloadUrlToBuffer(server.Url("/find"), 7, flag_), "<html>\r\nmilk\r\n</html>");
}

TEST_F(DownloadToBufferTest, ReturnsNothingOnAFailure) {
  const LoopbackServer server(Sending(HttpReply("404 Not Found", "gone")));
  EXPECT_EQ(DownloadUrlToBuffer(server.Url("/find"), 7, flag_), std::nullopt);
}

TEST_F(DownloadToBufferTest, EmptyPageIsAPage) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "")));
  EXPECT_EQ(DownloadUrlToBuffer(server.Url("/find"), 7, flag_), "");
}

TEST_F(DownloadToBufferTest, RequestIsThatOfADesktopBrowser) {
  const LoopbackServer server(Sending(HttpReply("200 OK", "")));
  ASSERT_EQ(Page(server.Url("/find?q=red+shoes%ff&x=a b")), "");
  ASSERT_EQ(server.requests().size(), 1U);
  EXPECT_EQ(server.requests()[0],
            "GET /find?q=red+shoes%ff&x=a%20b HTTP/1.1\r\n"
            "Host: 127.0.0.1:" +
                std::to_string(server.port()) +
                "\r\n"
                "Accept: text/html\r\n"
                "User-Agent: Mozilla/4.0 (compatible; MSIE 6.0; Windows NT 5.1; SV1; "
                ".NET CLR 1.1.4322)\r\n"
                "\r\n");
}

TEST_F(DownloadToBufferTest, OnlyStatus200IsSuccess) {
  for (const char* status : {"201 Created", "304 Not Modified", "307 Temporary Redirect",
                             "403 Forbidden", "404 Not Found", "500 Internal Server Error"}) {
    const LoopbackServer server(Sending(HttpReply(status, "")));
    EXPECT_EQ(Page(server.Url("/")), Code(0x10000001)) << status;
  }
}

TEST_F(DownloadToBufferTest, UnauthorizedHasItsOwnCodeOnTheFirstRequestOnly) {
  const LoopbackServer server([&](LoopbackPeer& peer, const std::string& request) {
    const std::string there = "Location: http://" + request.substr(request.find("127."), 15) + "/b";
    peer.Send(RequestedObject(request) == "/a" ? Redirect(there)
                                               : HttpReply("401 Unauthorized", ""));
  });
  ASSERT_GE(server.port(), 10'000);  // so that the address of the server has 15 characters
  EXPECT_EQ(Page(server.Url("/b")), Code(0x10000110));
  EXPECT_EQ(Page(server.Url("/a")), Code(0x10000001));
}

TEST_F(DownloadToBufferTest, FollowsARedirectWithTheSameHeaders) {
  const LoopbackServer target(Sending(HttpReply("200 OK", "there")));
  for (const char* status : {"301 Moved Permanently", "302 Found", "303 See Other"}) {
    const LoopbackServer server(
        Sending(HttpReply(status, "moved", {"Location: " + target.Url("/next?a=b")})));
    EXPECT_EQ(Page(server.Url("/")), "there") << status;
  }
  ASSERT_EQ(target.requests().size(), 3U);
  EXPECT_EQ(target.requests()[0],
            "GET /next?a=b HTTP/1.1\r\n"
            "Host: 127.0.0.1:" +
                std::to_string(target.port()) +
                "\r\n"
                "Accept: text/html\r\n"
                "User-Agent: Mozilla/4.0 (compatible; MSIE 6.0; Windows NT 5.1; SV1; "
                ".NET CLR 1.1.4322)\r\n"
                "\r\n");
}

TEST_F(DownloadToBufferTest, FollowsTwoHops) {
  const LoopbackServer last(Sending(HttpReply("200 OK", "arrived")));
  const LoopbackServer middle(Sending(Redirect("Location: " + last.Url("/last"))));
  const LoopbackServer first(Sending(Redirect("Location: " + middle.Url("/middle"))));
  EXPECT_EQ(Page(first.Url("/")), "arrived");
}

TEST_F(DownloadToBufferTest, RelativeLocationFails) {
  const LoopbackServer server(Serving(
      {{"/", Redirect("Location: /next.html")}, {"/next.html", HttpReply("200 OK", "next")}}));
  EXPECT_EQ(Page(server.Url("/")), Code(0x10000011));
  EXPECT_EQ(DownloadUrlToBuffer(server.Url("/"), 7, flag_), std::nullopt);
}

TEST_F(DownloadToBufferTest, RedirectToAnotherServiceFails) {
  for (const char* target : {"https://127.0.0.1/", "ftp://127.0.0.1/", "file:///etc/hostname"}) {
    const LoopbackServer server(Sending(Redirect("Location: "s + target)));
    EXPECT_THAT(Page(server.Url("/")), testing::StartsWith("code ")) << target;
  }
  const LoopbackServer server(Sending(Redirect("Location: https://127.0.0.1/")));
  EXPECT_EQ(Page(server.Url("/")), Code(0x10000001));
}

TEST_F(DownloadToBufferTest, RedirectWithoutLocationFails) {
  const LoopbackServer server(Sending(Redirect("X-Nothing: here")));
  EXPECT_EQ(Page(server.Url("/")), Code(0x10000101));
}

TEST_F(DownloadToBufferTest, LocationIsFoundInThisLetterCaseWithItsBlankOnly) {
  const LoopbackServer target(Sending(HttpReply("200 OK", "there")));
  for (const char* name : {"location: ", "LOCATION: ", "Location:"}) {
    const LoopbackServer server(Sending(Redirect(name + target.Url("/"))));
    EXPECT_EQ(Page(server.Url("/")), Code(0x10000101)) << name;
  }
}

TEST_F(DownloadToBufferTest, LocationIsFoundInAnotherHeadersNameToo) {
  const LoopbackServer target(Sending(HttpReply("200 OK", "there")));
  const LoopbackServer server(Sending(Redirect("Content-Location: " + target.Url("/"))));
  EXPECT_EQ(Page(server.Url("/")), "there");
}

TEST_F(DownloadToBufferTest, FirstLocationCounts) {
  const LoopbackServer target(Sending(HttpReply("200 OK", "first")));
  const LoopbackServer server(Sending(HttpReply(
      "302 Found", "", {"Location: " + target.Url("/1"), "Location: http://127.0.0.1:1/2"})));
  EXPECT_EQ(Page(server.Url("/")), "first");
}

TEST_F(DownloadToBufferTest, EndlessRedirectsEndWithTheFlag) {
  std::atomic<int> hops{0};
  const LoopbackServer server([&](LoopbackPeer& peer, const std::string& request) {
    if (++hops == 60) flag_ = 1;
    const std::size_t host = request.find("Host: ") + 6;
    const std::string authority = request.substr(host, request.find('\r', host) - host);
    peer.Send(Redirect("Location: http://" + authority + "/again"));
  });
  EXPECT_EQ(Page(server.Url("/")), Code(0x10000111));
  EXPECT_EQ(hops, 60);
}

TEST_F(DownloadToBufferTest, RedirectToADeadServerFails) {
  const std::string dead = "http://127.0.0.1:" + std::to_string(UnusedPort()) + "/";
  const LoopbackServer server(Sending(Redirect("Location: " + dead)));
  EXPECT_EQ(Page(server.Url("/")), Code(12029));
}

TEST_F(DownloadToBufferTest, BodyOfARedirectIsNoPartOfThePage) {
  const LoopbackServer target(Sending(HttpReply("200 OK", "page")));
  const LoopbackServer server(
      Sending(HttpReply("302 Found", std::string(500'000, 'r'), {"Location: " + target.Url("/")})));
  EXPECT_EQ(Page(server.Url("/")), "page");
}

TEST_F(DownloadToBufferTest, EmbeddedZeroCutsThePagePieceByPiece) {
  const std::string body = "ab\0cd"s + std::string(1019, 'x') + "rest";
  const LoopbackServer server(Sending(HttpReply("200 OK", body)));
  EXPECT_EQ(Page(server.Url("/")), "abrest");
}

TEST_F(DownloadToBufferTest, LongestPageIsKeptWhole) {
  const std::string longest(319'999, 'x');
  const LoopbackServer server(Sending(HttpReply("200 OK", longest)));
  EXPECT_EQ(Page(server.Url("/")), longest);
}

TEST_F(DownloadToBufferTest, LongerPageIsCutAtTheLastWholePiece) {
  for (const std::size_t size : {320'000U, 5'000'000U}) {
    const LoopbackServer server(Sending(HttpReply("200 OK", std::string(size, 'x'))));
    EXPECT_EQ(Page(server.Url("/")), std::string(319'488, 'x')) << size;
  }
}

TEST_F(DownloadToBufferTest, BadAddressAndOtherService) {
  EXPECT_EQ(Page("shop.example"), Code(0x10000011));
  EXPECT_EQ(Page("https://127.0.0.1/"), Code(0x10000011));
}

TEST_F(DownloadToBufferTest, CancelledWhileThePageComes) {
  const LoopbackServer server([this](LoopbackPeer& peer, const std::string&) {
    peer.Send("HTTP/1.1 200 OK\r\n\r\n" + std::string(5000, 'x'));
    flag_ = 1;
    peer.WaitUntilClosed();
  });
  EXPECT_EQ(Page(server.Url("/")), Code(0x10000111));
}

TEST_F(DownloadToBufferTest, ManyAtOnceDoNotMeet) {
  const LoopbackServer server([](LoopbackPeer& peer, const std::string& request) {
    peer.Send(HttpReply("200 OK", RequestedObject(request)));
  });
  std::vector<std::thread> threads;
  std::vector<std::string> pages(16);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    threads.emplace_back([&, i] { pages[i] = Page(server.Url(std::string(i + 1, '/'))); });
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < pages.size(); ++i) EXPECT_EQ(pages[i], std::string(i + 1, '/'));
}

}  // namespace
}  // namespace brovanta::test

#include "server/http_server.h"

#include <gmock/gmock.h>
#include <httplib.h>

#include <condition_variable>
#include <mutex>
#include <stdexcept>

#include "tests/server/raw_client.h"

namespace brovanta::server {
namespace {

using std::chrono::milliseconds;
using test::RawClient;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr milliseconds kHour{3'600'000};

// Collects lines; several threads write.
class Log {
 public:
  void Add(const std::string& line) {
    const std::lock_guard lock(mutex_);
    lines_.push_back(line);
    changed_.notify_all();
  }

  // Waits until there are so many.
  std::vector<std::string> Lines(std::size_t count) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, kHour, [this, count] { return lines_.size() >= count; });
    return lines_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> lines_;
};

HttpAnswer Echo(const HttpRequest& request) {
  if (request.target == "/throw") throw std::runtime_error("boom");
  if (request.target == "/binary") return {200, "text/plain", std::string("a\0\xFF\r\n", 5)};
  if (request.target == "/large") return {200, "text/plain", std::string(16'000'000, 'x')};
  if (request.target == "/moved") return {302, "text/plain", "moved", "http://shop:1/x?y=%20"};
  if (request.target == "/later") return {200, "text/plain", "later", "", kHour};
  if (request.target == "/soon") return {200, "text/plain", "soon", "", milliseconds(1)};
  if (request.method == "POST") return {405, "text/plain", "no"};
  return {200, "text/plain", request.method + " " + request.target + " " + request.host};
}

class HttpServerTest : public testing::Test {
 protected:
  void Start(std::size_t threads = 2) {
    std::string error;
    auto listener = Listen({"127.0.0.1", 0}, error);
    ASSERT_TRUE(listener) << error;
    server_ = HttpServer::Start(
        *std::move(listener), std::vector<HttpHandler>(threads, Echo),
        [this](const std::string& line) { log_.Add(line); }, limits_, error);
    ASSERT_NE(server_, nullptr) << error;
  }

  [[nodiscard]] std::string address() const { return server_->address(); }

  httplib::Client MakeClient() { return httplib::Client("http://" + address()); }

  // The whole answer to a request sent as it stands.
  std::string Exchange(std::string_view request) {
    const RawClient client(address());
    EXPECT_TRUE(client.Send(request));
    return client.ReadAll();
  }

  ConnectionLimits limits_;
  Log log_;
  std::unique_ptr<HttpServer> server_;
};

TEST_F(HttpServerTest, HandsOverMethodTargetAndHost) {
  Start();
  const std::string answer = Exchange("GET /a%2Fb?x=%20&y=+1 HTTP/1.1\r\nHost: shop:1\r\n\r\n");
  EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 OK\r\n"));
  EXPECT_THAT(answer, HasSubstr("\r\nConnection: close\r\n"));
  EXPECT_THAT(answer, HasSubstr("\r\nX-Content-Type-Options: nosniff\r\n"));
  EXPECT_THAT(answer, HasSubstr("\r\nCache-Control: no-store\r\n"));
  EXPECT_THAT(answer, EndsWith("\r\n\r\nGET /a%2Fb?x=%20&y=+1 shop:1"));
}

TEST_F(HttpServerTest, SendsBodiesByteForByte) {
  Start();
  const auto result = MakeClient().Get("/binary");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->body, std::string("a\0\xFF\r\n", 5));
  EXPECT_EQ(result->get_header_value("Content-Length"), "5");
}

TEST_F(HttpServerTest, SendsLargeBodiesWhole) {
  Start();
  const auto result = MakeClient().Get("/large");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->body.size(), 16'000'000u);
}

TEST_F(HttpServerTest, AnswersHeadWithoutTheBody) {
  Start();
  const std::string answer = Exchange("HEAD /binary HTTP/1.1\r\nHost: x\r\n\r\n");
  EXPECT_THAT(answer, StartsWith("HTTP/1.1 200"));
  EXPECT_THAT(answer, HasSubstr("Content-Length: 5\r\n"));
  EXPECT_THAT(answer, EndsWith("\r\n\r\n"));
}

TEST_F(HttpServerTest, AnswersARequestWhoseBodyItDoesNotWant) {
  Start();
  const auto result = MakeClient().Post("/x", std::string(50'000, 'b'), "text/plain");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 405);
  EXPECT_EQ(result->get_header_value("Allow"), "GET, HEAD");
}

TEST_F(HttpServerTest, GivesNoPieces) {
  Start();
  const std::string answer =
      Exchange("GET /binary HTTP/1.1\r\nHost: x\r\nRange: bytes=0-1\r\n\r\n");
  EXPECT_THAT(answer, StartsWith("HTTP/1.1 200"));
  EXPECT_THAT(answer, HasSubstr("Accept-Ranges: none\r\n"));
  EXPECT_THAT(answer, HasSubstr("Content-Length: 5\r\n"));
}

TEST_F(HttpServerTest, SendsElsewhere) {
  Start();
  EXPECT_THAT(Exchange("GET /moved HTTP/1.1\r\nHost: x\r\n\r\n"),
              AllOf(StartsWith("HTTP/1.1 302 "),
                    HasSubstr("\r\nLocation: http://shop:1/x?y=%20\r\n"), EndsWith("moved")));
}

TEST_F(HttpServerTest, GivesADelayedAnswerInItsTime) {
  Start(1);
  const std::string answer = Exchange("GET /soon HTTP/1.1\r\nHost: x\r\n\r\n");
  EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 OK\r\n"));
  EXPECT_THAT(answer, EndsWith("\r\n\r\nsoon"));
}

TEST_F(HttpServerTest, ADelayedAnswerHoldsNoThread) {
  Start(1);
  const RawClient waiting(address());
  EXPECT_TRUE(waiting.Send("GET /later HTTP/1.1\r\nHost: x\r\n\r\n"));
  EXPECT_THAT(log_.Lines(1), ElementsAre(HasSubstr("GET /later 200 5")));
  EXPECT_TRUE(MakeClient().Get("/binary"));
  server_.reset();
  EXPECT_EQ(waiting.ReadAll(), "");
}

// Whoever finds the waiting room full is answered at once.
TEST_F(HttpServerTest, ManyDelayedAnswersHoldNoThreadEither) {
  Start(1);
  std::vector<std::unique_ptr<RawClient>> waiting;
  for (std::size_t i = 0; i < WaitingRoom::kSeats; ++i) {
    waiting.push_back(std::make_unique<RawClient>(address()));
    EXPECT_TRUE(waiting.back()->Send("GET /later HTTP/1.1\r\nHost: x\r\n\r\n"));
  }
  EXPECT_EQ(log_.Lines(WaitingRoom::kSeats).size(), WaitingRoom::kSeats);
  EXPECT_THAT(Exchange("GET /later HTTP/1.1\r\nHost: x\r\n\r\n"), EndsWith("later"));
}

TEST_F(HttpServerTest, LeavesOneLineForEachRequest) {
  Start(1);
  EXPECT_TRUE(MakeClient().Get("/binary?user=Ohio"));
  EXPECT_THAT(Exchange("nonsense\r\n\r\n"), StartsWith("HTTP/1.1 400"));
  EXPECT_TRUE(MakeClient().Head("/"));
  EXPECT_THAT(log_.Lines(3), ElementsAre(HasSubstr("127.0.0.1 GET /binary?user=- 200 "),
                                         HasSubstr("127.0.0.1 nonsense - 400 "),
                                         HasSubstr("127.0.0.1 HEAD / 200 ")));
}

TEST_F(HttpServerTest, RefusesWhatIsNoRequest) {
  Start();
  for (const char* request : {"\r\n\r\n", "GET\r\n\r\n", "GET / HTTP/9.9\r\n\r\n",
                              "BREW / HTTP/1.1\r\n\r\n", "GET / HTTP/1.1 extra\r\n\r\n"}) {
    EXPECT_THAT(Exchange(request), StartsWith("HTTP/1.1 400")) << request;
  }
}

TEST_F(HttpServerTest, RefusesEndlessRequestLinesAndHeaders) {
  Start();
  EXPECT_THAT(Exchange("GET /" + std::string(9'000, 'x') + " HTTP/1.1\r\n\r\n"),
              StartsWith("HTTP/1.1 414"));
  EXPECT_THAT(Exchange("GET /" + std::string(20'000, 'x')), StartsWith("HTTP/1.1 400"));
  std::string headers = "GET / HTTP/1.1\r\n";
  while (headers.size() < 20'000) headers += "A: b\r\n";
  EXPECT_THAT(Exchange(headers), StartsWith("HTTP/1.1 400"));
}

TEST_F(HttpServerTest, ARequestCutAnywhereHarmsNothing) {
  Start();
  const std::string request = "GET /binary HTTP/1.1\r\nHost: x\r\n\r\n";
  for (std::size_t length = 0; length < request.size(); ++length) {
    const RawClient client(address());
    ASSERT_TRUE(client.Send(request.substr(0, length)));
    client.FinishSending();
    EXPECT_THAT(client.ReadAll(), testing::AnyOf(IsEmpty(), StartsWith("HTTP/1.1 400"))) << length;
  }
  EXPECT_TRUE(MakeClient().Get("/"));
}

TEST_F(HttpServerTest, ClosesAConnectionOnWhichNothingComes) {
  limits_.receive = milliseconds(20);
  Start();
  EXPECT_THAT(Exchange(""), IsEmpty());
}

TEST_F(HttpServerTest, RefusesARequestThatTakesTooLong) {
  limits_.receive = milliseconds(20);
  Start();
  EXPECT_THAT(Exchange("GET /"), StartsWith("HTTP/1.1 400"));
}

TEST_F(HttpServerTest, SlowClientsDoNotLockOthersOutForLong) {
  limits_.receive = milliseconds(50);
  Start(2);
  const RawClient first(address());
  const RawClient second(address());
  ASSERT_TRUE(first.Send("G"));
  ASSERT_TRUE(second.Send("G"));
  const auto result = MakeClient().Get("/");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 200);
}

TEST_F(HttpServerTest, ManyClientsAtOnceAllGetTheirAnswers) {
  Start(4);
  std::vector<std::thread> clients;
  std::atomic<int> answered = 0;
  for (int i = 0; i < 16; ++i) {
    clients.emplace_back([this, &answered] {
      for (int round = 0; round < 10; ++round) {
        const auto result = MakeClient().Get("/binary");
        if (result && result->body.size() == 5) ++answered;
      }
    });
  }
  for (std::thread& client : clients) client.join();
  EXPECT_EQ(answered, 160);
}

TEST_F(HttpServerTest, AHandlerThatFailsIsAnAnswerOf500) {
  Start();
  const auto result = MakeClient().Get("/throw");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 500);
  EXPECT_TRUE(MakeClient().Get("/"));
}

TEST_F(HttpServerTest, EndsAtOnceAlthoughClientsSaySoLittle) {
  limits_.receive = kHour;
  Start(2);
  const RawClient idle(address());
  const RawClient begun(address());
  ASSERT_TRUE(begun.Send("GET / HTTP/1.1\r\n"));
  server_.reset();
  EXPECT_THAT(idle.ReadAll(), IsEmpty());
}

TEST_F(HttpServerTest, EndsSoonAlthoughAClientDoesNotRead) {
  limits_.send = kHour;
  limits_.stopping = milliseconds(20);
  Start(1);
  const RawClient client(address());
  ASSERT_TRUE(client.Send("GET /large HTTP/1.1\r\nHost: x\r\n\r\n"));
  std::array<char, 1> first;
  ASSERT_EQ(read(client.fd(), first.data(), 1), 1);  // the answer is under way
  server_.reset();
  EXPECT_LT(client.ReadAll().size(), 16'000'000u);
}

}  // namespace
}  // namespace brovanta::server

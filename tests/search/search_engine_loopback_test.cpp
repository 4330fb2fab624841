// The engine over the real client and servers on this machine.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "search/agent_status.h"
#include "search/search_engine.h"
#include "tests/search/agents.h"
#include "tests/search/recording_window.h"
#include "tests/support/loopback_server.h"

namespace brovanta {
namespace {

using test::Block;
using test::Delivered;
using test::Failed;
using test::Finished;
using test::HttpReply;
using test::LoopbackPeer;
using test::LoopbackServer;
using test::RecordingWindow;
using test::Serving;
using test::Started;

using Agents = std::vector<std::shared_ptr<const WebAgent>>;

std::shared_ptr<const WebAgent> AgentAt(std::int32_t site, const std::string& address) {
  WebAgent agent = test::PlainAgent(site);
  agent.FormatString = address + "?q= KEYWORD ";
  return std::make_shared<const WebAgent>(agent);
}

class SearchOverLoopbackTest : public testing::Test {
 protected:
  const std::shared_ptr<RecordingWindow> window_ = std::make_shared<RecordingWindow>();
};

TEST_F(SearchOverLoopbackTest, ShopsOfAllKindsReport) {
  const LoopbackServer server(Serving({
      {"/good", HttpReply("200 OK", Block("Red soap", "/1", "$2.50") + Block("Soap", "/2", "1"))},
      {"/moved", HttpReply("302 Found", "", {"Location: /good"})},
      {"/broken", HttpReply("500 Internal Server Error", Block("Soap", "/3", "3"))},
  }));
  SearchEngine engine;
  const Agents agents{AgentAt(1, server.Url("/good")), AgentAt(2, server.Url("/moved")),
                      AgentAt(3, server.Url("/broken")), AgentAt(4, server.Url("/none")),
                      AgentAt(5, "https://127.0.0.1/")};
  ASSERT_EQ(engine.StartSearch(agents, 1, "red soap", window_), 5);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(window_->seen(),
              testing::UnorderedElementsAre(Started(1), Started(2), Started(3), Started(4),
                                            Started(5), Delivered(1, 2), Failed(2, AGENT_NO_PAGE),
                                            Failed(3, AGENT_NO_PAGE), Failed(4, AGENT_NO_PAGE),
                                            Failed(5, AGENT_NO_PAGE), Finished(2)));
  EXPECT_EQ(engine.Results().items().at(0).Title, "Red soap");
}

TEST_F(SearchOverLoopbackTest, RedirectToAWholeAddressIsFollowed) {
  const LoopbackServer good(Serving({{"/", HttpReply("200 OK", Block("Soap", "/1", "2"))}}));
  const LoopbackServer moved(
      Serving({{"/", HttpReply("301 Moved", "", {"Location: " + good.Url("/")})}}));
  SearchEngine engine;
  ASSERT_EQ(engine.StartSearch(Agents{AgentAt(1, moved.Url("/"))}, 1, "soap", window_), 1);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_EQ(window_->seen().back(), Finished(1));
}

TEST_F(SearchOverLoopbackTest, ShopLearnsTheEncodedWords) {
  const LoopbackServer server(Serving({}));
  SearchEngine engine;
  ASSERT_EQ(engine.StartSearch(Agents{AgentAt(1, server.Url("/s"))}, 1, "red & caf\xE9", window_),
            1);
  ASSERT_TRUE(window_->WaitUntilFinished());
  ASSERT_EQ(server.requests().size(), 1U);
  EXPECT_EQ(test::RequestedObject(server.requests()[0]), "/s?q=red+%26+caf%ff");
}

TEST_F(SearchOverLoopbackTest, TwoHundredShopsAnswerAtOnce) {
  const LoopbackServer server(Serving({{"/", HttpReply("200 OK", Block("Soap", "/1", "2"))}}));
  SearchEngine engine;
  Agents agents;
  for (std::int32_t site = 1; site <= 200; ++site) agents.push_back(AgentAt(site, server.Url("/")));
  ASSERT_EQ(engine.StartSearch(agents, 1, "soap", window_), 200);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_EQ(window_->seen().back(), Finished(200));
}

// Counts what comes over a server's threads, and lets the test wait for it.
class Counter {
 public:
  void Add() {
    const std::lock_guard lock(mutex_);
    ++count_;
    changed_.notify_all();
  }
  [[nodiscard]] bool WaitFor(int count) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(30), [&] { return count_ >= count; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  int count_ = 0;
};

// Takes requests and says nothing, until the other side goes.
class SilentShop {
 public:
  Counter asked;
  Counter left;
  const LoopbackServer server{[this](LoopbackPeer& peer, const std::string&) {
    asked.Add();
    if (peer.WaitUntilClosed()) left.Add();
  }};
};

// Sends whoever asks back to itself.
class CircleShop {
 public:
  Counter asked;
  const LoopbackServer server{[this](LoopbackPeer& peer, const std::string& request) {
    const std::size_t host = request.find("127.0.0.1:");
    if (host == std::string::npos) return;  // the other side has gone before it asked
    const std::string self = request.substr(host, request.find('\r', host) - host);
    (void)peer.Send(HttpReply("302 Found", "", {"Location: http://" + self + "/"}));
    asked.Add();
  }};
};

// Shops that say nothing, one that leads in circles, one that nobody can connect to.
TEST_F(SearchOverLoopbackTest, StopEndsWhateverTheShopsDo) {
  SilentShop silent;
  CircleShop circle;
  const test::DeafPort deaf;
  SearchEngine engine;
  const Agents agents{AgentAt(1, silent.server.Url("/")), AgentAt(2, silent.server.Url("/")),
                      AgentAt(3, circle.server.Url("/")), AgentAt(4, deaf.Url() + "/")};
  ASSERT_EQ(engine.StartSearch(agents, 1, "soap", window_), 4);
  ASSERT_TRUE(silent.asked.WaitFor(2));
  ASSERT_TRUE(circle.asked.WaitFor(3));
  EXPECT_EQ(window_->seen().size(), 4U) << "nobody has reported";
  EXPECT_EQ(engine.StopSearch(), 0);
  ASSERT_TRUE(window_->WaitUntilFinished(4));
  for (std::int32_t site = 1; site <= 4; ++site) {
    EXPECT_THAT(window_->seen(), testing::Contains(Failed(site, AGENT_NO_PAGE)));
  }
  EXPECT_TRUE(silent.left.WaitFor(2));
}

TEST_F(SearchOverLoopbackTest, EndlessPageEndsWhereAPageIsFull) {
  const LoopbackServer endless([](LoopbackPeer& peer, const std::string&) {
    (void)peer.Send("HTTP/1.1 200 OK\r\n\r\n" + Block("Soap", "/1", "2"));
    while (peer.Send("<p>")) {
    }
  });
  SearchEngine engine;
  ASSERT_EQ(engine.StartSearch(Agents{AgentAt(5, endless.Url("/"))}, 1, "soap", window_), 1);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(window_->seen(), testing::ElementsAre(Started(5), Delivered(5, 1), Finished(1)));
}

TEST_F(SearchOverLoopbackTest, EndOfTheProgramLeavesNoConnection) {
  SilentShop silent;
  {
    SearchEngine engine;
    ASSERT_EQ(engine.StartSearch(Agents{AgentAt(1, silent.server.Url("/"))}, 1, "soap", window_),
              1);
    ASSERT_TRUE(silent.asked.WaitFor(1));
  }
  EXPECT_TRUE(silent.left.WaitFor(1));
}

TEST_F(SearchOverLoopbackTest, EndOfTheProgramEndsARedirectCircle) {
  CircleShop circle;
  {
    SearchEngine engine;
    ASSERT_EQ(engine.StartSearch(Agents{AgentAt(1, circle.server.Url("/"))}, 1, "soap", window_),
              1);
    ASSERT_TRUE(circle.asked.WaitFor(3));
    EXPECT_EQ(window_->seen().size(), 1U) << "it goes on";
  }
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(window_->seen(),
              testing::ElementsAre(Started(1), Failed(1, AGENT_NO_PAGE), Finished(0)));
}

}  // namespace
}  // namespace brovanta

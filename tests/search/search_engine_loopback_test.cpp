// The engine over the real client and servers on this machine.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
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

// Shops that say nothing, one that goes on for ever, one that leads in circles, one that nobody
// can connect to.
TEST_F(SearchOverLoopbackTest, StopEndsWhateverTheShopsDo) {
  const LoopbackServer silent(
      [](LoopbackPeer& peer, const std::string&) { (void)peer.WaitUntilClosed(); });
  const LoopbackServer endless([](LoopbackPeer& peer, const std::string&) {
    (void)peer.Send("HTTP/1.1 200 OK\r\n\r\n");
    while (peer.Send("<p>")) {
    }
  });
  std::string circle_url;
  const LoopbackServer circle([&circle_url](LoopbackPeer& peer, const std::string&) {
    (void)peer.Send(HttpReply("302 Found", "", {"Location: " + circle_url}));
  });
  circle_url = circle.Url("/");
  const test::DeafPort deaf;
  SearchEngine engine;
  const Agents agents{AgentAt(1, silent.Url("/")), AgentAt(2, silent.Url("/")),
                      AgentAt(3, circle.Url("/")), AgentAt(4, deaf.Url() + "/")};
  ASSERT_EQ(engine.StartSearch(agents, 1, "soap", window_), 4);
  EXPECT_EQ(engine.StopSearch(), 0);
  ASSERT_TRUE(window_->WaitUntilFinished(4));
  EXPECT_EQ(window_->Count(WM_SEARCH_AGENT_FAILED), 4U);
  // An endless page ends by itself where a page is full.
  ASSERT_EQ(engine.StartSearch(Agents{AgentAt(5, endless.Url("/"))}, 1, "soap", window_), 1);
  ASSERT_TRUE(window_->WaitFor(WM_SEARCH_AGENT_RESULTS));
}

TEST_F(SearchOverLoopbackTest, EndOfTheProgramLeavesNoConnection) {
  bool closed = false;
  std::mutex mutex;
  std::condition_variable changed;
  bool asked = false;
  LoopbackServer silent([&](LoopbackPeer& peer, const std::string&) {
    {
      const std::lock_guard lock(mutex);
      asked = true;
      changed.notify_all();
    }
    const bool gone = peer.WaitUntilClosed();
    const std::lock_guard lock(mutex);
    closed = gone;
    changed.notify_all();
  });
  {
    SearchEngine engine;
    ASSERT_EQ(engine.StartSearch(Agents{AgentAt(1, silent.Url("/"))}, 1, "soap", window_), 1);
    std::unique_lock lock(mutex);
    ASSERT_TRUE(changed.wait_for(lock, std::chrono::seconds(30), [&] { return asked; }));
  }
  std::unique_lock lock(mutex);
  EXPECT_TRUE(changed.wait_for(lock, std::chrono::seconds(30), [&] { return closed; }));
}

}  // namespace
}  // namespace brovanta

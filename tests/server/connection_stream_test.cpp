#include "server/connection_stream.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <cstdint>
#include <thread>

#include "util/unique_fd.h"

namespace brovanta::server {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLong{60'000};
constexpr milliseconds kShort{20};

class ConnectionStreamTest : public testing::Test {
 protected:
  ConnectionStreamTest() {
    std::array<int, 2> ends{};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    own_ = UniqueFd(ends[0]);
    other_ = UniqueFd(ends[1]);
    EXPECT_EQ(fcntl(own_.get(), F_SETFL, O_NONBLOCK), 0);
    stop_ = UniqueFd(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    limits_ = {.request_bytes = 64, .receive = kLong, .send = kLong, .stopping = kShort};
  }

  ConnectionStream MakeStream() { return {own_.get(), stop_.get(), limits_}; }

  void Send(std::string_view text) const {
    ASSERT_EQ(write(other_.get(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }

  void Stop() const {
    const std::uint64_t one = 1;
    ASSERT_EQ(write(stop_.get(), &one, sizeof(one)), static_cast<ssize_t>(sizeof(one)));
  }

  static std::string Read(ConnectionStream& stream, std::size_t size) {
    std::string text(size, '\0');
    const ssize_t count = stream.read(text.data(), size);
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return text;
  }

  static ssize_t ReadOne(ConnectionStream& stream) {
    char byte = 0;
    return stream.read(&byte, 1);
  }

  UniqueFd own_;
  UniqueFd other_;
  UniqueFd stop_;
  ConnectionLimits limits_;
};

TEST_F(ConnectionStreamTest, ReadsInPiecesWhatCameTogether) {
  Send("GET /x");
  auto stream = MakeStream();
  EXPECT_TRUE(stream.is_readable());
  EXPECT_EQ(Read(stream, 3), "GET");
  EXPECT_TRUE(stream.is_readable());
  EXPECT_EQ(Read(stream, 30), " /x");
}

TEST_F(ConnectionStreamTest, SaysWhenTheOtherSideHasFinished) {
  Send("x");
  shutdown(other_.get(), SHUT_WR);
  auto stream = MakeStream();
  EXPECT_EQ(ReadOne(stream), 1);
  EXPECT_EQ(ReadOne(stream), 0);
  EXPECT_FALSE(stream.cut_off());
}

TEST_F(ConnectionStreamTest, ReadsNoMoreThanTheLimit) {
  Send(std::string(65, 'x'));
  auto stream = MakeStream();
  EXPECT_EQ(Read(stream, 100).size(), 64u);
  EXPECT_FALSE(stream.cut_off());
  EXPECT_EQ(ReadOne(stream), -1);
  EXPECT_TRUE(stream.cut_off());
}

TEST_F(ConnectionStreamTest, WaitsOnlySoLongForARequest) {
  limits_.receive = kShort;
  auto stream = MakeStream();
  EXPECT_EQ(ReadOne(stream), -1);
  EXPECT_FALSE(stream.cut_off()) << "nothing was begun";
  EXPECT_FALSE(stream.is_readable());
}

TEST_F(ConnectionStreamTest, ABegunRequestThatTakesTooLongIsCutOff) {
  limits_.receive = kShort;
  Send("G");
  auto stream = MakeStream();
  EXPECT_EQ(ReadOne(stream), 1);
  EXPECT_EQ(ReadOne(stream), -1);
  EXPECT_TRUE(stream.cut_off());
}

TEST_F(ConnectionStreamTest, StoppingEndsTheWaitForARequest) {
  auto stream = MakeStream();
  std::thread stopper([this] { Stop(); });
  EXPECT_EQ(ReadOne(stream), -1);
  stopper.join();
}

TEST_F(ConnectionStreamTest, WritesEverythingToASlowReader) {
  const std::string body(4'000'000, 'x');
  std::size_t received = 0;
  std::thread reader([this, &received] {
    std::array<char, 1000> piece;
    for (;;) {
      const ssize_t count = read(other_.get(), piece.data(), piece.size());
      if (count <= 0) return;
      received += static_cast<std::size_t>(count);
    }
  });
  auto stream = MakeStream();
  EXPECT_FALSE(stream.answered());
  EXPECT_TRUE(stream.is_writable());
  EXPECT_EQ(stream.write(body), static_cast<ssize_t>(body.size()));
  EXPECT_TRUE(stream.answered());
  shutdown(own_.get(), SHUT_WR);
  reader.join();
  EXPECT_EQ(received, body.size());
}

TEST_F(ConnectionStreamTest, WaitsOnlySoLongForAReader) {
  limits_.send = kShort;
  auto stream = MakeStream();
  EXPECT_EQ(stream.write(std::string(4'000'000, 'x')), -1);
  EXPECT_FALSE(stream.is_writable());
}

TEST_F(ConnectionStreamTest, StoppingLeavesAnAnswerAShortWhileOnly) {
  Stop();
  auto stream = MakeStream();
  EXPECT_EQ(stream.write("short answer"), 12);
  EXPECT_EQ(stream.write(std::string(4'000'000, 'x')), -1);
}

TEST_F(ConnectionStreamTest, WritingToNobodyFails) {
  other_ = UniqueFd();
  auto stream = MakeStream();
  EXPECT_EQ(stream.write("x"), -1);
}

TEST_F(ConnectionStreamTest, FinishingEndsTheOwnSideAndTakesWhatStillComes) {
  Send("rest of a body");
  shutdown(other_.get(), SHUT_WR);
  auto stream = MakeStream();
  stream.FinishSending();
  char byte = 0;
  EXPECT_EQ(read(other_.get(), &byte, 1), 0);
  EXPECT_EQ(ReadOne(stream), 0);
}

TEST_F(ConnectionStreamTest, KeepsBackWhatItIsToldTo) {
  ConnectionStream stream = MakeStream();
  stream.KeepBack();
  EXPECT_EQ(stream.write("head", 4), 4);
  EXPECT_EQ(stream.write("body", 4), 4);
  EXPECT_TRUE(stream.answered());
  EXPECT_EQ(stream.TakeKept(), "headbody");
  EXPECT_EQ(stream.TakeKept(), "");
  EXPECT_EQ(stream.write("sent", 4), 4);
  std::array<char, 16> arrived{};
  EXPECT_EQ(read(other_.get(), arrived.data(), arrived.size()), 4);
  EXPECT_STREQ(arrived.data(), "sent");
}

}  // namespace
}  // namespace brovanta::server

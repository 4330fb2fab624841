#include "server/waiting_room.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <array>
#include <cstdint>
#include <memory>

namespace brovanta::server {
namespace {

using std::chrono::milliseconds;
using Clock = WaitingRoom::Clock;

constexpr milliseconds kHour{3'600'000};

class WaitingRoomTest : public testing::Test {
 protected:
  WaitingRoomTest() : stop_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
  ~WaitingRoomTest() override { Close(); }

  void Open(milliseconds send = kHour) { room_ = std::make_unique<WaitingRoom>(stop_.get(), send); }

  void Close() {
    const std::uint64_t one = 1;
    EXPECT_EQ(write(stop_.get(), &one, sizeof(one)), static_cast<ssize_t>(sizeof(one)));
    room_.reset();
  }

  // Leaves an answer in the room and gives the client's end of its connection; none when there is
  // no seat.
  UniqueFd Leave(std::string bytes, Clock::time_point due) {
    std::array<int, 2> ends{};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    UniqueFd server(ends[0]);
    UniqueFd client(ends[1]);
    EXPECT_EQ(fcntl(server.get(), F_SETFL, O_NONBLOCK), 0);
    const std::string before = bytes;
    if (room_->Take(server, bytes, due)) return client;
    EXPECT_TRUE(server.valid());
    EXPECT_EQ(bytes, before);
    return UniqueFd();
  }

  // Everything up to the end, or the first reset.
  static std::string ReadAll(const UniqueFd& client) {
    std::string text;
    std::array<char, 4096> piece{};
    for (;;) {
      const ssize_t count = read(client.get(), piece.data(), piece.size());
      if (count <= 0) return text;
      text.append(piece.data(), static_cast<std::size_t>(count));
    }
  }

  static bool HasSomething(const UniqueFd& client) {
    pollfd watched{client.get(), POLLIN, 0};
    return poll(&watched, 1, 0) == 1;
  }

  UniqueFd stop_;
  std::unique_ptr<WaitingRoom> room_;
};

TEST_F(WaitingRoomTest, SendsAnAnswerWhenItIsDueAndEnds) {
  Open();
  EXPECT_EQ(ReadAll(Leave("answer", Clock::now() + milliseconds(5))), "answer");
  EXPECT_EQ(ReadAll(Leave("late", Clock::now() - milliseconds(5))), "late");
  EXPECT_EQ(ReadAll(Leave("", Clock::now())), "");
}

TEST_F(WaitingRoomTest, AnEarlierAnswerOvertakes) {
  Open();
  const UniqueFd later = Leave("later", Clock::now() + kHour);
  const UniqueFd sooner = Leave("sooner", Clock::now() + milliseconds(1));
  EXPECT_EQ(ReadAll(sooner), "sooner");
  EXPECT_FALSE(HasSomething(later));
}

TEST_F(WaitingRoomTest, SendsAsTheClientReads) {
  Open();
  const std::string large(4'000'000, 'x');
  const UniqueFd idle = Leave(large, Clock::now());
  EXPECT_EQ(ReadAll(Leave(large, Clock::now())), large);  // not held up by the idle one
  EXPECT_EQ(ReadAll(idle), large);
}

TEST_F(WaitingRoomTest, GivesUpAClientThatDoesNotRead) {
  Open(milliseconds(20));
  const UniqueFd idle = Leave(std::string(4'000'000, 'x'), Clock::now());
  pollfd watched{idle.get(), POLLRDHUP, 0};
  ASSERT_EQ(poll(&watched, 1, 30'000), 1);
  EXPECT_LT(ReadAll(idle).size(), 4'000'000u);
}

TEST_F(WaitingRoomTest, AClientThatHasGoneIsForgotten) {
  Open();
  for (std::size_t i = 0; i < 3 * WaitingRoom::kSeats; ++i) {
    { const UniqueFd gone = Leave("answer", Clock::now()); }
    // The next one's answer shows that the one before has left its seat.
    EXPECT_EQ(ReadAll(Leave("next", Clock::now())), "next");
  }
}

TEST_F(WaitingRoomTest, HasSoManySeats) {
  Open();
  std::vector<UniqueFd> clients;
  for (std::size_t i = 0; i < WaitingRoom::kSeats; ++i) {
    clients.push_back(Leave("answer", Clock::now() + kHour));
    EXPECT_TRUE(clients.back().valid());
  }
  EXPECT_FALSE(Leave("one more", Clock::now()).valid());
}

TEST_F(WaitingRoomTest, DropsEverybodyAtTheEnd) {
  Open();
  const UniqueFd client = Leave("answer", Clock::now() + kHour);
  Close();
  EXPECT_EQ(ReadAll(client), "");
}

}  // namespace
}  // namespace brovanta::server

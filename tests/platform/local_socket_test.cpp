#include "platform/local_socket.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "tests/support/temp_folder.h"

namespace brovanta::platform {
namespace {

constexpr int kPatience = 5000;

class LocalSocketTest : public testing::Test {
 protected:
  std::string Path() const { return folder_.File("socket"); }

  test::TempFolder folder_;
};

TEST_F(LocalSocketTest, BothEndsHearEachOther) {
  const LocalSocket listener = LocalSocket::ListenAt(Path());
  ASSERT_TRUE(listener.valid());
  LocalSocket asks = LocalSocket::ConnectTo(Path());
  ASSERT_TRUE(asks.valid());
  ASSERT_TRUE(listener.WaitToRead(kPatience));
  LocalSocket answers = listener.Accept();
  ASSERT_TRUE(answers.valid());
  EXPECT_TRUE(asks.Write("question"));
  ASSERT_TRUE(answers.WaitToRead(kPatience));
  EXPECT_EQ(answers.Read(), "question");
  EXPECT_TRUE(answers.Write("answer"));
  ASSERT_TRUE(asks.WaitToRead(kPatience));
  EXPECT_EQ(asks.Read(), "answer");
}

TEST_F(LocalSocketTest, NothingYetIsNotTheEnd) {
  const LocalSocket listener = LocalSocket::ListenAt(Path());
  EXPECT_FALSE(listener.Accept().valid());
  EXPECT_FALSE(listener.WaitToRead(0));
  LocalSocket asks = LocalSocket::ConnectTo(Path());
  LocalSocket answers = listener.Accept();
  EXPECT_EQ(answers.Read(), "");
  EXPECT_TRUE(asks.Write("last words"));
  asks = {};
  EXPECT_EQ(answers.Read(), "last words");
  EXPECT_EQ(answers.Read(), std::nullopt);
}

TEST_F(LocalSocketTest, WritingToWhoIsGoneFailsAndEndsNothing) {
  const LocalSocket listener = LocalSocket::ListenAt(Path());
  LocalSocket asks = LocalSocket::ConnectTo(Path());
  { const LocalSocket gone = listener.Accept(); }
  EXPECT_FALSE(asks.Write("anybody?"));
}

TEST_F(LocalSocketTest, MoreThanOnePieceIsReadWhole) {
  const LocalSocket listener = LocalSocket::ListenAt(Path());
  LocalSocket asks = LocalSocket::ConnectTo(Path());
  LocalSocket answers = listener.Accept();
  const std::string much(5000, 'x');
  EXPECT_TRUE(asks.Write(much));
  EXPECT_EQ(answers.Read(), much);
}

TEST_F(LocalSocketTest, NobodyListening) {
  EXPECT_FALSE(LocalSocket::ConnectTo(Path()).valid());
  std::ofstream(Path()) << "no socket";
  EXPECT_FALSE(LocalSocket::ConnectTo(Path()).valid());
  { const LocalSocket dead = LocalSocket::ListenAt(Path()); }
  EXPECT_TRUE(std::filesystem::exists(Path()));
  EXPECT_FALSE(LocalSocket::ConnectTo(Path()).valid());
}

TEST_F(LocalSocketTest, WhatStandsThereGoes) {
  std::ofstream(Path()) << "left over";
  const LocalSocket listener = LocalSocket::ListenAt(Path());
  EXPECT_TRUE(LocalSocket::ConnectTo(Path()).valid());
}

TEST_F(LocalSocketTest, AFolderInItsPlaceStays) {
  std::filesystem::create_directory(Path());
  EXPECT_FALSE(LocalSocket::ListenAt(Path()).valid());
  EXPECT_TRUE(std::filesystem::is_directory(Path()));
}

TEST_F(LocalSocketTest, OnlyThisUserMayConnect) {
  const mode_t before = umask(0);
  const LocalSocket listener = LocalSocket::ListenAt(Path());
  umask(before);
  EXPECT_EQ(std::filesystem::status(Path()).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(LocalSocketTest, WhatAnotherUserSaysIsNotAskedFor) {
  constexpr uid_t kNobody = 65534;
  if (geteuid() != 0) GTEST_SKIP() << "only root can be two users";
  std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
  ASSERT_EQ(seteuid(kNobody), 0);
  const LocalSocket listener = LocalSocket::ListenAt(Path());
  ASSERT_EQ(seteuid(0), 0);
  ASSERT_TRUE(listener.valid());
  EXPECT_FALSE(LocalSocket::ConnectTo(Path()).valid());
}

TEST_F(LocalSocketTest, APathThatIsTooLongOrEmptyIsRefused) {
  const std::string longest = Path() + std::string(107 - Path().size(), 'x');
  EXPECT_TRUE(LocalSocket::ListenAt(longest).valid());
  EXPECT_TRUE(std::filesystem::exists(longest));
  EXPECT_FALSE(LocalSocket::ListenAt(longest + "x").valid());
  EXPECT_FALSE(LocalSocket::ConnectTo(longest + "x").valid());
  EXPECT_FALSE(LocalSocket::ListenAt("").valid());
  EXPECT_FALSE(LocalSocket::ConnectTo("").valid());
}

TEST_F(LocalSocketTest, NoneDoesNothing) {
  LocalSocket none;
  EXPECT_FALSE(none.valid());
  EXPECT_FALSE(none.WaitToRead(0));
  EXPECT_FALSE(none.Accept().valid());
  EXPECT_FALSE(none.Write("words"));
  EXPECT_EQ(none.Read(), std::nullopt);
}

}  // namespace
}  // namespace brovanta::platform

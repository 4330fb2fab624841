#include "app/single_instance.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QThread>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using Outcome = SingleInstance::Outcome;
constexpr int kPatience = 5000;

class SingleInstanceTest : public testing::Test {
 protected:
  SingleInstanceTest() { qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(folder_.path())); }
  ~SingleInstanceTest() override { qunsetenv("XDG_RUNTIME_DIR"); }

  /// Starts a second one in a thread of its own while the first runs its event loop here.
  Outcome SecondClaim(const std::string& data_folder, int patience = kPatience) {
    std::optional<Outcome> outcome;
    const std::unique_ptr<QThread> thread(QThread::create([&outcome, &data_folder, patience] {
      SingleInstance second(data_folder);
      outcome = second.Claim(patience);
    }));
    thread->start();
    EXPECT_TRUE(QTest::qWaitFor([&thread] { return thread->isFinished(); }, 3 * kPatience));
    return *outcome;
  }

  static platform::LocalSocket ConnectTo(const SingleInstance& first) {
    return platform::LocalSocket::ConnectTo(first.socket_path().toStdString());
  }

  /// What the first says while its event loop runs here; nothing when it closes the connection.
  static std::optional<std::string> Answer(platform::LocalSocket& socket) {
    EXPECT_TRUE(QTest::qWaitFor([&socket] { return socket.WaitToRead(0); }, kPatience));
    return socket.Read();
  }

  test::TempFolder folder_;
  test::TempFolder data_;
};

TEST_F(SingleInstanceTest, TheFirstHasTheFolderToItself) {
  SingleInstance first(data_.path());
  EXPECT_EQ(first.Claim(0), Outcome::kFirst);
}

TEST_F(SingleInstanceTest, TheSecondShowsTheWindowOfTheFirst) {
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  int raised = 0;
  first.SetRaiseHandler([&raised] { ++raised; });
  EXPECT_EQ(SecondClaim(data_.path()), Outcome::kRaised);
  EXPECT_EQ(raised, 1);
  EXPECT_EQ(SecondClaim(data_.path()), Outcome::kRaised);
  EXPECT_EQ(raised, 2);
}

TEST_F(SingleInstanceTest, StartsInASandboxMeetInTheFolderThatTheyShare) {
  std::filesystem::create_directories(folder_.File("app/org.brovanta.Brovanta"));
  qputenv("FLATPAK_ID", "org.brovanta.Brovanta");
  SingleInstance first(data_.path());
  EXPECT_EQ(first.socket_path().toStdString().rfind(
                folder_.File("app/org.brovanta.Brovanta/brovanta-"), 0),
            0U);
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  int raised = 0;
  first.SetRaiseHandler([&raised] { ++raised; });
  EXPECT_EQ(SecondClaim(data_.path()), Outcome::kRaised);
  EXPECT_EQ(raised, 1);
  qunsetenv("FLATPAK_ID");
}

TEST_F(SingleInstanceTest, AnotherNameOfTheSameFolderIsTheSameFolder) {
  std::filesystem::create_symlink(data_.path(), folder_.File("link"));
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  EXPECT_EQ(SecondClaim(folder_.File("link")), Outcome::kRaised);
}

TEST_F(SingleInstanceTest, ALockThatIsHeldAlreadyMakesItTheFirst) {
  platform::FolderLock lock;
  ASSERT_EQ(lock.Take(platform::CanonicalFolder(data_.path())),
            platform::FolderLock::Outcome::kTaken);
  SingleInstance first(data_.path(), std::move(lock));
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  first.SetRaiseHandler([] {});
  EXPECT_EQ(SecondClaim(data_.path()), Outcome::kRaised);
}

TEST_F(SingleInstanceTest, AnotherFolderIsFree) {
  const test::TempFolder other;
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  EXPECT_EQ(SecondClaim(other.path()), Outcome::kFirst);
}

TEST_F(SingleInstanceTest, AfterTheFirstHasEndedTheFolderIsFree) {
  {
    SingleInstance first(data_.path());
    ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  }
  SingleInstance second(data_.path());
  EXPECT_EQ(second.Claim(0), Outcome::kFirst);
}

TEST_F(SingleInstanceTest, TheSocketOfADeadProgramDoesNotBlock) {
  SingleInstance first(data_.path());
  QFile dead(first.socket_path());
  ASSERT_TRUE(dead.open(QIODevice::WriteOnly));
  dead.close();
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  first.SetRaiseHandler([] {});
  EXPECT_EQ(SecondClaim(data_.path()), Outcome::kRaised);
}

TEST_F(SingleInstanceTest, AFirstThatDoesNotAnswerIsGivenUpOn) {
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  // No event loop runs here, so nothing is answered.
  SingleInstance second(data_.path());
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(second.Claim(100), Outcome::kSilent);
  EXPECT_GE(timer.elapsed(), 100);
}

TEST_F(SingleInstanceTest, TheTokenOfTheNewerStartIsPassedOn) {
  qunsetenv("XDG_ACTIVATION_TOKEN");
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  QByteArray token;
  first.SetRaiseHandler([&token] { token = qgetenv("XDG_ACTIVATION_TOKEN"); });
  platform::LocalSocket socket = ConnectTo(first);
  EXPECT_TRUE(socket.Write("raise abc-123\n"));
  EXPECT_EQ(Answer(socket), "raised\n");
  EXPECT_EQ(token, "abc-123");
  qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(SingleInstanceTest, ForeignWordsOnTheSocketAreNotAnswered) {
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  int raised = 0;
  first.SetRaiseHandler([&raised] { ++raised; });
  for (const std::string& words : {std::string("quit\n"), std::string(5000, 'x')}) {
    platform::LocalSocket socket = ConnectTo(first);
    EXPECT_TRUE(socket.Write(words));
    EXPECT_EQ(Answer(socket), std::nullopt);
  }
  EXPECT_EQ(raised, 0);
}

TEST_F(SingleInstanceTest, ARequestThatComesInPiecesIsAnsweredWhenItIsWhole) {
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  int raised = 0;
  first.SetRaiseHandler([&raised] { ++raised; });
  platform::LocalSocket socket = ConnectTo(first);
  EXPECT_TRUE(socket.Write("rai"));
  QTest::qWait(1);
  EXPECT_EQ(socket.Read(), "");
  EXPECT_EQ(raised, 0);
  EXPECT_TRUE(socket.Write("se \n"));
  EXPECT_EQ(Answer(socket), "raised\n");
  EXPECT_EQ(raised, 1);
}

TEST_F(SingleInstanceTest, OneThatConnectsAndSaysNothingKeepsNobodyElseWaiting) {
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  first.SetRaiseHandler([] {});
  const platform::LocalSocket silent = ConnectTo(first);
  EXPECT_TRUE(silent.valid());
  EXPECT_EQ(SecondClaim(data_.path()), Outcome::kRaised);
}

TEST_F(SingleInstanceTest, OneThatGoesBeforeItsAnswerHarmsNothing) {
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  int raised = 0;
  first.SetRaiseHandler([&raised] { ++raised; });
  for (const char* const words : {"raise \n", "rai"}) {
    platform::LocalSocket socket = ConnectTo(first);
    EXPECT_TRUE(socket.Write(words));
  }
  EXPECT_EQ(SecondClaim(data_.path()), Outcome::kRaised);
  EXPECT_EQ(raised, 2);  // the whole request was heard
}

TEST_F(SingleInstanceTest, TheSocketGoesWithTheFirst) {
  QString path;
  {
    SingleInstance first(data_.path());
    ASSERT_EQ(first.Claim(0), Outcome::kFirst);
    path = first.socket_path();
    EXPECT_TRUE(QFile::exists(path));
  }
  EXPECT_FALSE(QFile::exists(path));
}

TEST_F(SingleInstanceTest, WithoutASocketTheLockStillHolds) {
  qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(folder_.path()));
  SingleInstance first(data_.path());
  ASSERT_TRUE(QDir().mkpath(first.socket_path()));  // where the socket should be
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  SingleInstance second(data_.path());
  EXPECT_EQ(second.Claim(50), Outcome::kSilent);
}

TEST_F(SingleInstanceTest, AFolderThatIsNotThereCountsAsFree) {
  SingleInstance first(data_.File("missing"));
  EXPECT_EQ(first.Claim(0), Outcome::kFirst);
}

TEST_F(SingleInstanceTest, AFolderThatIsMissingHasOneProgramAllTheSame) {
  SingleInstance first(data_.File("missing"));
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  int raised = 0;
  first.SetRaiseHandler([&raised] { ++raised; });
  EXPECT_EQ(SecondClaim(data_.File("missing")), Outcome::kRaised);
  std::filesystem::create_directory(data_.File("missing"));
  EXPECT_EQ(SecondClaim(data_.File("missing")), Outcome::kRaised);
  EXPECT_EQ(raised, 2);
}

TEST_F(SingleInstanceTest, AnotherFolderInThePlaceOfTheFirstsIsStillTheFirsts) {
  std::filesystem::create_directory(data_.File("list"));
  SingleInstance first(data_.File("list"));
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  first.SetRaiseHandler([] {});
  std::filesystem::rename(data_.File("list"), data_.File("moved"));
  std::filesystem::create_directory(data_.File("list"));
  EXPECT_EQ(SecondClaim(data_.File("list")), Outcome::kRaised);
  SingleInstance silent(data_.File("list"));  // no event loop runs here
  EXPECT_EQ(silent.Claim(50), Outcome::kSilent);
  platform::FolderLock lock;  // who gives up holds nothing
  EXPECT_EQ(lock.Take(data_.File("list")), platform::FolderLock::Outcome::kTaken);
}

TEST_F(SingleInstanceTest, NothingIsLeftInTheDataFolder) {
  SingleInstance first(data_.path());
  ASSERT_EQ(first.Claim(0), Outcome::kFirst);
  EXPECT_TRUE(std::filesystem::is_empty(data_.path()));
}

}  // namespace
}  // namespace brovanta

// The programs as they were installed, or as the packages hold them, do what they are for.
#include <gmock/gmock.h>
#include <poll.h>
#include <signal.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <set>
#include <string>

#include "tests/packaging/staged.h"
#include "tests/server/raw_client.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::ChildProcess;
using test::FilesBelow;
using test::RunTool;
using test::Staged;
using testing::HasSubstr;
using testing::StartsWith;

namespace fs = std::filesystem;

// Looks again and again, as long as the program that should bring it about runs, but no minute
// long.
bool Comes(const std::function<bool()>& what, const ChildProcess& program) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (!what()) {
    if (program.Ended() || std::chrono::steady_clock::now() > until) return false;
    static_cast<void>(poll(nullptr, 0, 20));
  }
  return true;
}

class InstalledProgramsTest : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    if (std::string(GetParam()) == "root/usr") {
      BROVANTA_NEED_PACKAGES();
    }
    for (const char* name : {"home", "runtime", "data"}) fs::create_directory(folder_.File(name));
    fs::permissions(folder_.File("runtime"), fs::perms(0700));
  }

  std::string Program(const std::string& name) { return Staged(GetParam()) + "/bin/" + name; }

  std::vector<ChildProcess::Setting> Environment(const std::string& platform) {
    return {{"HOME", folder_.File("home")},          {"XDG_RUNTIME_DIR", folder_.File("runtime")},
            {"XDG_DATA_HOME", folder_.File("data")}, {"XDG_CONFIG_HOME", folder_.File("data")},
            {"QT_QPA_PLATFORM", platform},           {"DISPLAY", display_}};
  }

  test::TempFolder folder_;
  std::string display_;
};

TEST_P(InstalledProgramsTest, TellTheirVersion) {
  const std::set<std::string> programs = FilesBelow(Staged(GetParam()) + "/bin");
  EXPECT_GE(programs.size(), 3U);
  for (const std::string& name : programs) {
    const auto outcome = RunTool({Program(name), "--version"});
    EXPECT_EQ(outcome.status, 0) << name;
    EXPECT_EQ(outcome.output, name + " " BROVANTA_VERSION "\n");
  }
}

TEST_P(InstalledProgramsTest, TheServerServesItsDemonstration) {
  ChildProcess server({Program("brovanta-server"), "--data", folder_.File("demo.db"), "--listen",
                       "127.0.0.1:0", "--demo"},
                      folder_.File("errors"));
  const std::string line = server.ReadLine();
  ASSERT_THAT(line, StartsWith("listening on 127.0.0.1:"));
  const test::RawClient client(line.substr(line.rfind(' ') + 1));
  ASSERT_TRUE(client.connected());
  ASSERT_TRUE(client.Send("GET /stores.aspx?idx=29&user=x HTTP/1.0\r\n\r\n"));
  EXPECT_THAT(client.ReadAll(),
              testing::AllOf(StartsWith("HTTP/1.1 200"), HasSubstr("<IT><ID>30")));
  server.Signal(SIGTERM);
  EXPECT_EQ(server.Wait(), 0);
}

TEST_P(InstalledProgramsTest, ThePlannerStartsOnceAndShowsItsWindowToTheSecondStart) {
  ChildProcess first({Program("brovanta")}, folder_.File("errors"), Environment("offscreen"));
  // The data folder is locked when the lists are there; the second start waits for the window.
  EXPECT_TRUE(Comes([&] { return fs::exists(folder_.File("data/brovanta/store.lst")); }, first));
  ChildProcess second({Program("brovanta")}, folder_.File("more"), Environment("offscreen"));
  EXPECT_EQ(second.Wait(), 0) << folder_.ReadText("more").value_or("");
  EXPECT_FALSE(first.Ended());
}

// A number of the header of an X window dump, which has the highest byte first.
std::size_t HeaderNumber(const std::string& dump, std::size_t index) {
  std::size_t number = 0;
  for (std::size_t i = 4 * index; i < 4 * index + 4; ++i) {
    number = number * 256 + static_cast<unsigned char>(dump.at(i));
  }
  return number;
}

// How many different colors are on the screen.
std::size_t ColorsOnScreen(const std::string& dump) {
  constexpr std::size_t kHeaderSize = 0, kColors = 19, kColorSize = 12, kPixelSize = 4;
  if (dump.size() < 100) return 0;
  std::set<std::string> colors;
  for (std::size_t at = HeaderNumber(dump, kHeaderSize) + HeaderNumber(dump, kColors) * kColorSize;
       at + kPixelSize <= dump.size(); at += kPixelSize) {
    colors.insert(dump.substr(at, kPixelSize));
  }
  return colors.size();
}

TEST_P(InstalledProgramsTest, ThePlannerPaintsItsWindow) {
  BROVANTA_NEED_TOOL("Xvfb");
  ChildProcess screen({"/usr/bin/env", "Xvfb", "-displayfd", "1", "-screen", "0", "360x640x24",
                       "-nolisten", "tcp", "-fbdir", folder_.path()},
                      folder_.File("screen errors"));
  display_ = ":";
  display_ += screen.ReadLine();
  ASSERT_NE(display_, ":") << folder_.ReadText("screen errors").value_or("");
  const auto shown = [this] {
    return ColorsOnScreen(folder_.ReadText("Xvfb_screen0").value_or(""));
  };
  ASSERT_LE(shown(), 2U) << "the empty screen";
  const ChildProcess planner({Program("brovanta")}, folder_.File("errors"), Environment("xcb"));
  // Smooth letters on several grounds and the pictures of the bar make many colors.
  EXPECT_TRUE(Comes([&] { return shown() >= 100; }, planner)) << shown();
  EXPECT_EQ(folder_.ReadText("errors").value_or("?"), "");
  EXPECT_FALSE(planner.Ended());
}

INSTANTIATE_TEST_SUITE_P(From, InstalledProgramsTest, testing::Values("prefix", "root/usr"),
                         [](const auto& from) {
                           return from.param == std::string("prefix") ? "Prefix" : "Packages";
                         });

}  // namespace
}  // namespace brovanta

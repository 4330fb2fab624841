// scripts/run with a stand-in for the program and the real server, moved to a free port.
#include <gmock/gmock.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "server/listener.h"
#include "tests/server/raw_client.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"
#include "util/unique_fd.h"

namespace brovanta {
namespace {

using test::ChildProcess;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

// Names the update server, or runs: asks the demonstration server for something, says so, and goes
// on until it is let go where the test wants that.
constexpr char kProgram[] = R"sh(#!/usr/bin/env bash
cd "$(dirname "$0")/.."
if [ "${1:-}" = --show-update-server ]; then
  cat update_server
  exit
fi
echo "arguments: $*" >program_started
if [ -e address ]; then
  exec 3<>"/dev/tcp/127.0.0.1/$(sed 's/.*://' address)"
  printf 'GET /stores.aspx?idx=29&user=x HTTP/1.0\r\n\r\n' >&3
  cat <&3 >answer
  exec 3>&-
fi
echo "the program runs"
[ ! -e hold ] || read -r <hold
exit 3
)sh";

// The real server at the address that the test wants; tells its process and where it listens.
constexpr char kServer[] = R"sh(#!/usr/bin/env bash
here=$(cd "$(dirname "$0")/.." && pwd)
echo "$*" >"$here/server_arguments"
arguments=("${@//127.0.0.1:8427/$(cat "$here/listen")}")
echo $$ >"$here/server_process"
exec "$here/real_server" "${arguments[@]}" > >(
  while read -r line; do
    echo "$line" >"$here/address"
    echo "$line"
  done
)
)sh";

class RunScriptTest : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(folder_.File("build/bin"));
    fs::create_symlink(BROVANTA_SERVER_PROGRAM, folder_.File("build/real_server"));
    WriteScript("build/bin/brovanta", kProgram);
    WriteScript("build/bin/brovanta-server", kServer);
    folder_.WriteText("build/listen", "127.0.0.1:0");
    folder_.WriteText("build/update_server", "http://localhost:8427\n");
  }

  void WriteScript(const std::string& name, const std::string& text) {
    folder_.WriteText(name, text);
    fs::permissions(folder_.File(name), fs::perms(0700));
  }

  // Makes the stand-in run on until Release.
  void Hold() { ASSERT_EQ(mkfifo(folder_.File("build/hold").c_str(), 0600), 0); }
  void Release() { folder_.WriteText("build/hold", "\n"); }

  std::unique_ptr<ChildProcess> Start() {
    return std::make_unique<ChildProcess>(
        std::vector<std::string>{BROVANTA_SCRIPTS "/run", folder_.File("build")},
        folder_.File("errors"),
        std::vector<ChildProcess::Setting>{{"XDG_DATA_HOME", folder_.File("data")},
                                           {"QT_QPA_PLATFORM", "offscreen"}});
  }

  // Starts the script and waits until the stand-in runs.
  std::unique_ptr<ChildProcess> StartAndHold() {
    Hold();
    auto script = Start();
    std::string line = script->ReadLine();
    while (!line.empty() && line != "the program runs") line = script->ReadLine();
    EXPECT_EQ(line, "the program runs");
    return script;
  }

  std::string Text(const std::string& name) { return folder_.ReadText(name).value_or(""); }

  bool ServerAnswers() {
    const std::string line = Text("build/address");
    EXPECT_THAT(line, StartsWith("listening on 127.0.0.1:"));
    return test::RawClient(line.substr(line.rfind(' ') + 1, line.find('\n') - line.rfind(' ') - 1))
        .connected();
  }

  test::TempFolder folder_;
};

TEST_F(RunScriptTest, TheServerIsThereForTheProgramAndGoneAfterwards) {
  const auto script = Start();
  EXPECT_THAT(script->ReadAll(),
              AllOf(StartsWith("The demonstration server is listening on 127.0.0.1:"),
                    HasSubstr(folder_.File("data/brovanta-server/demo.log")),
                    HasSubstr("the program runs\n")));
  EXPECT_EQ(script->Wait(), 3) << "the program's own exit status";
  EXPECT_THAT(Text("build/answer"), AllOf(StartsWith("HTTP/1.1 200"), HasSubstr("<IT><ID>30")));
  EXPECT_THAT(Text("build/server_arguments"), HasSubstr(" --listen 127.0.0.1:8427 --demo\n"));
  EXPECT_EQ(Text("build/program_started"), "arguments: \n");
  EXPECT_FALSE(ServerAnswers());
  EXPECT_EQ(Text("errors"), "");
  EXPECT_THAT(Text("data/brovanta-server/demo.log"),
              AllOf(HasSubstr(" GET /stores.aspx?idx=29&user=- 200 "),
                    HasSubstr("brovanta-server: ended\n")));
  EXPECT_TRUE(fs::exists(folder_.File("data/brovanta-server/demo.db")));
}

TEST_F(RunScriptTest, AProgramWithAnUpdateServerOfItsOwnGetsNone) {
  folder_.WriteText("build/update_server", "http://update.example:80\n");
  const auto script = Start();
  EXPECT_EQ(script->ReadAll(), "the program runs\n");
  EXPECT_EQ(script->Wait(), 3);
  EXPECT_FALSE(fs::exists(folder_.File("build/server_arguments")));
  EXPECT_FALSE(fs::exists(folder_.File("data")));
}

TEST_F(RunScriptTest, ATakenPortIsSaidAndTheProgramStartsAllTheSame) {
  std::string error;
  const auto taken = server::Listen({"127.0.0.1", 0}, error);
  ASSERT_TRUE(taken) << error;
  folder_.WriteText("build/listen", taken->address);
  const auto script = Start();
  EXPECT_EQ(script->ReadAll(), "the program runs\n");
  EXPECT_EQ(script->Wait(), 3);
  EXPECT_EQ(Text("errors"),
            "Something else on this machine listens on 127.0.0.1:8427: no demonstration server is "
            "started.\nUpdate asks whatever answers there.\n");
}

TEST_F(RunScriptTest, AServerThatCannotStartSaysWhy) {
  fs::create_directories(folder_.File("data/brovanta-server"));
  folder_.WriteText("data/brovanta-server/demo.db", std::string(2000, 'x'));
  const auto script = Start();
  EXPECT_EQ(script->ReadAll(), "the program runs\n");
  EXPECT_EQ(script->Wait(), 3);
  EXPECT_THAT(Text("errors"), AllOf(StartsWith("The demonstration server could not be started"),
                                    HasSubstr("demo.db: file is not a database")));
}

TEST_F(RunScriptTest, WithoutAPlaceForItsDataTheProgramStartsAllTheSame) {
  folder_.WriteText("data", "a file where the folder should be");
  const auto script = Start();
  EXPECT_EQ(script->ReadAll(), "the program runs\n");
  EXPECT_EQ(script->Wait(), 3);
  EXPECT_THAT(Text("errors"), HasSubstr("has no place for its data"));
}

TEST_F(RunScriptTest, ABuildWithoutTheServerJustRuns) {
  fs::remove(folder_.File("build/bin/brovanta-server"));
  const auto script = Start();
  EXPECT_EQ(script->ReadAll(), "the program runs\n");
  EXPECT_EQ(script->Wait(), 3);
  EXPECT_EQ(Text("errors"), "");
}

TEST_F(RunScriptTest, AnEndedScriptTakesProgramAndServerAlong) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    const auto script = StartAndHold();
    EXPECT_TRUE(ServerAnswers());
    script->Signal(signal);
    EXPECT_THAT(script->ReadAll(), IsEmpty()) << "the program had ended";
    EXPECT_EQ(script->Wait(), 128 + SIGTERM);
    EXPECT_FALSE(ServerAnswers());
    fs::remove(folder_.File("build/hold"));
  }
}

TEST_F(RunScriptTest, AKilledScriptLeavesNoServerBehind) {
  const auto script = StartAndHold();
  const pid_t process = std::stoi(Text("build/server_process"));
  const UniqueFd server(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
  ASSERT_TRUE(server.valid());
  script->Signal(SIGKILL);
  EXPECT_EQ(script->Wait(), -SIGKILL);
  pollfd ended{server.get(), POLLIN, 0};
  EXPECT_EQ(poll(&ended, 1, 60'000), 1);
  EXPECT_FALSE(ServerAnswers());
  Release();
}

}  // namespace
}  // namespace brovanta

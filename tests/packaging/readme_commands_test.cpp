// The commands of the README do what a reader expects of them: run as they are printed.
#include <arpa/inet.h>
#include <glob.h>
#include <gmock/gmock.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <stop_token>
#include <string>
#include <vector>

#include "data/daily_backup.h"
#include "tests/data/sample_folder.h"
#include "tests/packaging/staged.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"
#include "tests/support/working_folder.h"

namespace brovanta {
namespace {

using test::ChildProcess;
using test::RunTool;
using test::Staged;
using test::TextOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace fs = std::filesystem;

constexpr int kPort = 8427;

std::string Document(const std::string& name) {
  return TextOf(std::string(BROVANTA_SOURCE_FOLDER "/") + name);
}

/// What stands between the fences of a language, in blocks that begin so.
std::vector<std::string> Blocks(const std::string& page, const std::string& language,
                                const std::string& start = "") {
  const std::string open = "\n```" + language + "\n";
  std::vector<std::string> blocks;
  for (std::size_t at = page.find(open); at != std::string::npos; at = page.find(open, at)) {
    at += open.size();
    std::string block = page.substr(at, page.find("```\n", at) - at);
    if (block.starts_with(start)) blocks.push_back(std::move(block));
  }
  return blocks;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

bool PortIsFree() {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const int on = 1;
  setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(kPort);
  const bool free = bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
  close(socket);
  return free;
}

/// A reader with the installed programs, a data folder with a copy of the day, and the files that
/// the commands name, out of the pages that the README refers to.
class ReadmeCommandsTest : public testing::Test {
 protected:
  ReadmeCommandsTest() {
    for (const char* name : {"home", "runtime", "work"}) fs::create_directory(folder_.File(name));
    fs::permissions(folder_.File("runtime"), fs::perms(0700));
    const std::string data = folder_.File("home/.local/share/brovanta");
    fs::create_directories(data);
    test::MakeHousehold(data);
    const DailyBackup backup(data);
    const auto snapshot = backup.Read();
    EXPECT_TRUE(snapshot && backup.Keep(*snapshot, std::stop_token())) << "the copy of the day";
    const std::string server = Document("docs/server.md");
    const std::string agents = Document("docs/agents.md");
    WriteSample("stores.csv", Blocks(server, "", "id,name\n"));
    WriteSample("coupons.csv", Blocks(server, "", "source,id,"));
    WriteSample("categories.csv", {"id,name\n3,Bakery\n8,Dairy\n"});
    WriteSample("agents.xml", Blocks(agents, "xml"));
    WriteSample("page.html", Blocks(agents, "html"));
  }

  void WriteSample(const std::string& name, const std::vector<std::string>& blocks) {
    ASSERT_EQ(blocks.size(), 1U) << name;
    folder_.WriteText("work/" + name, blocks[0]);
  }

  [[nodiscard]] std::vector<ChildProcess::Setting> Environment() const {
    const std::string home = folder_.File("home");
    const char* const path = getenv("PATH");
    return {{"HOME", home},
            {"XDG_DATA_HOME", home + "/.local/share"},
            {"XDG_CONFIG_HOME", home + "/.config"},
            {"XDG_CACHE_HOME", home + "/.cache"},
            {"XDG_RUNTIME_DIR", folder_.File("runtime")},
            {"PATH", Staged("prefix/bin") + ":" + (path != nullptr ? path : "/usr/bin:/bin")}};
  }

  /// What is wrong with a line, empty when it does what is expected of it.
  [[nodiscard]] std::string Complaint(const std::string& line) const {
    if (line.starts_with("make ")) return ComplaintOfMake(line);
    if (line.starts_with("sudo apt install ")) return ComplaintOfInstall(line);
    const test::WorkingFolder working(folder_.File("work"));
    if (line.find(" --listen ") != std::string::npos) return ComplaintOfServer(line);
    ChildProcess shell({"/bin/sh", "-c", line}, folder_.File("errors"), Environment());
    const std::string output = shell.ReadAll();
    if (shell.Wait() == 0) return {};
    return line + ": " + output + TextOf(folder_.File("errors"));
  }

  /// Those are what CI begins with, as a reader does.
  static std::string ComplaintOfMake(const std::string& line) {
    for (const std::string& step : LinesOf(Document(".ci/run"))) {
      if (step.starts_with("step ") && step.ends_with(" " + line)) return {};
    }
    return line + ": .ci/run has no such step";
  }

  /// Nothing is installed here; the package is looked for where `make package` would have put it.
  static std::string ComplaintOfInstall(const std::string& line) {
    const std::string folder = "./build/package/";
    const std::size_t at = line.find(" " + folder);
    if (at == std::string::npos) return line + ": not out of build/package";
    for (const char* tool : {"dpkg-deb", "dpkg-shlibdeps", "file"}) {
      if (!test::HasTool(tool)) return {};  // no packages are made then
    }
    glob_t found{};
    const std::string pattern = Staged("debs/") + line.substr(at + 1 + folder.size());
    const bool one = glob(pattern.c_str(), 0, nullptr, &found) == 0 && found.gl_pathc == 1;
    const std::string package = one ? found.gl_pathv[0] : "";
    globfree(&found);
    if (!one) return line + ": not one package of those that are built";
    const auto outcome = RunTool({"dpkg-deb", "--field", package, "Package"});
    return outcome.output == "brovanta\n" ? std::string() : line + ": is " + outcome.output;
  }

  /// It serves until it is told to end. Where something else has its port, it says so.
  [[nodiscard]] std::string ComplaintOfServer(const std::string& line) const {
    const bool free = PortIsFree();
    ChildProcess server({"/bin/sh", "-c", "exec " + line}, folder_.File("errors"), Environment());
    const std::string said = server.ReadLine();
    if (said.starts_with("listening on ")) server.Signal(SIGTERM);
    const int status = server.Wait();
    const std::string errors = TextOf(folder_.File("errors"));
    const bool good = free ? said == "listening on 0.0.0.0:8427" && status == 0
                           : errors.find("Address already in use") != std::string::npos;
    return good ? std::string() : line + ": " + said + errors;
  }

  test::TempFolder folder_;
};

TEST_F(ReadmeCommandsTest, EveryLineRunsAsItIsPrinted) {
  std::vector<std::string> complaints;
  std::map<std::string, int> lines;
  for (const std::string& block : Blocks(Document("README.md"), "sh")) {
    for (const std::string& line : LinesOf(block)) {
      if (std::string complaint = Complaint(line); !complaint.empty()) {
        complaints.push_back(std::move(complaint));
      }
      ++lines[line.substr(0, line.find(' '))];
    }
  }
  EXPECT_THAT(complaints, IsEmpty());
  for (const char* program :
       {"make", "sudo", "brovanta-data", "brovanta-agent", "brovanta-server"}) {
    EXPECT_GT(lines[program], 0) << program;
  }
  for (const char* made : {"work/shopping.json", "work/week.pdf", "work/shopping.ics",
                           "work/shop.db", "home/another-folder/product.dat"}) {
    EXPECT_TRUE(fs::exists(folder_.File(made))) << made;
  }
}

TEST_F(ReadmeCommandsTest, ALineThatCannotRunIsSeen) {
  BROVANTA_NEED_PACKAGES();
  EXPECT_THAT(Complaint("make dinner"), HasSubstr("no such step"));
  EXPECT_THAT(Complaint("sudo apt install ./build/package/planner_*.deb"), HasSubstr("not one"));
  EXPECT_THAT(Complaint("sudo apt install ./build/package/brovanta-server_*.deb"),
              HasSubstr("is brovanta-server"));
  EXPECT_THAT(Complaint("sudo apt install brovanta"), HasSubstr("not out of build/package"));
  EXPECT_THAT(Complaint("brovanta-data list --fortnight ~/.local/share/brovanta"), Not(IsEmpty()));
  EXPECT_THAT(Complaint("brovanta-agent check missing.xml"), HasSubstr("missing.xml"));
  EXPECT_THAT(Complaint("brovanta-shop --help"), HasSubstr("not found"));
  EXPECT_THAT(Complaint("brovanta-server --data shop.db --listen nowhere"), Not(IsEmpty()));
}

}  // namespace
}  // namespace brovanta

// The Debian packages: what is in them, and what installing and removing them leaves.
#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "tests/packaging/staged.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::FilesBelow;
using test::Outcome;
using test::RunTool;
using test::Staged;
using test::TextOf;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace fs = std::filesystem;

constexpr const char* kPackages[] = {"brovanta", "brovanta-server"};

std::string Deb(const std::string& package) { return Staged(package + ".deb"); }

std::string Field(const std::string& package, const std::string& field) {
  std::string value = RunTool({"dpkg-deb", "--field", Deb(package), field}).output;
  while (!value.empty() && value.back() == '\n') value.pop_back();
  return value;
}

TEST(PackagesTest, HoldWhatAnInstallationHoldsCompressedWhereDebianWantsIt) {
  BROVANTA_NEED_PACKAGES();
  std::set<std::string> expected = {"usr/share/doc/brovanta/changelog.Debian.gz",
                                    "usr/share/doc/brovanta-server/changelog.Debian.gz"};
  for (const std::string& file : FilesBelow(Staged("prefix"))) {
    expected.insert("usr/" + file + (file.starts_with("share/man/") ? ".gz" : ""));
  }
  EXPECT_EQ(FilesBelow(Staged("root")), expected);
}

TEST(PackagesTest, BelongToRootAndToNobodyElseToWrite) {
  BROVANTA_NEED_PACKAGES();
  // "-rwxr-xr-x root/root      1234 2025-01-01 12:00 ./usr/bin/brovanta"
  const std::regex line_form(R"((\S+) (\S+) +\d+ \S+ \S+ (\./\S*))");
  for (const char* package : kPackages) {
    std::istringstream list(RunTool({"dpkg-deb", "--contents", Deb(package)}).output);
    int lines = 0;
    for (std::string line; std::getline(list, line); ++lines) {
      std::smatch part;
      ASSERT_TRUE(std::regex_match(line, part, line_form)) << line;
      const std::string path = part[3];
      EXPECT_EQ(part[2], "root/root") << line;
      EXPECT_TRUE(path.starts_with("./usr/")) << line;
      const bool program = path.starts_with("./usr/bin/") && !path.ends_with("/");
      EXPECT_EQ(part[1], path.ends_with("/") ? "drwxr-xr-x"
                         : program           ? "-rwxr-xr-x"
                                             : "-rw-r--r--")
          << line;
    }
    EXPECT_GT(lines, 10) << package;
  }
}

TEST(PackagesTest, TellWhatTheyAreAndWhatTheyNeed) {
  BROVANTA_NEED_PACKAGES();
  for (const std::string package : kPackages) {
    EXPECT_EQ(Field(package, "Package"), package);
    EXPECT_EQ(Field(package, "Version"), BROVANTA_VERSION "-1");
    EXPECT_EQ(Field(package, "Maintainer"),
              "The Brovanta developers <developers@brovanta.example>");
    EXPECT_EQ(Field(package, "Homepage"), "") << "there is none";
    EXPECT_THAT(Field(package, "Depends"), AllOf(HasSubstr("libc6"), HasSubstr("libstdc++6")));
    const std::string file = fs::read_symlink(Deb(package)).filename().string();
    EXPECT_EQ(file, package + "_" BROVANTA_VERSION "-1_" + Field(package, "Architecture") + ".deb");
  }
  EXPECT_THAT(Field("brovanta", "Depends"),
              AllOf(HasSubstr("libqt6widgets6"), HasSubstr("libcurl4")));
  EXPECT_THAT(Field("brovanta", "Recommends"),
              AllOf(HasSubstr("qt6-wayland"), HasSubstr("qt6-translations-l10n")));
  EXPECT_THAT(Field("brovanta-server", "Depends"),
              AllOf(HasSubstr("libsqlite3"), Not(HasSubstr("qt"))));
}

TEST(PackagesTest, TheChangelogEndsWithThisVersion) {
  BROVANTA_NEED_PACKAGES();
  for (const std::string package : kPackages) {
    const Outcome log =
        RunTool({"gzip", "-dc", Staged("root/usr/share/doc/" + package + "/changelog.Debian.gz")});
    EXPECT_TRUE(log.output.starts_with(package + " (" + Field(package, "Version") + ") "))
        << log.output;
  }
}

TEST(PackagesTest, TheProgramNeedsNoScriptsAndTheServerHasThree) {
  BROVANTA_NEED_PACKAGES();
  EXPECT_THAT(FilesBelow(Staged("control/brovanta")), testing::ElementsAre("control", "md5sums"));
  EXPECT_THAT(FilesBelow(Staged("control/brovanta-server")),
              testing::ElementsAre("control", "md5sums", "postinst", "postrm", "prerm"));
  for (const char* script : {"postinst", "postrm", "prerm"}) {
    EXPECT_EQ(RunTool({"sh", "-n", Staged("control/brovanta-server/") + script}).status, 0);
  }
}

// A root in which nothing is but what dpkg needs to know that nothing is.
class FreshRootTest : public testing::Test {
 protected:
  void SetUp() override {
    BROVANTA_NEED_PACKAGES();
    BROVANTA_NEED_TOOL("dpkg");
    if (geteuid() != 0) {
      BROVANTA_NEED_TOOL("fakeroot");
    }
    fs::create_directories(folder_.File("root/var/lib/dpkg/info"));
    fs::create_directories(folder_.File("root/var/lib/dpkg/updates"));
    folder_.WriteText("root/var/lib/dpkg/status", "");
  }

  // What is needed of other packages is not there, and the scripts run outside.
  void Dpkg(const std::string& action, const std::string& what) {
    std::vector<std::string> words = {"dpkg",
                                      "--root=" + Root(),
                                      "--log=" + folder_.File("log"),
                                      "--force-depends",
                                      "--force-not-root",
                                      "--force-script-chrootless",
                                      action,
                                      what};
    if (geteuid() != 0) words.insert(words.begin(), "fakeroot");
    const Outcome outcome = RunTool(words);
    EXPECT_EQ(outcome.status, 0) << outcome.output;
  }

  std::string Root() { return folder_.File("root"); }

  // The files of the packages and of the administrator, without the books of the package manager.
  std::set<std::string> Files() {
    std::set<std::string> files = FilesBelow(Root());
    std::erase_if(files, [](const std::string& file) {
      return file.starts_with("var/lib/dpkg/") || file.starts_with("var/lib/systemd/");
    });
    return files;
  }

  test::TempFolder folder_;
};

constexpr char kServerData[] = "root/var/lib/private/brovanta-server";
constexpr char kEnabled[] =
    "root/etc/systemd/system/multi-user.target.wants/brovanta-server.service";
constexpr char kMasked[] = "root/etc/systemd/system/brovanta-server.service";

TEST_F(FreshRootTest, InstallingUpgradingAndRemovingLeavesNothing) {
  for (const char* package : kPackages) Dpkg("--install", Deb(package));
  const std::set<std::string> installed = Files();
  EXPECT_EQ(installed, FilesBelow(Staged("root"))) << "the service is not enabled";
  for (const char* package : kPackages) Dpkg("--install", Deb(package));
  EXPECT_EQ(Files(), installed);
  for (const char* package : kPackages) Dpkg("--purge", package);
  EXPECT_THAT(Files(), IsEmpty());
  EXPECT_FALSE(fs::exists(folder_.File("root/usr"))) << "no empty folders either";
}

TEST_F(FreshRootTest, TheDataOfTheServerOutlivesItAndGoesWithAPurge) {
  Dpkg("--install", Deb("brovanta-server"));
  fs::create_directories(folder_.File(kServerData));
  folder_.WriteText(std::string(kServerData) + "/server.db", "coupons");
  fs::create_directory_symlink("private/brovanta-server",
                               folder_.File("root/var/lib/brovanta-server"));
  Dpkg("--install", Deb("brovanta-server"));
  Dpkg("--remove", "brovanta-server");
  EXPECT_THAT(Files(), AllOf(Contains("var/lib/private/brovanta-server/server.db"),
                             Not(Contains(HasSubstr("usr/")))));
  Dpkg("--purge", "brovanta-server");
  EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(FreshRootTest, AnEnabledServiceStaysSoUntilItIsPurged) {
  BROVANTA_NEED_TOOL("deb-systemd-helper");
  Dpkg("--install", Deb("brovanta-server"));
  EXPECT_FALSE(fs::is_symlink(folder_.File(kEnabled)));
  // As `systemctl enable` does.
  fs::create_directories(fs::path(folder_.File(kEnabled)).parent_path());
  fs::create_symlink("/usr/lib/systemd/system/brovanta-server.service", folder_.File(kEnabled));
  Dpkg("--install", Deb("brovanta-server"));
  EXPECT_TRUE(fs::is_symlink(folder_.File(kEnabled)));
  Dpkg("--remove", "brovanta-server");
  EXPECT_EQ(fs::read_symlink(folder_.File(kMasked)), "/dev/null") << "nothing starts what is gone";
  Dpkg("--install", Deb("brovanta-server"));
  EXPECT_FALSE(fs::is_symlink(folder_.File(kMasked)));
  EXPECT_TRUE(fs::is_symlink(folder_.File(kEnabled)));
  Dpkg("--purge", "brovanta-server");
  EXPECT_THAT(Files(), IsEmpty());
}

}  // namespace
}  // namespace brovanta

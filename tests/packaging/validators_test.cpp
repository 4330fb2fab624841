// What others' tools say about what is installed.
#include <gmock/gmock.h>

#include <string>

#include "tests/packaging/staged.h"

namespace brovanta {
namespace {

using test::FilesBelow;
using test::Outcome;
using test::RunTool;
using test::Staged;
using testing::HasSubstr;

constexpr char kUnit[] = "prefix/lib/systemd/system/brovanta-server.service";

TEST(ValidatorsTest, TheMenuEntryIsValid) {
  BROVANTA_NEED_TOOL("desktop-file-validate");
  const Outcome outcome =
      RunTool({"desktop-file-validate", "--warn-kde",
               Staged("prefix/share/applications/org.brovanta.Brovanta.desktop")});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
}

TEST(ValidatorsTest, TheDescriptionForSoftwareCentersIsValid) {
  BROVANTA_NEED_TOOL("appstreamcli");
  const Outcome outcome =
      RunTool({"appstreamcli", "validate", "--no-net", "--strict",
               Staged("prefix/share/metainfo/org.brovanta.Brovanta.metainfo.xml")});
  EXPECT_EQ(outcome.status, 0) << outcome.output;
  EXPECT_THAT(test::TextOf(Staged("prefix/share/metainfo/org.brovanta.Brovanta.metainfo.xml")),
              HasSubstr("<release version=\"" BROVANTA_VERSION "\""));
}

TEST(ValidatorsTest, TheManualPagesAreSetWithoutAWarning) {
  BROVANTA_NEED_TOOL("man");
  for (const std::string& page : FilesBelow(Staged("prefix/share/man"))) {
    const Outcome outcome =
        RunTool({"MANWIDTH=80", "MANROFFSEQ=", "man", "--warnings", "-E", "UTF-8", "-Tutf8", "-Z",
                 "-l", Staged("prefix/share/man/" + page)});
    EXPECT_EQ(outcome.status, 0) << page;
    EXPECT_THAT(outcome.output, HasSubstr("x T utf8")) << page << " was set";
    // Warnings name the page and the line.
    EXPECT_THAT(outcome.output, testing::Not(HasSubstr(": warning"))) << page;
    EXPECT_THAT(outcome.output, testing::Not(HasSubstr(": error"))) << page;
  }
}

TEST(ValidatorsTest, ThePackagesFollowThePolicyOfTheDistribution) {
  BROVANTA_NEED_PACKAGES();
  BROVANTA_NEED_TOOL("lintian");
  // The first changelog of what is for no archive closes no report.
  const Outcome outcome = RunTool({"lintian", "--allow-root", "--fail-on", "warning,error",
                                   "--suppress-tags", "initial-upload-closes-no-bugs",
                                   Staged("brovanta.deb"), Staged("brovanta-server.deb")});
  EXPECT_EQ(outcome.status, 0) << outcome.output;
}

TEST(ValidatorsTest, TheUnitIsValid) {
  BROVANTA_NEED_TOOL("systemd-analyze");
  const Outcome outcome = RunTool({"systemd-analyze", "verify", "--man=no", Staged(kUnit)});
  EXPECT_EQ(outcome.status, 0) << outcome.output;
  EXPECT_THAT(outcome.output, testing::Not(HasSubstr("brovanta-server.service"))) << "no complaint";
}

TEST(ValidatorsTest, TheUnitLeavesTheServiceLittleToHarm) {
  BROVANTA_NEED_TOOL("systemd-analyze");
  // 0.0 is least, 10.0 most; in tenths here. A service on the network cannot get far below 1.1.
  const Outcome outcome = RunTool({"systemd-analyze", "security", "--offline=true",
                                   "--threshold=15", "--no-pager", Staged(kUnit)});
  EXPECT_EQ(outcome.status, 0) << outcome.output;
  EXPECT_THAT(outcome.output, HasSubstr("Overall exposure level"));
}

// "ID RUNTIME COMMAND", then what the sandbox lets through.
constexpr char kReadManifest[] = R"py(
import json, sys
manifest = json.load(open(sys.argv[1], encoding="utf-8"))
print(manifest["id"], manifest["runtime"], manifest["sdk"], manifest["command"])
print(*sorted(manifest["finish-args"]))
for module in manifest["modules"]:
    print(module["name"], module["buildsystem"], *[source["type"] for source in module["sources"]])
)py";

TEST(ValidatorsTest, TheSandboxedPackageGetsNetworkAndWindowsOnly) {
  BROVANTA_NEED_TOOL("python3");
  const Outcome outcome =
      RunTool({"python3", "-c", kReadManifest, BROVANTA_PACKAGING "/org.brovanta.Brovanta.json"});
  EXPECT_EQ(outcome.output,
            "org.brovanta.Brovanta org.kde.Platform org.kde.Sdk brovanta\n"
            "--share=ipc --share=network --socket=fallback-x11 --socket=wayland\n"
            "nlohmann-json cmake-ninja git\n"
            "brovanta cmake-ninja dir\n");
}

}  // namespace
}  // namespace brovanta

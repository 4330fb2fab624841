// What `cmake --install` puts where.
#include <gmock/gmock.h>

#include <QImage>
#include <filesystem>
#include <set>
#include <string>

#include "tests/packaging/staged.h"

namespace brovanta {
namespace {

using test::FilesBelow;
using test::Staged;
using test::TextOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

constexpr char kUnit[] = "lib/systemd/system/brovanta-server.service";
constexpr char kId[] = "org.brovanta.Brovanta";

// What is there beside the programs that come and go with options of the build.
const std::set<std::string> kAlways = {
    "bin/brovanta",
    "bin/brovanta-agent",
    "bin/brovanta-data",
    "bin/brovanta-server",
    "lib/systemd/system/brovanta-server.service",
    "share/applications/org.brovanta.Brovanta.desktop",
    "share/doc/brovanta/agents.md",
    "share/doc/brovanta/copyright",
    "share/doc/brovanta/data.md",
    "share/doc/brovanta/formats/product.md",
    "share/doc/brovanta-server/agents.md",
    "share/doc/brovanta-server/copyright",
    "share/doc/brovanta-server/formats/agents.md",
    "share/doc/brovanta-server/formats/feeds.md",
    "share/doc/brovanta-server/server.md",
    "share/icons/hicolor/128x128/apps/org.brovanta.Brovanta.png",
    "share/icons/hicolor/16x16/apps/org.brovanta.Brovanta.png",
    "share/icons/hicolor/24x24/apps/org.brovanta.Brovanta.png",
    "share/icons/hicolor/256x256/apps/org.brovanta.Brovanta.png",
    "share/icons/hicolor/32x32/apps/org.brovanta.Brovanta.png",
    "share/icons/hicolor/48x48/apps/org.brovanta.Brovanta.png",
    "share/icons/hicolor/64x64/apps/org.brovanta.Brovanta.png",
    "share/icons/hicolor/scalable/apps/org.brovanta.Brovanta.svg",
    "share/man/man1/brovanta-agent.1",
    "share/man/man1/brovanta-data.1",
    "share/man/man1/brovanta-server.1",
    "share/man/man1/brovanta.1",
    "share/metainfo/org.brovanta.Brovanta.metainfo.xml",
};

std::set<std::string> Programs() { return FilesBelow(Staged("prefix/bin")); }

// The value of a line "key=value" of a text.
std::string Value(const std::string& text, const std::string& key) {
  const std::size_t at = text.find("\n" + key + "=");
  if (at == std::string::npos) return {};
  const std::size_t start = at + key.size() + 2;
  return text.substr(start, text.find('\n', start) - start);
}

TEST(InstalledFilesTest, EverythingIsThere) {
  const std::set<std::string> files = FilesBelow(Staged("prefix"));
  for (const std::string& file : kAlways) EXPECT_THAT(files, Contains(file));
}

TEST(InstalledFilesTest, AnotherPrefixBelowAStagingRootHoldsTheSame) {
  EXPECT_EQ(FilesBelow(Staged("destdir/opt/brovanta")), FilesBelow(Staged("prefix")));
  EXPECT_EQ(FilesBelow(Staged("destdir")).size(), FilesBelow(Staged("prefix")).size())
      << "nothing beside the prefix";
}

TEST(InstalledFilesTest, EveryProgramHasItsManualPageAndNothingElseIsInBin) {
  for (const std::string& program : Programs()) {
    EXPECT_THAT(program, testing::StartsWith("brovanta"));
    EXPECT_THAT(FilesBelow(Staged("prefix/share/man/man1")), Contains(program + ".1"));
  }
}

TEST(InstalledFilesTest, TheServerCanBeInstalledAlone) {
  const std::set<std::string> files = FilesBelow(Staged("parts"));
  EXPECT_THAT(FilesBelow(Staged("parts/bin")), ElementsAre("brovanta-server"));
  EXPECT_THAT(files, Contains(kUnit));
  EXPECT_THAT(files, Not(Contains(HasSubstr(kId))));
}

TEST(InstalledFilesTest, TheUnitNamesTheProgramWhereItIs) {
  const std::string here = TextOf(Staged("prefix/") + kUnit);
  EXPECT_THAT(Value(here, "ExecStart"),
              testing::StartsWith(Staged("prefix/bin/brovanta-server") + " --data "));
  EXPECT_THAT(Value(here, "Documentation"), HasSubstr("file:" + Staged("prefix/share/doc/")));
  const std::string elsewhere = TextOf(Staged("destdir/opt/brovanta/") + kUnit);
  EXPECT_THAT(Value(elsewhere, "ExecStart"),
              testing::StartsWith("/opt/brovanta/bin/brovanta-server --data "));
  EXPECT_THAT(elsewhere, Not(HasSubstr(Staged("")))) << "no path of this machine";
}

TEST(InstalledFilesTest, TheMenuEntryStartsTheProgramUnderItsIcon) {
  const std::string entry =
      TextOf(Staged("prefix/share/applications/") + kId + std::string(".desktop"));
  EXPECT_THAT(Programs(), Contains(Value(entry, "Exec")));
  EXPECT_EQ(Value(entry, "Icon"), kId);
  EXPECT_THAT(Value(entry, "StartupWMClass"), "brovanta") << "what X11 windows carry";
}

TEST(InstalledFilesTest, EveryIconHasTheSizeOfItsFolderAndIsDrawn) {
  int seen = 0;
  for (const auto& folder : fs::directory_iterator(Staged("prefix/share/icons/hicolor"))) {
    const std::string name = folder.path().filename().string();
    if (name == "scalable") continue;
    SCOPED_TRACE(name);
    ++seen;
    const int size = std::stoi(name);
    const QImage icon(QString::fromStdString(folder.path().string() + "/apps/" + kId + ".png"));
    ASSERT_EQ(icon.size(), QSize(size, size));
    EXPECT_LT(qAlpha(icon.pixel(0, 0)), 128) << "a rounded corner";
    std::set<QRgb> colors;
    for (int y = 0; y < size; ++y) {
      for (int x = 0; x < size; ++x) colors.insert(icon.pixel(x, y));
    }
    EXPECT_THAT(colors, Contains(qRgb(0x00, 0x00, 0x80))) << "the ground";
    EXPECT_THAT(colors, Contains(qRgb(0xff, 0xff, 0xff))) << "the cart";
    EXPECT_THAT(colors, Contains(qRgb(0xff, 0xb2, 0x59))) << "the tick";
  }
  EXPECT_EQ(seen, 7);
}

TEST(InstalledFilesTest, ThePagesNameEveryOptionThatTheHelpNames) {
  for (const std::string& program : Programs()) {
    const auto help = test::RunTool({Staged("prefix/bin/") + program, "--help"});
    EXPECT_EQ(help.status, 0) << program;
    std::string page = TextOf(Staged("prefix/share/man/man1/") + program + ".1");
    std::erase(page, '\\');
    int options = 0;
    for (std::size_t at = help.output.find("--"); at != std::string::npos;
         at = help.output.find("--", at + 2)) {
      const std::size_t end = help.output.find_first_not_of("abcdefghijklmnopqrstuvwxyz-", at);
      EXPECT_THAT(page, HasSubstr(help.output.substr(at, end - at))) << program;
      ++options;
    }
    EXPECT_GE(options, 2) << program << " has --help and --version at least";
  }
}

TEST(InstalledFilesTest, TheCopyrightHoldsTheWholeLicence) {
  std::string licence = TextOf(BROVANTA_PACKAGING "/../LICENSE");
  licence = licence.substr(licence.find("Permission is"));
  for (std::size_t at = 0; (at = licence.find('\n', at)) != std::string::npos; at += 2) {
    if (at + 1 == licence.size()) break;
    licence.insert(at + 1, licence[at + 1] == '\n' ? " ." : " ");
  }
  EXPECT_THAT(TextOf(Staged("prefix/share/doc/brovanta/copyright")), HasSubstr(licence));
}

}  // namespace
}  // namespace brovanta

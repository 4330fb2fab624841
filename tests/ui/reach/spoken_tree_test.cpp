// The real program as a screen reader gets it, over a message bus of its own.
#include "tests/ui/reach/spoken_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>

#include "tests/ui/reach/private_desktop.h"
#include "tests/ui/reach/screens.h"
#include "tests/ui/reach/text_lines.h"

namespace brovanta::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr int kPatience = 40'000;  // milliseconds
constexpr char kSpoiled[] = "BROVANTA_SPOILED_WINDOW";
constexpr char kAllScreens[] = "BROVANTA_ALL_SCREENS";  // the folder to tell about them in

/// What is told of screen after screen, counted from 1, by the program that opens them...
std::string ShownFile(const std::string& folder, int number) {
  return folder + "/shown " + std::to_string(number);
}

/// ... and the sign that it may go on with the next one.
std::string SeenFile(const std::string& folder, int number) {
  return folder + "/seen " + std::to_string(number);
}

/// A screen of another process; number 0 after the last one.
struct ToldScreen {
  quint32 number = 0;
  std::string name;
};

void Tell(const std::string& path, const ToldScreen& screen) {
  std::ofstream(path + "~") << screen.number << ' ' << screen.name;
  fs::rename(path + "~", path);  // whole, or not there
}

class SpokenTreeTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(desktop_.IsUp()) << "this needs Xvfb, dbus-daemon and at-spi2-core";
  }

  /// All that is shown of the programs, once a part with this name is.
  std::vector<SpokenPart> AwaitPart(const char* name) {
    std::vector<SpokenPart> parts;
    const bool came = QTest::qWaitFor(
        [&] {
          parts.clear();
          for (const SpokenPart& program : Desktop(desktop_.accessibility_bus()).Children()) {
            for (const SpokenPart& window : program.Children()) {
              const auto shown = AllShown(window);
              parts.insert(parts.end(), shown.begin(), shown.end());
            }
          }
          return Find(parts, name) != nullptr;
        },
        kPatience);
    EXPECT_TRUE(came) << "no " << name;
    return parts;
  }

  static const SpokenPart* Find(const std::vector<SpokenPart>& parts, const char* name) {
    const auto found = std::find_if(parts.begin(), parts.end(), [name](const SpokenPart& part) {
      return part.Name() == QLatin1String(name);
    });
    return found == parts.end() ? nullptr : &*found;
  }

  /// This test program again, on the desktop, for one of its tests.
  void StartHere(const char* filter, const std::string& setting) {
    const QByteArray program = QApplication::applicationFilePath().toUtf8();
    desktop_.Start(
        {"/usr/bin/env", setting, program.toStdString(), std::string("--gtest_filter=") + filter});
  }

  static ToldScreen AwaitScreen(const std::string& path) {
    ToldScreen screen;
    EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(path); }, kPatience)) << path;
    std::ifstream file(path);
    file >> screen.number >> std::ws;
    std::getline(file, screen.name);
    return screen;
  }

  /// All that is shown of the part with this number in the only program there is.
  std::vector<SpokenPart> AwaitShown(quint32 number) {
    std::vector<SpokenPart> parts;
    static_cast<void>(QTest::qWaitFor(
        [&] {
          const auto programs = Desktop(desktop_.accessibility_bus()).Children();
          if (!programs.empty()) parts = AllShown(programs.front().Numbered(number));
          return !parts.empty();
        },
        kPatience));
    return parts;
  }

  /// "page tab Products", ...
  static std::vector<std::string> Spoken(const std::vector<SpokenPart>& parts) {
    std::vector<std::string> spoken;
    for (const SpokenPart& part : parts) {
      spoken.push_back((part.Role() + QLatin1Char(' ') + part.Name()).toStdString());
    }
    return spoken;
  }

  PrivateDesktop desktop_;
};

TEST_F(SpokenTreeTest, EveryControlOfTheProgramHasAName) {
  const std::string data = desktop_.folder().File("shopping");
  desktop_.Start({BROVANTA_PROGRAM, "--data-folder", data});
  const auto main = AwaitPart("Tools");
  EXPECT_THAT(Lines(NamelessParts(main)), IsEmpty());
  EXPECT_THAT(
      Spoken(main),
      IsSupersetOf({"dialog Brovanta", "page tab Products", "page tab Coupons",
                    "page tab Purchases", "page tab Web searches", "button menu View: Daily",
                    "push button Update", "button menu All Stores", "button menu All Categories",
                    "button menu Tools", "push button Add", "push button Edit",
                    "push button Delete", "push button Mark as purchased", "push button Find"}));

  ASSERT_NE(Find(main, "Add"), nullptr);
  Find(main, "Add")->Press();
  const auto form = AwaitPart("Purchase Type:");
  EXPECT_GT(form.size(), main.size()) << "the form as well";
  EXPECT_THAT(Lines(NamelessParts(form)), IsEmpty());
}

TEST_F(SpokenTreeTest, AButtonWithoutANameIsSeen) {
  StartHere("SpoiledWindowTest.*", std::string(kSpoiled) + "=1");
  const auto parts = AwaitPart("Spoiled");
  EXPECT_THAT(Lines(NamelessParts(parts)), ElementsAre("push button", "combo box", "text"))
      << "what stands in a field is not its name";
}

TEST_F(SpokenTreeTest, EveryControlOfEveryScreenHasAName) {
  const std::string folder = desktop_.folder().path();
  StartHere("AllScreensTest.*", std::string(kAllScreens) + "=" + folder);
  int seen = 0;
  for (;;) {
    const ToldScreen screen = AwaitScreen(ShownFile(folder, seen + 1));
    if (screen.number == 0) break;
    const auto parts = AwaitShown(screen.number);
    EXPECT_GT(parts.size(), 1U) << screen.name << " has something on it";
    EXPECT_THAT(Lines(NamelessParts(parts)), IsEmpty()) << screen.name;
    ++seen;
    std::ofstream(SeenFile(folder, seen)) << "seen";
  }
  EXPECT_EQ(seen, 82) << "all of them";
}

/// Ended ones that nobody has asked about yet do not count.
bool Runs(int process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string text;
  return std::getline(file, text) && text.find(") Z ") == std::string::npos;
}

TEST(PrivateDesktopTest, LeavesNoProcess) {
  std::unique_ptr<PrivateDesktop> desktop = std::make_unique<PrivateDesktop>();
  ASSERT_TRUE(desktop->IsUp()) << "this needs Xvfb, dbus-daemon and at-spi2-core";
  const std::vector<int> processes = desktop->Processes();
  EXPECT_GE(processes.size(), 4U) << "the screen, two buses and what starts the second";
  desktop.reset();
  for (const int process : processes) {
    // Its memory goes first, by which it was known; the rest of its end follows.
    EXPECT_TRUE(QTest::qWaitFor([process] { return !Runs(process); }, kPatience)) << process;
  }
}

/// Answers the bus all the while. Who waits here for ever is killed with the desktop.
void AwaitFile(const std::string& path) {
  QEventLoop loop;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &loop, [&] {
    if (fs::exists(path)) loop.quit();
  });
  look.start(1);
  loop.exec();
}

/// The screens of the test above, in a process of its own.
TEST(AllScreensTest, AreOpenedOneAfterTheOther) {
  const std::string folder = qEnvironmentVariable(kAllScreens).toStdString();
  if (folder.empty()) return;
  int shown = 0;
  Screens screens;
  screens.ForEach([&](const OpenScreen& open) {
    ++shown;
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(open.screen);
    Tell(ShownFile(folder, shown), {QAccessible::uniqueId(spoken), open.name});
    AwaitFile(SeenFile(folder, shown));
  });
  Tell(ShownFile(folder, shown + 1), {});
}

/// The window of the test above, in a process of its own.
TEST(SpoiledWindowTest, ShowsAButtonWithoutAName) {
  if (qEnvironmentVariableIsEmpty(kSpoiled)) return;
  QWidget window;
  window.setWindowTitle(QStringLiteral("Spoiled"));
  QPushButton button(&window);
  QComboBox box(&window);
  box.addItem(QStringLiteral("Milk"));
  box.setAccessibleName(QStringLiteral("Product"));
  QLineEdit edit(QStringLiteral("9.90"), &window);
  edit.setAccessibleName(QStringLiteral("9.90"));
  window.show();
  QApplication::exec();  // until it is killed
}

}  // namespace
}  // namespace brovanta::test

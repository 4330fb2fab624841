// The real program as a screen reader gets it, over a message bus of its own.
#include "tests/ui/reach/spoken_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <fstream>
#include <memory>

#include "tests/ui/reach/private_desktop.h"
#include "tests/ui/reach/text_lines.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr int kPatience = 40'000;  // milliseconds
constexpr char kSpoiled[] = "BROVANTA_SPOILED_WINDOW";

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
  const QByteArray program = QApplication::applicationFilePath().toUtf8();
  desktop_.Start({"/usr/bin/env", std::string(kSpoiled) + "=1", program.toStdString(),
                  "--gtest_filter=SpoiledWindowTest.*"});
  const auto parts = AwaitPart("Spoiled");
  EXPECT_THAT(Lines(NamelessParts(parts)), ElementsAre("push button"));
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
  for (const int process : processes) EXPECT_FALSE(Runs(process)) << process;
}

/// The window of the test above, in a process of its own.
TEST(SpoiledWindowTest, ShowsAButtonWithoutAName) {
  if (qEnvironmentVariableIsEmpty(kSpoiled)) return;
  QWidget window;
  window.setWindowTitle(QStringLiteral("Spoiled"));
  QPushButton button(&window);
  window.show();
  QApplication::exec();  // until it is killed
}

}  // namespace
}  // namespace brovanta::test

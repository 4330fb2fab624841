// Screens as they behave on a handheld.
#pragma once

#include <QSize>

namespace brovanta::test {

/// Whether this process runs on a handheld's screen.
[[nodiscard]] bool OnSmallScreen();

/// Runs one test ("Suite.Name") of this program in a process of its own, on a screen of so many
/// logical pixels at a scale in percent. Its exit code, 0 = passed.
[[nodiscard]] int RunOnSmallScreen(const char* test, QSize screen = {360, 640}, int scale = 100);

}  // namespace brovanta::test

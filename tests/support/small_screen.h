// Screens as they behave on a handheld.
#pragma once

namespace brovanta::test {

/// Whether this process runs on the handheld's screen.
[[nodiscard]] bool OnSmallScreen();

/// Runs one test ("Suite.Name") of this program in a process of its own, on a screen of 360 x 640.
/// Its exit code, 0 = passed.
[[nodiscard]] int RunOnSmallScreen(const char* test);

}  // namespace brovanta::test

// A desktop of its own for a program that a test starts: screen, message bus, screen reader's bus.
#pragma once

#include <QDBusConnection>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// Everything that runs on it ends with it; nothing of it touches the user's own session.
class PrivateDesktop {
 public:
  PrivateDesktop();
  PrivateDesktop(const PrivateDesktop&) = delete;
  PrivateDesktop& operator=(const PrivateDesktop&) = delete;
  ~PrivateDesktop();

  /// Whether screen and buses are there.
  [[nodiscard]] bool IsUp() const { return up_; }

  /// What a program on this desktop has in its environment.
  [[nodiscard]] const std::vector<ChildProcess::Setting>& environment() const {
    return environment_;
  }

  /// Starts a program; it is killed with the desktop.
  void Start(std::vector<std::string> words);

  /// The bus that programs and screen readers meet on.
  [[nodiscard]] QDBusConnection accessibility_bus() const;

  /// A folder of the desktop's.
  [[nodiscard]] const TempFolder& folder() const { return folder_; }

  /// The processes that have the desktop's environment.
  [[nodiscard]] std::vector<int> Processes() const;

 private:
  /// What this process calls the connections to the buses.
  [[nodiscard]] QString SessionName() const;
  [[nodiscard]] QString AccessibilityName() const;

  bool StartScreen();
  bool StartBuses();
  void End();

  TempFolder folder_;
  std::vector<ChildProcess::Setting> environment_;
  std::vector<std::unique_ptr<ChildProcess>> started_;
  bool up_ = false;
};

}  // namespace brovanta::test

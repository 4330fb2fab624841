// The program as the tour runs it: on a data folder and a clock of its own.
#pragma once

#include <QDateTime>
#include <functional>
#include <memory>
#include <string>

#include "platform/app_options.h"
#include "tests/tour/robot.h"
#include "ui/shell/main_dialog.h"

namespace brovanta::tour {

/// One run of the program, from start to end of its main loop.
class Stage {
 public:
  /// The folder is set up as at a first start where that has not been done.
  explicit Stage(std::string folder);

  /// Starts the program at this moment (universal seconds), lets `act` work with the main window
  /// and closes the window by its close box afterwards.
  void Run(std::int64_t now, QSize size, const std::function<void(MainDialog&)>& act);

  [[nodiscard]] const std::string& folder() const { return folder_; }

 private:
  std::string folder_;
};

/// The first Saturday of the tour, 2026-11-14 10:30, and the one after it, universal seconds.
inline constexpr std::int64_t kFirstSaturday = 1794652200;
inline constexpr std::int64_t kSecondSaturday = kFirstSaturday + 7 * 86400;

}  // namespace brovanta::tour

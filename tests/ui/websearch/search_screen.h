// The search screens over shops on this machine.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "search/search_manager.h"
#include "tests/search/agents.h"
#include "tests/search/raw_searches.h"
#include "tests/support/dialog_watch.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/loopback_shops.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"
#include "ui/websearch/search_progress_dialog.h"

namespace brovanta::test {

inline constexpr int kAtMost = 30'000;  ///< milliseconds for whatever is waited for

/// What a user sees of the progress screen at one moment.
struct ShownProgress {
  std::string status;
  bool done = false;
  bool stop = false;

  friend bool operator==(const ShownProgress&, const ShownProgress&) = default;
};

inline void PrintTo(const ShownProgress& shown, std::ostream* stream) {
  *stream << '"' << shown.status << "\" done " << shown.done << " stop " << shown.stop;
}

[[nodiscard]] ShownProgress ProgressOf(QDialog& dialog);
/// "Shop 2: searching", top to bottom.
[[nodiscard]] std::vector<std::string> AgentRows(QDialog& dialog);
/// Presses a button by a click.
void ClickButton(QWidget& dialog, const char* button_name);

/// States that tests wait for.
[[nodiscard]] bool IsSearching(QDialog& dialog);  ///< "Stop" is enabled
[[nodiscard]] bool HasFinished(QDialog& dialog);  ///< "Done" is enabled
[[nodiscard]] int EndedAgents(QDialog& dialog);   ///< agents that have reported
/// Waits for one, but not for the start-up timer of a progress screen, which fires at once.
void Await(const std::function<bool()>& condition);

/// The network and the system's threads, with agents that begin without a delay.
[[nodiscard]] SearchServices ServicesWithoutDelay();

/// The search manager works in folder_, the agents ask the shops.
class SearchScreenTest : public testing::Test, protected LoopbackShops {
 protected:
  SearchScreenTest();
  ~SearchScreenTest() override;

  /// Another manager, for the same folder; before LoadConfiguration.
  void UseServices(SearchServices services);

  /// Writes the agent file and loads it as the search dialog does.
  void LoadConfiguration();

  /// Runs the progress screen and works in it. Its result.
  int RunProgress(const std::function<void(SearchProgressDialog&)>& work,
                  const QString& name = QStringLiteral("soap"), std::int32_t category = 1,
                  QWidget* parent = nullptr);
  /// The same, up to "Done" with whatever has been found; the results list is closed.
  int RunToDone();

  /// Works in the next dialog or message box.
  void InNextDialog(std::function<void(QWidget&)> work);
  /// Closes the next dialog by its close box, and tells whether there was one.
  std::shared_ptr<bool> CloseNextDialog();

  ZoneGuard zone_{"UTC"};
  FixedClock clock_{1795262400};  // Saturday 2026-11-21 12:00:00 UTC
  TempFolder folder_;
  std::unique_ptr<SearchManager> searches_ =
      std::make_unique<SearchManager>(ServicesWithoutDelay());

 private:
  std::unique_ptr<DialogWatch> dialog_watch_;
};

}  // namespace brovanta::test

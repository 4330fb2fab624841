// The update dialog over a scripted server, watched from state to state.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "tests/support/loopback_server.h"
#include "tests/support/update_fixture.h"
#include "ui/shell/update_dialog.h"

namespace brovanta::test {

/// What a user sees of the dialog at one moment.
struct ShownState {
  std::string text;
  bool ok = false;
  bool cancel = false;
  int steps = 0;

  friend bool operator==(const ShownState&, const ShownState&) = default;
};

inline void PrintTo(const ShownState& state, std::ostream* stream) {
  *stream << '"' << state.text << "\" ok " << state.ok << " cancel " << state.cancel << " steps "
          << state.steps;
}

/// What the controls of the dialog show now.
[[nodiscard]] ShownState StateOf(QDialog& dialog);

/// Notes every state of a dialog from now on. The dialog shows a new one by an event that it has
/// queued for itself; what stands there is noted before and after each of them.
class StateWatch : public QObject {
 public:
  using Test = std::function<bool(const ShownState& state)>;

  explicit StateWatch(QDialog& dialog);

  /// Does `action` from the event loop, once, when a state passes the test; the one that is shown
  /// now counts.
  void When(Test test, std::function<void()> action);

  [[nodiscard]] const std::vector<ShownState>& states() const { return states_; }
  [[nodiscard]] bool Has(const ShownState& state) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Waiting {
    Test test;
    std::function<void()> action;
  };
  void Note();

  QPointer<QDialog> dialog_;
  std::vector<ShownState> states_;
  std::vector<Waiting> waiting_;
};

/// The tests of StateWatch::When.
[[nodiscard]] StateWatch::Test Line(const std::string& text);  ///< a status line
[[nodiscard]] bool IsRunning(const ShownState& state);         ///< "Cancel" is enabled
[[nodiscard]] bool HasFailed(const ShownState& state);         ///< "OK" is enabled

class UpdateScreenTest : public UpdateFixture {
 protected:
  /// Starts the server: answers_ with status 200, replies_ byte for byte before them, and pages in
  /// held_ never. All three must stay as they are until the server is gone.
  void Serve();
  [[nodiscard]] std::vector<std::string> Objects() const;  ///< asked for, in their order

  /// A job that asks the server.
  UpdateJob ServerJob();

  void Click(QDialog& dialog, const char* button_name);
  /// Makes the dialog, lets `prepare` watch it, runs it. Its result.
  int Run(UpdateJob job, const std::function<void(UpdateDialog&, StateWatch&)>& prepare = {});

  /// The states of the last run.
  std::vector<ShownState> states_;

  std::map<std::string, std::string> replies_;
  std::set<std::string> held_;
  std::unique_ptr<LoopbackServer> server_;
};

}  // namespace brovanta::test

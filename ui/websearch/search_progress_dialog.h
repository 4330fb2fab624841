// A web search while it runs: what each shop is doing, and how to stop it.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>

#include "search/search_manager.h"
#include "search/window_link.h"
#include "ui/base/modal_dialog.h"

namespace Ui {
class SearchProgressForm;
}

namespace brovanta {

/// Runs one search, which begins shortly after the screen has appeared. "Done" is the only way out:
/// Escape and the close box do nothing until it has been pressed.
class SearchProgressDialog : public ModalDialog {
  Q_OBJECT

 public:
  /// The result of "Done" when nothing was found; with results it is kCompleted, also when they
  /// could not be saved.
  static constexpr int kNoResults = -1;

  /// The search manager is borrowed, and not touched any more once the dialog is done.
  SearchProgressDialog(SearchManager& searches, QString item_name, std::int32_t category_id,
                       QWidget* parent);
  ~SearchProgressDialog() override;

  void reject() override;

  /// Stops whatever still runs of the search and lets go of its threads, without waiting for them.
  /// Also from outside, when the program ends.
  void done(int result) override;

  /// The start-up timer's id, 0 when none is running.
  [[nodiscard]] int start_timer() const { return start_timer_; }

  /// Where the search sends its messages.
  [[nodiscard]] ProgressWindow& progress_window() const { return *link_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void Start();
  void OnMessage(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam);
  void AddAgent(const WebAgent& agent);
  void ShowFinished(std::intptr_t total);
  void EnableDone(bool enable);
  void Leave();
  void SaveAndShow();
  void KillStartTimer();

  SearchManager& searches_;
  const QString item_name_;
  const std::int32_t category_id_;
  std::unique_ptr<Ui::SearchProgressForm> form_;
  std::shared_ptr<WindowLink> link_;  // held by the search's threads as well
  int start_timer_ = 0;
  bool shown_ = false;
  bool leaving_ = false;  // "Done" has been pressed
  bool over_ = false;
};

}  // namespace brovanta

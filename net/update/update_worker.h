// An update on a thread of its own, and what a dialog over it shows.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "db/shopping_database.h"
#include "net/update/update_sequence.h"

namespace brovanta {

/// Everything that a dialog over an update shows, at one moment.
struct UpdateView {
  std::string text;  ///< the status line
  bool ok_enabled = false;
  bool cancel_enabled = false;
  int steps_finished = 0;              ///< of kUpdateSteps
  std::optional<std::int32_t> result;  ///< once the update has ended
  bool closes = false;  ///< ended so that the dialog closes by itself after kUpdateCloseDelay

  friend bool operator==(const UpdateView&, const UpdateView&) = default;
};

/// How long a dialog stays open after success or abort.
inline constexpr std::chrono::milliseconds kUpdateCloseDelay{100};

/// Runs one update. Made, started, cancelled and destroyed on one thread, the user-interface
/// thread; the update itself runs on another. While it runs the database is the update's.
///
/// The listener gets every new view in its order, from either thread, under a lock: it may only put
/// the view into a queue of its own and not call back. After Leave it is never called.
class UpdateWorker {
 public:
  using Listener = std::function<void(const UpdateView& view)>;

  UpdateWorker(ShoppingDatabase& database, UpdateJob job, Listener listener);
  UpdateWorker(const UpdateWorker&) = delete;
  UpdateWorker& operator=(const UpdateWorker&) = delete;
  ~UpdateWorker() { Leave(); }

  /// Shows "Initializing update....", both buttons disabled, and starts the thread, which waits 100
  /// milliseconds, enables "Cancel" and runs the steps. Once.
  void Start();

  /// What "Cancel" does: sets the flag to -1, disables both buttons and shows "Aborting
  /// update....". Nothing once the update has ended.
  void Cancel();

  [[nodiscard]] UpdateView view() const;

  /// Ends the worker: cancels and waits at most 500 milliseconds for the thread. If it has not
  /// ended by then it is left behind on its own state, with the result kUpdateLeftBehind, and can
  /// touch neither listener nor database nor data files any more; only a write that is under way at
  /// that moment is waited for, since the database has one user at a time and is never left torn.
  /// The result of the update; the same when called again.
  std::int32_t Leave();

 private:
  class Shared;

  std::shared_ptr<Shared> shared_;
  UpdateJob job_;
  std::thread thread_;
};

}  // namespace brovanta

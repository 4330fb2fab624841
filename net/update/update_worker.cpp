#include "net/update/update_worker.h"

#include <condition_variable>
#include <mutex>
#include <new>
#include <system_error>
#include <utility>

#include "net/http/http_codes.h"
#include "net/update/database_gate.h"

namespace brovanta {
namespace {

constexpr std::chrono::milliseconds kStartDelay{100};
constexpr std::chrono::milliseconds kLeaveDelay{500};
constexpr std::int32_t kCancelled = -1;  // the value of the flag

}  // namespace

// What both threads know. The update's thread holds it for as long as it runs, left behind or not.
class UpdateWorker::Shared : public UpdateHost {
 public:
  Shared(ShoppingDatabase& database, Listener listener)
      : gate_(database), listener_(std::move(listener)) {}

  // Called by the update.
  void Show(const std::string& text) override {
    Change([&](UpdateView& view) { view.text = text; });
  }
  void FinishStep() override {
    Change([](UpdateView& view) { ++view.steps_finished; });
  }
  [[nodiscard]] bool WithDatabase(
      const std::function<void(ShoppingDatabase& database)>& work) override {
    return gate_.Run(work);
  }
  [[nodiscard]] const std::atomic<std::int32_t>& cancel_flag() const override {
    return cancel_flag_;
  }

  // Called by the thread of the update around it.
  void AwaitStart() {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, kStartDelay, [this] { return leaving_; });
  }
  void EnableCancel() {
    Change([](UpdateView& view) { view.cancel_enabled = true; });
  }
  void End(std::int32_t result);

  // Called by the user-interface thread.
  void ShowStart() { Show("Initializing update...."); }
  void Cancel();
  [[nodiscard]] UpdateView view() const {
    const std::lock_guard lock(mutex_);
    return view_;
  }
  /// The update's result, or nothing when it did not end in time.
  [[nodiscard]] std::optional<std::int32_t> AwaitEnd();
  void LeaveBehind();

 private:
  template <typename Changing>
  void Change(Changing change) {
    const std::lock_guard lock(mutex_);
    ChangeLocked(change);
  }
  // Nobody looks at an update that has been left behind.
  template <typename Changing>
  void ChangeLocked(Changing change) {
    if (left_behind_) return;
    change(view_);
    if (listener_) listener_(view_);
  }

  std::atomic<std::int32_t> cancel_flag_{0};

  DatabaseGate gate_;

  mutable std::mutex mutex_;  // guards what follows; never held on the way through the gate
  std::condition_variable changed_;
  Listener listener_;
  UpdateView view_;
  bool leaving_ = false;      // nobody waits for a delay any more
  bool left_behind_ = false;  // and nobody looks at the view
};

void UpdateWorker::Shared::End(std::int32_t result) {
  const std::lock_guard lock(mutex_);
  ChangeLocked([&](UpdateView& view) {
    view.result = result;
    view.closes = result == 0 || result == HTTP_ERR_CANCELLED;
    view.ok_enabled = !view.closes;
    view.cancel_enabled = false;
  });
  changed_.notify_all();
}

void UpdateWorker::Shared::Cancel() {
  const std::lock_guard lock(mutex_);
  if (view_.result) return;
  cancel_flag_ = kCancelled;
  ChangeLocked([](UpdateView& view) {
    view.ok_enabled = false;
    view.cancel_enabled = false;
    view.text = "Aborting update....";
  });
}

std::optional<std::int32_t> UpdateWorker::Shared::AwaitEnd() {
  std::unique_lock lock(mutex_);
  leaving_ = true;
  cancel_flag_ = kCancelled;
  changed_.notify_all();
  changed_.wait_for(lock, kLeaveDelay, [this] { return view_.result.has_value(); });
  return view_.result;
}

void UpdateWorker::Shared::LeaveBehind() {
  {
    const std::lock_guard lock(mutex_);
    left_behind_ = true;
    listener_ = nullptr;
    view_.result = kUpdateLeftBehind;
  }
  gate_.Close();
}

UpdateWorker::UpdateWorker(ShoppingDatabase& database, UpdateJob job, Listener listener)
    : shared_(std::make_shared<Shared>(database, std::move(listener))), job_(std::move(job)) {}

void UpdateWorker::Start() {
  shared_->ShowStart();
  const auto run = [shared = shared_, job = job_] {
    shared->AwaitStart();
    shared->EnableCancel();
    std::int32_t result = kUpdateFailed;
    try {
      result = RunUpdate(job, *shared);
    } catch (const std::bad_alloc&) {
      result = kHttpNoMemory;
    }
    shared->End(result);
  };
  try {
    thread_ = std::thread(run);
  } catch (const std::system_error&) {
    shared_->Show("Failed to download search agents.");
    shared_->End(kUpdateFailed);
  }
}

void UpdateWorker::Cancel() { shared_->Cancel(); }

UpdateView UpdateWorker::view() const { return shared_->view(); }

std::int32_t UpdateWorker::Leave() {
  if (!thread_.joinable()) return shared_->view().result.value_or(kUpdateLeftBehind);
  if (const auto result = shared_->AwaitEnd()) {
    thread_.join();
    return *result;
  }
  shared_->LeaveBehind();
  thread_.detach();
  return kUpdateLeftBehind;
}

}  // namespace brovanta

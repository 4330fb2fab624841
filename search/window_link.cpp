#include "search/window_link.h"

#include <utility>

namespace brovanta {

WindowLink::WindowLink(Handler handler, std::function<void()> wake)
    : handler_(std::move(handler)), wake_(std::move(wake)) {}

void WindowLink::SendMessage(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
  if (std::this_thread::get_id() == thread_) {
    Handle(message, wParam, lParam);
    return;
  }
  Message sent{message, wParam, lParam};
  std::unique_lock lock(mutex_);
  if (closed_) return;
  try {
    wake_();  // whoever comes waits for the lock
    waiting_.push_back(&sent);
  } catch (...) {
    return;  // nothing of it is in the queue
  }
  // A message that is being handled is waited for even when the link is closed meanwhile.
  changed_.wait(lock, [&sent] { return sent.handled; });
}

void WindowLink::Deliver() {
  for (;;) {
    Message* next = nullptr;
    {
      const std::lock_guard lock(mutex_);
      if (waiting_.empty()) return;
      next = waiting_.front();
      waiting_.pop_front();
    }
    Handle(next->message, next->wParam, next->lParam);
    const std::lock_guard lock(mutex_);
    next->handled = true;
    changed_.notify_all();
  }
}

void WindowLink::Handle(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
  // The only thread that closes the link is this one: no lock is needed to look.
  if (is_open_) handler_(message, wParam, lParam);
}

void WindowLink::Close() {
  is_open_ = false;
  const std::lock_guard lock(mutex_);
  closed_ = true;
  wake_ = nullptr;
  for (Message* message : waiting_) message->handled = true;
  waiting_.clear();
  changed_.notify_all();
}

}  // namespace brovanta

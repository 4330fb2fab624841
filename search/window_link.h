// The way from the threads of a search to the thread of a screen.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "search/progress_window.h"

namespace brovanta {

/// Handles every message on the thread that made the link. Called on that thread itself SendMessage
/// is a plain call; on any other it waits until the message has been handled or the link is closed.
/// Shared by the screen and the search; the screen closes it when it goes:
///
///   link_ = std::make_shared<WindowLink>(handler, [this] { queue a call of link_->Deliver() });
///   ~Screen() { link_->Close(); }
class WindowLink : public ProgressWindow {
 public:
  using Handler =
      std::function<void(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam)>;

  /// `wake` is called on a sending thread, with a lock of the link held, and sees to it that the
  /// link's own thread soon calls Deliver; it may only queue. Where it throws, or where there is no
  /// memory for the message, the message is lost.
  WindowLink(Handler handler, std::function<void()> wake);

  void SendMessage(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) override;

  /// Handles what waits, in its order. The link's own thread; without anything waiting it does
  /// nothing. May be called again from within the handler.
  void Deliver();

  /// Lets go of everybody who waits. From then on no message is handled and nobody is woken. The
  /// link's own thread; also from within the handler.
  void Close();

 private:
  struct Message {
    std::uint32_t message = 0;
    std::uintptr_t wParam = 0;
    std::intptr_t lParam = 0;
    bool handled = false;
  };

  void Handle(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam);

  const std::thread::id thread_ = std::this_thread::get_id();
  const Handler handler_;       // called on the link's own thread only
  bool is_open_ = true;         // the link's own thread only
  std::function<void()> wake_;  // guarded by mutex_
  std::mutex mutex_;            // never held while a message is handled
  std::condition_variable changed_;
  std::deque<Message*> waiting_;  // guarded by mutex_; each lives with its sender's call
  bool closed_ = false;           // guarded by mutex_
};

}  // namespace brovanta

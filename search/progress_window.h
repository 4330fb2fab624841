// Who a search tells how it goes on.
#pragma once

#include <cstdint>

namespace brovanta {

/// Messages of a search. wParam is the agent (AgentOf), except for the last.
enum SearchMessage : std::uint32_t {
  WM_SEARCH_AGENT_STARTED = 1124,  ///< the agent's thread runs; lParam 0
  WM_SEARCH_AGENT_RESULTS = 1126,  ///< it had a page; lParam: its results, 0 when none
  WM_SEARCH_AGENT_FAILED = 1127,   ///< it had none; lParam: an agent status (agent_status.h)
  WM_SEARCH_FINISHED = 1128,       ///< nobody runs any more; wParam 0, lParam: results of all
};

struct WebAgent;

/// The receiver of a search's messages. SendMessage is called from the thread that starts the
/// search (WM_SEARCH_AGENT_STARTED only) and from the agents' threads, never from two at a time for
/// one search, and returns when the message has been handled. It must not throw. While a message is
/// handled StopSearch may be called, and everything that reads the search; StartSearch may not.
///
/// A receiver may go before its search does: it then returns at once from every call that waits and
/// from all later ones. WindowLink does all that for a receiver with a thread and a queue.
class ProgressWindow {
 public:
  ProgressWindow() = default;
  ProgressWindow(const ProgressWindow&) = delete;
  ProgressWindow& operator=(const ProgressWindow&) = delete;
  virtual ~ProgressWindow() = default;

  virtual void SendMessage(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) = 0;
};

/// The agent in a message's wParam: good as long as the message is being handled.
[[nodiscard]] inline const WebAgent* AgentOf(std::uintptr_t wParam) {
  return reinterpret_cast<const WebAgent*>(wParam);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace brovanta

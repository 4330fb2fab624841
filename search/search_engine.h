// Running a search: one thread for each shop, all at once.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "search/progress_window.h"
#include "search/search_result_list.h"
#include "search/web_agent.h"

namespace brovanta {

class SearchRun;

/// What a search takes from the world.
struct SearchServices {
  /// DownloadUrlToBuffer: called on the agents' threads.
  std::function<std::optional<std::string>(const std::string& url, std::uint32_t context,
                                           const std::atomic<std::int32_t>& cancel_flag)>
      download;
  /// Runs the procedure on a thread of its own; throws std::system_error when there is none left.
  std::function<std::thread(std::function<void()> procedure)> start_thread;
  /// Lets the thread that calls it sleep.
  std::function<void(std::chrono::milliseconds)> sleep;
  /// How long the end of the engine waits for the threads; for each whose download notices its flag
  /// a second is long enough.
  std::chrono::milliseconds end_wait{1000};

  /// The network, the system's threads and its clock.
  [[nodiscard]] static SearchServices Real();
};

/// Every agent's thread waits this long before anything else.
inline constexpr std::chrono::milliseconds kAgentDelay{100};

/// Runs one search at a time. Each search has words, agents, results and window of its own, which
/// its threads keep alive: what is left of an earlier one can neither disturb a later one nor be
/// disturbed by it. All operations are for one thread, the user-interface thread.
class SearchEngine {
 public:
  explicit SearchEngine(SearchServices services = SearchServices::Real());
  SearchEngine(const SearchEngine&) = delete;
  SearchEngine& operator=(const SearchEngine&) = delete;

  /// Stops every agent and waits for their threads, not longer than end_wait; one that is stuck
  /// then is left behind with what belongs to its search. Windows whose messages are handled on
  /// this thread must be closed before, or the wait is in vain.
  ~SearchEngine();

  /// Starts the agents that serve the category, in their order. WM_SEARCH_AGENT_STARTED is sent for
  /// each from within; nothing else is sent before all are started. Whatever still runs of the
  /// search before is stopped, and its results are gone from here. Window may be nullptr: nobody is
  /// told. The number of agents that run, 0 when none does: then no message is ever sent.
  [[nodiscard]] std::int32_t StartSearch(std::span<const std::shared_ptr<const WebAgent>> agents,
                                         std::int32_t category_id, std::string words,
                                         std::shared_ptr<ProgressWindow> window);

  /// Asks every agent that runs to stop, and counts none as running from now on. Does not wait:
  /// each of them still reports, usually as failed with AGENT_NO_PAGE, and each such report is
  /// followed by a WM_SEARCH_FINISHED of its own. Lets go of searches whose threads have all ended,
  /// so a screen that goes calls it in any case. 0.
  std::int32_t StopSearch();

  /// The number of agents that run.
  [[nodiscard]] std::size_t RunningCount() const;

  /// What the agents of the last search have found so far, in the order in which it came; a copy.
  [[nodiscard]] SearchResultList Results() const;
  [[nodiscard]] std::size_t ResultCount() const;

  /// Category and words of the last search; 0 and empty before the first.
  [[nodiscard]] std::int32_t category_id() const { return category_id_; }
  [[nodiscard]] const std::string& words() const { return words_; }

 private:
  void ForgetEndedRuns();

  SearchServices services_;
  std::int32_t category_id_ = 0;
  std::string words_;
  std::shared_ptr<SearchRun> current_;                // nullptr before the first search
  std::vector<std::shared_ptr<SearchRun>> previous_;  // those whose threads may still run
  std::uint32_t runs_ = 0;
};

}  // namespace brovanta

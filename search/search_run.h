// One search from its start to the end of its last thread.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "search/search_engine.h"
#include "util/binary_semaphore.h"

namespace brovanta {

/// Everything that the threads of one search touch, and nothing else: they hold it by a shared
/// pointer and know neither manager nor engine. Two locks. The semaphore is held while a message is
/// on its way, so that the window gets one at a time; the mutex guards the data and is only ever
/// held for a moment, so that StopSearch and the readers wait for no window.
class SearchRun : public std::enable_shared_from_this<SearchRun> {
 public:
  SearchRun(SearchServices services, std::string words, std::shared_ptr<ProgressWindow> window,
            std::uint32_t context);
  SearchRun(const SearchRun&) = delete;
  SearchRun& operator=(const SearchRun&) = delete;
  ~SearchRun() = default;

  /// Starts the agent's thread, registers it and says so. False when there is no thread for it:
  /// then nothing is registered and nothing said. Before OpenGate.
  bool StartAgent(std::shared_ptr<const WebAgent> agent);

  /// All agents are started: lets them go on.
  void OpenGate();

  /// Sets the flag of every agent that runs and empties the list of those.
  void Stop();

  /// Sets the flag of every agent, running or not.
  void Abandon();

  [[nodiscard]] std::size_t RunningCount() const;
  [[nodiscard]] SearchResultList Results() const;
  [[nodiscard]] std::size_t ResultCount() const;

  /// Joins the threads if all have ended: true, or false without waiting.
  [[nodiscard]] bool JoinIfEnded();

  /// Waits for the threads up to the moment, joins those that have ended and leaves the others.
  void JoinUntil(std::chrono::steady_clock::time_point deadline);

 private:
  // An agent in this search.
  struct Task {
    std::shared_ptr<const WebAgent> agent;
    std::atomic<std::int32_t> cancel_flag{0};
    std::thread thread;  // the starting thread's only
    bool ended = false;  // guarded by mutex_
  };

  [[nodiscard]] bool AllEnded() const;  // under mutex_
  void Run(Task& task);
  void RunAgent(Task& task);
  void Report(const Task& task, std::int32_t status);
  void Deliver(const Task& task, std::vector<SearchResultItem> items);
  void EndReport(const Task& task);
  void Send(std::uint32_t message, const WebAgent* agent, std::intptr_t value);

  const SearchServices services_;
  const std::string words_;
  const std::shared_ptr<ProgressWindow> window_;
  const std::uint32_t context_;

  BinarySemaphore reporting_;  // held while a message is sent and its effect is carried out
  mutable std::mutex mutex_;
  std::condition_variable changed_;           // gate, ended
  bool gate_open_ = false;                    // guarded by mutex_
  std::vector<Task*> running_;                // guarded by mutex_
  SearchResultList results_;                  // guarded by mutex_
  std::vector<std::unique_ptr<Task>> tasks_;  // the starting thread's; a task stays in its place
};

}  // namespace brovanta

// Shops without a network, and a count of the threads that ask them.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "search/search_engine.h"
#include "tests/search/agents.h"

namespace brovanta::test {

/// Answers by the part of the address in front of "?". Kept alive by the services made from it, so
/// that a thread that outlives its test touches nothing that is gone.
class ScriptedShops : public std::enable_shared_from_this<ScriptedShops> {
 public:
  /// The page of agent `site`; a shop without one fails.
  void Answer(std::int32_t site, std::string page) {
    const std::lock_guard lock(mutex_);
    pages_[Address(site)] = std::move(page);
  }
  /// The shop does not answer before Release, and then only with what it has; a set cancel flag
  /// ends the wait, unless it is stuck.
  void Hold(std::int32_t site, bool stuck = false) {
    const std::lock_guard lock(mutex_);
    held_.insert(Address(site));
    if (stuck) stuck_.insert(Address(site));
  }
  void Release() {
    const std::lock_guard lock(mutex_);
    held_.clear();
    changed_.notify_all();
  }
  /// Thread number `nth` (from 0) cannot be made.
  void RefuseThread(int nth) { refused_ = nth; }
  /// Nobody gets past the delay at the start of its thread before EndDelay. Without it there is
  /// none.
  void HoldDelay() {
    const std::lock_guard lock(mutex_);
    delay_held_ = true;
  }
  void EndDelay() {
    const std::lock_guard lock(mutex_);
    delay_held_ = false;
    changed_.notify_all();
  }
  /// Called in each download, on its thread.
  void OnDownload(std::function<void()> call) { on_download_ = std::move(call); }

  [[nodiscard]] SearchServices Services() {
    auto self = shared_from_this();
    return {
        [self](const std::string& url, std::uint32_t context,
               const std::atomic<std::int32_t>& flag) {
          return self->Download(url, context, flag);
        },
        [self](std::function<void()> procedure) { return self->StartThread(std::move(procedure)); },
        [self](std::chrono::milliseconds time) { self->Sleep(time); }, std::chrono::seconds(30)};
  }

  /// The agents 1 to `count`.
  [[nodiscard]] static std::vector<std::shared_ptr<const WebAgent>> Agents(std::int32_t count) {
    std::vector<std::shared_ptr<const WebAgent>> agents;
    for (std::int32_t site = 1; site <= count; ++site) agents.push_back(Share(Agent(site)));
    return agents;
  }
  [[nodiscard]] static WebAgent Agent(std::int32_t site) {
    WebAgent agent = PlainAgent(site);
    agent.FormatString = Address(site) + "?q= KEYWORD ";
    return agent;
  }
  [[nodiscard]] static std::shared_ptr<const WebAgent> Share(WebAgent agent) {
    return std::make_shared<const WebAgent>(std::move(agent));
  }

  [[nodiscard]] std::vector<std::string> urls() const {
    const std::lock_guard lock(mutex_);
    return urls_;
  }
  [[nodiscard]] std::set<std::uint32_t> contexts() const {
    const std::lock_guard lock(mutex_);
    return contexts_;
  }
  /// For how long each thread has been sent to sleep.
  [[nodiscard]] std::vector<std::chrono::milliseconds> delays() const {
    const std::lock_guard lock(mutex_);
    return delays_;
  }
  [[nodiscard]] int threads() const {
    const std::lock_guard lock(mutex_);
    return threads_;
  }
  /// Whether so many downloads are under way, or have been, within the limit.
  [[nodiscard]] bool WaitForDownloads(std::size_t count,
                                      std::chrono::milliseconds limit = std::chrono::seconds(30)) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [&] { return urls_.size() >= count; });
  }
  /// Whether so many threads are in their delay, or have been, within half a minute.
  [[nodiscard]] bool WaitForDelays(std::size_t count) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(30),
                             [&] { return delays_.size() >= count; });
  }
  /// Whether all threads but so many have ended, within half a minute.
  [[nodiscard]] bool WaitForThreads(int left = 0) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(30), [&] { return threads_ <= left; });
  }

 private:
  static std::string Address(std::int32_t site) {
    return "http://shop" + std::to_string(site) + ".example/";
  }

  std::optional<std::string> Download(const std::string& url, std::uint32_t context,
                                      const std::atomic<std::int32_t>& flag) {
    const std::string address = url.substr(0, url.find('?'));
    std::unique_lock lock(mutex_);
    urls_.push_back(url);
    contexts_.insert(context);
    changed_.notify_all();
    if (on_download_) {
      lock.unlock();
      on_download_();
      lock.lock();
    }
    const auto answers = [&] {
      return held_.count(address) == 0 || (flag != 0 && stuck_.count(address) == 0);
    };
    // Nobody wakes for the flag: as a real download, this one looks at it now and then.
    while (!answers()) (void)changed_.wait_for(lock, std::chrono::milliseconds(5));
    const auto page = pages_.find(address);
    if (flag != 0 || page == pages_.end()) return std::nullopt;
    return page->second;
  }

  void Sleep(std::chrono::milliseconds time) {
    std::unique_lock lock(mutex_);
    delays_.push_back(time);
    changed_.notify_all();
    changed_.wait(lock, [this] { return !delay_held_; });
  }

  std::thread StartThread(std::function<void()> procedure) {
    if (started_++ == refused_) {
      throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
    }
    {
      const std::lock_guard lock(mutex_);
      ++threads_;
    }
    return std::thread([self = shared_from_this(), run = std::move(procedure)]() mutable {
      run();
      run = nullptr;
      const std::lock_guard lock(self->mutex_);
      --self->threads_;
      self->changed_.notify_all();
    });
  }

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::map<std::string, std::string> pages_;
  std::set<std::string> held_;
  std::set<std::string> stuck_;
  std::function<void()> on_download_;
  std::vector<std::string> urls_;
  std::set<std::uint32_t> contexts_;
  std::vector<std::chrono::milliseconds> delays_;
  bool delay_held_ = false;
  int threads_ = 0;
  int started_ = 0;  // the starting thread's only, as the next
  int refused_ = -1;
};

}  // namespace brovanta::test

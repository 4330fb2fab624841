// A search over 64 shops, side by side with curl. Names are "measure/subject"; scripts/bench says
// which are compared.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "bench/search/shop_page.h"
#include "bench/search/slow_shops.h"
#include "search/search_engine.h"

extern char** environ;  // NOLINT: declared by no header

namespace brovanta::bench {
namespace {

constexpr std::size_t kShops = 64;
constexpr std::size_t kItemsOfAShop = 10;
constexpr std::chrono::milliseconds kAnswerTime{200};

using Seconds = std::chrono::duration<double>;

SlowShops& Shops() {
  static SlowShops shops = [] {
    // A proxy would come between.
    for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"}) unsetenv(name);
    return SlowShops(kAnswerTime, ShopPage(20'000, kItemsOfAShop));
  }();
  return shops;
}

std::string ShopAddress(std::size_t shop) { return Shops().Address(shop) + "/find?q="; }

class Window : public ProgressWindow {
 public:
  void SendMessage(std::uint32_t message, std::uintptr_t, std::intptr_t value) override {
    if (message != WM_SEARCH_FINISHED) return;
    const std::lock_guard lock(mutex_);
    results_ = value;
    finished_.notify_all();
  }

  /// Waits for the end of the search: its results.
  std::intptr_t WaitForEnd() {
    std::unique_lock lock(mutex_);
    finished_.wait(lock, [this] { return results_ >= 0; });
    return results_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable finished_;
  std::intptr_t results_ = -1;
};

std::vector<std::shared_ptr<const WebAgent>> Agents() {
  std::vector<std::shared_ptr<const WebAgent>> agents;
  for (std::size_t shop = 0; shop < kShops; ++shop) {
    WebAgent agent = ShopAgent();
    agent.SiteId = static_cast<std::int32_t>(shop + 1);
    agent.FormatString = ShopAddress(shop) + " KEYWORD ";
    agents.push_back(std::make_shared<const WebAgent>(std::move(agent)));
  }
  return agents;
}

// One whole search: how long it took, nothing when it did not find everything.
Seconds Search() {
  static const auto agents = Agents();
  const auto window = std::make_shared<Window>();
  SearchEngine engine;
  const auto start = std::chrono::steady_clock::now();
  const bool all = engine.StartSearch(agents, 1, kWord, window) == kShops;
  if (!all || window->WaitForEnd() != kShops * kItemsOfAShop) return Seconds(0);
  return std::chrono::steady_clock::now() - start;
}

// One run of curl over the same addresses, nothing when it fails.
Seconds RunCurl() {
  std::vector<std::string> words = {"curl",           "--parallel", "--parallel-immediate",
                                    "--parallel-max", "64",         "--no-progress-meter",
                                    "--fail",         "--noproxy",  "*"};
  for (std::size_t shop = 0; shop < kShops; ++shop) {
    words.insert(words.end(), {"--output", "/dev/null", ShopAddress(shop) + kWord});
  }
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  int status = -1;
  if (posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0) {
    waitpid(child, &status, 0);
  }
  return status == 0 ? Seconds(std::chrono::steady_clock::now() - start) : Seconds(0);
}

// Runs `once` until there is enough to tell, and takes what it measures for the time.
template <typename Once>
void Repeat(benchmark::State& state, Once once) {
  for (auto unused : state) {
    (void)Shops().TakeAnswers();
    const Seconds time = once();
    if (time.count() <= 0) {
      state.SkipWithError("not every shop was read");
      break;
    }
    state.SetIterationTime(time.count());
  }
}

void WholeSearch(benchmark::State& state) { Repeat(state, Search); }
BENCHMARK(WholeSearch)->Name("search/brovanta")->UseManualTime()->Unit(benchmark::kMillisecond);

// Without the time that every agent waits by design before it does anything.
void SearchBehindTheStart(benchmark::State& state) {
  Repeat(state, [] {
    const Seconds time = Search();
    return time.count() > 0 ? time - Seconds(kAgentDelay) : time;
  });
}
BENCHMARK(SearchBehindTheStart)
    ->Name("search/behind_the_start")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// What the slowest shop of such a search took, from the connection to the last byte.
void SlowestAnswer(benchmark::State& state) {
  Repeat(state, [] {
    const Seconds time = Search();
    const SlowShops::Answers answers = Shops().TakeAnswers();
    return time.count() > 0 && answers.count == kShops ? Seconds(answers.slowest) : Seconds(0);
  });
}
BENCHMARK(SlowestAnswer)
    ->Name("search/slowest_answer")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void Curl(benchmark::State& state) { Repeat(state, RunCurl); }
BENCHMARK(Curl)->Name("search/curl")->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brovanta::bench

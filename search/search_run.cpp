#include "search/search_run.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>

#include "search/agent_status.h"
#include "search/page_scraper.h"
#include "search/query_address.h"

namespace brovanta {
namespace {

// Holds the semaphore, whatever happens meanwhile.
class Hold {
 public:
  explicit Hold(BinarySemaphore& semaphore) : semaphore_(semaphore) {
    (void)semaphore_.Wait(BinarySemaphore::kInfinite);
  }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;
  ~Hold() { (void)semaphore_.Release(); }

 private:
  BinarySemaphore& semaphore_;
};

}  // namespace

SearchRun::SearchRun(SearchServices services, std::string words,
                     std::shared_ptr<ProgressWindow> window, std::uint32_t context)
    : services_(std::move(services)),
      words_(std::move(words)),
      window_(std::move(window)),
      context_(context) {}

bool SearchRun::StartAgent(std::shared_ptr<const WebAgent> agent) {
  const std::size_t before = tasks_.size();
  try {
    tasks_.push_back(std::make_unique<Task>());
    {
      const std::lock_guard lock(mutex_);
      running_.reserve(tasks_.capacity());  // a thread that runs can be registered
    }
    Task& task = *tasks_.back();
    task.agent = std::move(agent);
    task.thread = services_.start_thread([run = shared_from_this(), &task] { run->Run(task); });
  } catch (const std::exception&) {
    tasks_.resize(before);
    return false;
  }
  Task& task = *tasks_.back();
  const Hold hold(reporting_);
  {
    const std::lock_guard lock(mutex_);
    running_.push_back(&task);
  }
  Send(WM_SEARCH_AGENT_STARTED, task.agent.get(), 0);
  return true;
}

void SearchRun::OpenGate() {
  const std::lock_guard lock(mutex_);
  gate_open_ = true;
  changed_.notify_all();
}

void SearchRun::Stop() {
  const std::lock_guard lock(mutex_);
  for (Task* task : running_) task->cancel_flag = 1;
  running_.clear();
}

void SearchRun::Abandon() {
  for (const auto& task : tasks_) task->cancel_flag = 1;
  OpenGate();
}

std::size_t SearchRun::RunningCount() const {
  const std::lock_guard lock(mutex_);
  return running_.size();
}

SearchResultList SearchRun::Results() const {
  const std::lock_guard lock(mutex_);
  return results_;
}

std::size_t SearchRun::ResultCount() const {
  const std::lock_guard lock(mutex_);
  return results_.size();
}

bool SearchRun::AllEnded() const {
  return std::all_of(tasks_.begin(), tasks_.end(), [](const auto& task) { return task->ended; });
}

bool SearchRun::JoinIfEnded() {
  {
    const std::lock_guard lock(mutex_);
    if (!AllEnded()) return false;
  }
  for (const auto& task : tasks_) {
    if (task->thread.joinable()) task->thread.join();
  }
  return true;
}

void SearchRun::JoinUntil(std::chrono::steady_clock::time_point deadline) {
  std::vector<std::thread> ended;
  {
    std::unique_lock lock(mutex_);
    (void)changed_.wait_until(lock, deadline, [this] { return AllEnded(); });
    for (const auto& task : tasks_) {
      if (!task->thread.joinable()) continue;
      if (task->ended) {
        ended.push_back(std::move(task->thread));
      } else {
        task->thread.detach();
      }
    }
  }
  for (std::thread& thread : ended) thread.join();
}

void SearchRun::Run(Task& task) {
  try {
    RunAgent(task);
  } catch (...) {
    Report(task, AGENT_NO_PAGE);
  }
  const std::lock_guard lock(mutex_);
  task.ended = true;
  changed_.notify_all();
}

void SearchRun::RunAgent(Task& task) {
  services_.sleep(kAgentDelay);
  {
    // However long it took to start the others: nobody reports before all are registered.
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return gate_open_; });
  }
  std::string address;
  const std::int32_t status =
      BuildQueryAddress(task.agent->FormatString.value_or(""), words_, address);
  if (status != 0) return Report(task, status);
  const std::optional<std::string> page = services_.download(address, context_, task.cancel_flag);
  if (!page) return Report(task, AGENT_NO_PAGE);
  bool cut_short = false;
  auto items = ScrapePage(*page, *task.agent, words_, &task.cancel_flag, &cut_short);
  // Stopped while it read the page: as if the page had not come. Whoever had read it delivers.
  if (cut_short) return Report(task, AGENT_NO_PAGE);
  Deliver(task, std::move(items));
}

void SearchRun::Report(const Task& task, std::int32_t status) {
  const Hold hold(reporting_);
  Send(WM_SEARCH_AGENT_FAILED, task.agent.get(), status);
  EndReport(task);
}

void SearchRun::Deliver(const Task& task, std::vector<SearchResultItem> items) {
  const Hold hold(reporting_);
  const auto count = static_cast<std::intptr_t>(items.size());
  {
    const std::lock_guard lock(mutex_);
    results_.Append(std::move(items));
  }
  Send(WM_SEARCH_AGENT_RESULTS, task.agent.get(), count);
  EndReport(task);
}

// Kept: an agent that was stopped is not in the list any more and finds it empty, so that each of
// several says that the search has finished.
void SearchRun::EndReport(const Task& task) {
  std::intptr_t total = 0;
  {
    const std::lock_guard lock(mutex_);
    std::erase(running_, &task);
    if (!running_.empty()) return;
    total = static_cast<std::intptr_t>(results_.size());
  }
  Send(WM_SEARCH_FINISHED, nullptr, total);
}

void SearchRun::Send(std::uint32_t message, const WebAgent* agent, std::intptr_t value) {
  if (window_ == nullptr) return;
  try {
    window_->SendMessage(message, reinterpret_cast<std::uintptr_t>(agent), value);
  } catch (...) {  // the message is lost; the agent ends all the same, and the search with it
  }
}

}  // namespace brovanta

#include "search/search_engine.h"

#include <utility>

#include "net/http/http_client.h"
#include "search/search_run.h"

namespace brovanta {
SearchServices SearchServices::Real() {
  return {[](const std::string& url, std::uint32_t context,
             const std::atomic<std::int32_t>& cancel_flag) {
            return DownloadUrlToBuffer(url, context, cancel_flag);
          },
          [](std::function<void()> procedure) { return std::thread(std::move(procedure)); },
          [](std::chrono::milliseconds time) { std::this_thread::sleep_for(time); }};
}

SearchEngine::SearchEngine(SearchServices services) : services_(std::move(services)) {}

SearchEngine::~SearchEngine() {
  if (current_ != nullptr) previous_.push_back(std::move(current_));
  for (const auto& run : previous_) run->Abandon();
  const auto deadline = std::chrono::steady_clock::now() + services_.end_wait;
  for (const auto& run : previous_) run->JoinUntil(deadline);
}

std::int32_t SearchEngine::StartSearch(std::span<const std::shared_ptr<const WebAgent>> agents,
                                       std::int32_t category_id, std::string words,
                                       std::shared_ptr<ProgressWindow> window) {
  if (current_ != nullptr) {
    current_->Abandon();
    previous_.push_back(std::move(current_));
  }
  ForgetEndedRuns();
  category_id_ = category_id;
  words_ = words;
  current_ = std::make_shared<SearchRun>(services_, std::move(words), std::move(window), ++runs_);
  for (const auto& agent : agents) {
    if (agent->Serves(category_id)) (void)current_->StartAgent(agent);
  }
  const auto count = static_cast<std::int32_t>(current_->RunningCount());
  current_->OpenGate();
  return count;
}

std::int32_t SearchEngine::StopSearch() {
  if (current_ == nullptr) return 0;
  current_->Stop();
  (void)current_->JoinIfEnded();  // a later search may be long in coming
  ForgetEndedRuns();
  return 0;
}

std::size_t SearchEngine::RunningCount() const {
  return current_ == nullptr ? 0 : current_->RunningCount();
}

SearchResultList SearchEngine::Results() const {
  return current_ == nullptr ? SearchResultList() : current_->Results();
}

std::size_t SearchEngine::ResultCount() const {
  return current_ == nullptr ? 0 : current_->ResultCount();
}

void SearchEngine::ForgetEndedRuns() {
  std::erase_if(previous_, [](const auto& run) { return run->JoinIfEnded(); });
}

}  // namespace brovanta

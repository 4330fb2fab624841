// An engine over shops without a network.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "search/search_engine.h"
#include "tests/search/recording_window.h"
#include "tests/search/scripted_shops.h"

namespace brovanta::test {

class SearchEngineTest : public testing::Test {
 protected:
  SearchEngineTest() { engine_ = std::make_unique<SearchEngine>(shops_->Services()); }
  ~SearchEngineTest() override {
    shops_->EndDelay();
    engine_.reset();
    shops_->Release();
    EXPECT_TRUE(shops_->WaitForThreads());
  }

  std::int32_t Start(const std::vector<std::shared_ptr<const WebAgent>>& agents,
                     const std::shared_ptr<ProgressWindow>& window,
                     const std::string& words = "soap") {
    return engine_->StartSearch(agents, 1, words, window);
  }
  std::int32_t Start(std::int32_t agents) { return Start(ScriptedShops::Agents(agents), window_); }

  [[nodiscard]] std::vector<std::string> Titles() const {
    std::vector<std::string> titles;
    const SearchResultList results = engine_->Results();
    for (const auto& item : results.items()) titles.push_back(*item.Title);
    return titles;
  }

  const std::shared_ptr<ScriptedShops> shops_ = std::make_shared<ScriptedShops>();
  const std::shared_ptr<RecordingWindow> window_ = std::make_shared<RecordingWindow>();
  std::unique_ptr<SearchEngine> engine_;
};

}  // namespace brovanta::test

// Shops to search in, on this machine.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "search/web_agent.h"
#include "tests/support/loopback_server.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// Pages of one loopback server, each asked by an agent of its own. The agents read the pages that
/// Block() of tests/search/agents.h makes.
class LoopbackShops {
 public:
  LoopbackShops();
  LoopbackShops(const LoopbackShops&) = delete;
  LoopbackShops& operator=(const LoopbackShops&) = delete;
  ~LoopbackShops();

  /// Agent `site`, named "Shop <site>", of category 1. Without a page the shop fails.
  void AddShop(std::int32_t site) { agents_.push_back(AgentFor(site)); }
  void AddShop(std::int32_t site, const std::string& page);
  /// This one does not answer before Release.
  void AddHeldShop(std::int32_t site, const std::string& page = "");
  void Release();
  [[nodiscard]] WebAgent AgentFor(std::int32_t site) const;

  /// Writes categories and agents into "webspider.xml" of the folder.
  void WriteConfiguration(const TempFolder& folder) const;

  /// Objects that the shops were asked for.
  [[nodiscard]] std::vector<std::string> Objects() const;
  /// Whether nobody is connected to a shop any more, within half a minute.
  [[nodiscard]] bool IsQuiet();

  std::vector<WebAgentType> categories_{{1, "Groceries"}, {2, "Books"}};
  std::vector<WebAgent> agents_;

 private:
  void Answer(LoopbackPeer& peer, const std::string& request);

  std::mutex mutex_;
  std::condition_variable changed_;
  std::map<std::string, std::string> pages_;  // guarded by mutex_, as the next two
  std::set<std::string> held_;
  int connected_ = 0;
  std::unique_ptr<LoopbackServer> server_;
};

}  // namespace brovanta::test

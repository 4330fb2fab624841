// A whole update: agents, stores, categories and coupons, from a server made of texts.
#include <map>

#include "db/name_list.h"
#include "net/update/update_sequence.h"
#include "platform/file.h"
#include "tests/faults/scenario.h"
#include "tests/support/update_fixture.h"

namespace brovanta::test {
namespace {

class SilentHost : public UpdateHost {
 public:
  explicit SilentHost(ShoppingDatabase& database) : database_(database) {}
  void Show(const std::string& /*text*/) override {}
  void FinishStep() override {}
  [[nodiscard]] bool WithDatabase(
      const std::function<void(ShoppingDatabase& database)>& work) override {
    work(database_);
    return true;
  }
  [[nodiscard]] const std::atomic<std::int32_t>& cancel_flag() const override { return flag_; }

 private:
  ShoppingDatabase& database_;
  std::atomic<std::int32_t> flag_{0};
};

// What the server says, by a part of the address.
const std::map<std::string, std::string>& Answers() {
  static const std::map<std::string, std::string> answers = {
      {"webspider", GoodConfiguration()},
      {"stores", "<IT><ID>7</ID><NM>Corner Shop</NM></IT>"},
      {"categories", "<IT><ID>3</ID><NM>Dairy</NM></IT>"},
      {"coupons", "<CP><ID>12</ID><SR>1</SR><NM>Two for one</NM><SI>7</SI><CI>3</CI></CP>"}};
  return answers;
}

std::int32_t Download(const std::string& url, const std::string& path,
                      const std::atomic<std::int32_t>& /*flag*/) {
  for (const auto& [part, answer] : Answers()) {
    if (url.find(part) == std::string::npos) continue;
    return platform::ReplaceFile(path, std::as_bytes(std::span(answer))) ? 0 : HTTP_ERR_FILE;
  }
  return HTTP_ERR_FILE;
}

}  // namespace

Scenario UpdateScenario() {
  const auto prepare = [](const TempFolder& folder) {
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      folder.Write(list, NameList().Encode());
    }
    folder.WriteText("webspider.xml", kOldConfiguration);
  };
  const auto run = [](const std::string& folder) {
    ShoppingDatabase database;
    (void)database.Open(folder);
    SilentHost host(database);
    UpdateJob job;
    job.server = {"http://server", "user"};
    job.configuration_path = folder + "\\webspider.xml";
    job.scratch_path = folder + "\\" + kScratchName;
    job.download = Download;
    return RunUpdate(job, host) == 0 && database.discounts().Read(12, 1).has_value();
  };
  return {"update",
          prepare,
          run,
          {{"webspider.xml"}, {"store.lst"}, {"category.lst"}, {"discount.dat"}}};
}

}  // namespace brovanta::test

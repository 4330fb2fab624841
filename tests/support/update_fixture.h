// What the tests of the update share: a database, a configuration, and a server made of a map.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "net/http/http_codes.h"
#include "net/update/update_sequence.h"
#include "tests/db/database_test.h"

namespace brovanta::test {

inline constexpr char kOldConfiguration[] = "the configuration from before";

/// A configuration with one category and one complete agent.
inline std::string GoodConfiguration(const std::string& shop = "Corner Shop") {
  return "<AgentType><TypeId>1</TypeId><TypeName>Groceries</TypeName></AgentType>"
         "<WebAgent><SiteId>4</SiteId><SiteType>1</SiteType><SiteName>" +
         shop +
         "</SiteName><SiteAddress>a</SiteAddress><FormatString>f</FormatString>"
         "<StartResult>s</StartResult><EndResult>e</EndResult><StartItem>s</StartItem>"
         "<EndItem>e</EndItem><StartURL>s</StartURL><EndURL>e</EndURL></WebAgent>";
}

class UpdateFixture : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    folder_.WriteText("webspider.xml", kOldConfiguration);
    answers_ = {
        {"/webspider.xml", GoodConfiguration()},
        {"/stores.aspx", "<IT><ID>7</ID><NM>Corner Shop</NM></IT>"},
        {"/categories.aspx", "<IT><ID>3</ID><NM>Dairy</NM></IT>"},
        {"/coupons.aspx", "<CP><ID>12</ID><SR>1</SR><NM>Two for one</NM><SI>7</SI><CI>3</CI></CP>"},
    };
  }

  /// A job whose downloads come from answers_ and, first, from failures_.
  UpdateJob Job() {
    UpdateJob job;
    job.server = {"http://server", "user"};
    job.configuration_path = folder_.path() + "\\webspider.xml";
    job.scratch_path = folder_.File("update.dat");
    job.download = [this](const std::string& url, const std::string& path,
                          const std::atomic<std::int32_t>& flag) {
      return Answer(url, path, flag);
    };
    return job;
  }

  [[nodiscard]] std::string Text(std::string_view name) const {
    return folder_.ReadText(name).value_or("(none)");
  }

  /// Everything that an update may change.
  [[nodiscard]] std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const char* name : {"webspider.xml", "store.lst", "category.lst", "discount.dat"}) {
      files[name] = Text(name);
    }
    return files;
  }

  std::map<std::string, std::string> answers_;    // by object, without the query
  std::map<std::string, std::int32_t> failures_;  // codes instead of an answer
  std::vector<std::string> requests_;             // read when the update has ended

 private:
  std::int32_t Answer(const std::string& url, const std::string& path,
                      const std::atomic<std::int32_t>& flag) {
    requests_.push_back(url);
    if (flag.load() != 0) return HTTP_ERR_CANCELLED;
    const std::string object =
        url.substr(0, url.find('?')).substr(std::string("http://server").size());
    if (const auto failure = failures_.find(object); failure != failures_.end()) {
      return failure->second;
    }
    EXPECT_EQ(path, folder_.File("update.dat"));
    folder_.WriteText("update.dat", answers_.at(object));
    return 0;
  }
};

}  // namespace brovanta::test

#include "net/update/update_sequence.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "db/journal_format.h"
#include "platform/file.h"
#include "tests/support/loopback_server.h"
#include "tests/support/update_fixture.h"

namespace brovanta::test {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::Not;

// Writes down what it is told.
class NotingHost : public UpdateHost {
 public:
  explicit NotingHost(ShoppingDatabase& database) : database_(database) {}

  void Show(const std::string& text) override { lines_.push_back(text); }
  void FinishStep() override { ++steps_; }
  [[nodiscard]] bool WithDatabase(
      const std::function<void(ShoppingDatabase& database)>& work) override {
    if (accesses_left_-- == 0) return false;
    work(database_);
    return true;
  }
  [[nodiscard]] const std::atomic<std::int32_t>& cancel_flag() const override { return flag_; }

  ShoppingDatabase& database_;
  std::vector<std::string> lines_;
  int steps_ = 0;
  int accesses_left_ = -1;
  std::atomic<std::int32_t> flag_{0};
};

class UpdateSequenceTest : public UpdateFixture {
 protected:
  std::int32_t Run() {
    host_.lines_.clear();
    host_.steps_ = 0;
    requests_.clear();
    return RunUpdate(Job(), host_);
  }
  [[nodiscard]] std::string LastLine() const { return host_.lines_.back(); }

  NotingHost host_{database_};
};

TEST_F(UpdateSequenceTest, ShowsEachStepAndItsEnd) {
  EXPECT_EQ(Run(), 0);
  EXPECT_THAT(
      host_.lines_,
      ElementsAre("Updating search agents...", "Updating search agents: done.",
                  "Updating stores...", "Updating stores: done.", "Updating categories...",
                  "Updating categories: done.", "Updating coupons...", "Updating coupons: done."));
  EXPECT_EQ(host_.steps_, kUpdateSteps);
}

TEST_F(UpdateSequenceTest, BringsAllFourUpToDate) {
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(Text("webspider.xml"), GoodConfiguration());
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(7, "Corner Shop")}));
  EXPECT_EQ(folder_.Read("category.lst"), RawListFile({RawItem(3, "Dairy")}));
  const auto coupon = database_.discounts().Read(12, 1);
  ASSERT_TRUE(coupon);
  EXPECT_EQ(coupon->Name.view(), "Two for one");
  EXPECT_EQ(coupon->StoreId, 7U);
  EXPECT_NE(database_.stores().Find(7), nullptr);
}

TEST_F(UpdateSequenceTest, AsksInThisOrder) {
  ASSERT_EQ(Run(), 0);
  EXPECT_THAT(requests_, ElementsAre("http://server/webspider.xml",
                                     "http://server/stores.aspx?idx=0&user=user",
                                     "http://server/categories.aspx?idx=0&user=user",
                                     "http://server/coupons.aspx?idx=0&edx=0&user=user"));
}

TEST_F(UpdateSequenceTest, NextUpdateAsksForWhatIsNewOnly) {
  ASSERT_EQ(Run(), 0);
  answers_["/coupons.aspx"] = "<CP><ID>40</ID><SR>2</SR><NM>Deal</NM><SI>7</SI><CI>3</CI></CP>";
  ASSERT_EQ(Run(), 0);
  ASSERT_EQ(Run(), 0);
  EXPECT_THAT(requests_, ElementsAre("http://server/webspider.xml",
                                     "http://server/stores.aspx?idx=7&user=user",
                                     "http://server/categories.aspx?idx=3&user=user",
                                     "http://server/coupons.aspx?idx=12&edx=40&user=user"));
}

TEST_F(UpdateSequenceTest, OwnNamesAreNoReasonToAskForLess) {
  folder_.Write("store.lst",
                RawListFile({RawItem(12, "Market"), RawItem(40, "Bakery"), RawItem(5003, "Mine")}));
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(requests_[1], "http://server/stores.aspx?idx=40&user=user");
}

TEST_F(UpdateSequenceTest, ListThatWasNotLoadedIsReadBeforeItIsAskedForAndKept) {
  folder_.Write("store.lst", RawListFile({RawItem(5, "Market"), RawItem(5003, "Mine")}));
  database_.stores().Clear();
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(requests_[1], "http://server/stores.aspx?idx=5&user=user");
  EXPECT_EQ(folder_.Read("store.lst"),
            RawListFile({RawItem(5, "Market"), RawItem(7, "Corner Shop"), RawItem(5003, "Mine")}));
}

TEST_F(UpdateSequenceTest, ScratchFileIsLeftAsTheLastStepWroteIt) {
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(Text("update.dat"), answers_["/coupons.aspx"]);
}

TEST_F(UpdateSequenceTest, ScratchFileIsABareNameUnlessSaidOtherwise) {
  EXPECT_EQ(UpdateJob{}.scratch_path, "update.dat");
}

TEST_F(UpdateSequenceTest, ConfigurationIsCopiedByteForByte) {
  answers_["/webspider.xml"] = GoodConfiguration("Caf\xE9\r\n") + "\0behind a zero"s;
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(Text("webspider.xml"), answers_["/webspider.xml"]);
}

TEST_F(UpdateSequenceTest, ConfigurationThatWasMissingIsMade) {
  ASSERT_TRUE(platform::RemoveFile(folder_.File("webspider.xml")));
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(Text("webspider.xml"), GoodConfiguration());
}

TEST_F(UpdateSequenceTest, ConfigurationIsWrittenOverNoRestoreLeftInTheMiddle) {
  folder_.Write("backup.dat", EncodeJournal(std::vector<UndoRecord>{
                                  {UndoKind::kReplaced, "webspider.xml", 1, 0, Hex("41")}}));
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(Text("webspider.xml"), GoodConfiguration());
  EXPECT_EQ(folder_.Read("backup.dat"), EncodeEmptyJournal());
}

TEST_F(UpdateSequenceTest, AgentsThatCannotBeDownloaded) {
  const auto before = Files();
  failures_["/webspider.xml"] = 12029;
  EXPECT_EQ(Run(), 12029);
  EXPECT_THAT(host_.lines_,
              ElementsAre("Updating search agents...", "Failed to download search agents."));
  EXPECT_EQ(requests_.size(), 1U);
  EXPECT_EQ(host_.steps_, 0);
  EXPECT_EQ(Files(), before);
}

TEST_F(UpdateSequenceTest, DownloadThatIsNoConfigurationNeverReplacesTheOldOne) {
  const auto before = Files();
  const std::string no_agent = "<AgentType><TypeId>1</TypeId><TypeName>a</TypeName></AgentType>";
  const std::string bad_block = "<WebAgent><SiteId>0</SiteId></WebAgent>";
  for (const std::string& answer :
       {no_agent, ""s, "<html>500</html>"s, GoodConfiguration() + bad_block,
        "<AgentType></AgentType>" + GoodConfiguration().substr(69)}) {
    answers_["/webspider.xml"] = answer;
    EXPECT_LT(Run(), 0) << answer;
    EXPECT_EQ(LastLine(), "Failed to update search agents.") << answer;
    EXPECT_EQ(Files(), before) << answer;
    EXPECT_EQ(requests_.size(), 1U);
  }
  answers_["/webspider.xml"] = no_agent;
  EXPECT_EQ(Run(), -1);
  answers_["/webspider.xml"] = GoodConfiguration() + bad_block;
  EXPECT_EQ(Run(), -14);
}

TEST_F(UpdateSequenceTest, ConfigurationThatCannotBeReplacedFailsTheStep) {
  platform::File holder;
  ASSERT_TRUE(holder.Open(folder_.File("webspider.xml"), platform::File::Mode::kRead));
  EXPECT_EQ(Run(), -11);
  EXPECT_EQ(LastLine(), "Failed to update search agents.");
  EXPECT_EQ(Text("webspider.xml"), kOldConfiguration);
}

TEST_F(UpdateSequenceTest, StoresThatCannotBeDownloadedEndTheUpdate) {
  auto expected = Files();
  expected["webspider.xml"] = GoodConfiguration();
  failures_["/stores.aspx"] = HTTP_ERR_UNAUTHORIZED;
  EXPECT_EQ(Run(), HTTP_ERR_UNAUTHORIZED);
  EXPECT_EQ(LastLine(), "Failed to update stores.");
  EXPECT_EQ(host_.steps_, 1);
  EXPECT_EQ(requests_.size(), 2U);
  EXPECT_EQ(Files(), expected) << "what was brought before stays, what comes later is untouched";
}

TEST_F(UpdateSequenceTest, CategoriesThatCannotBeDownloadedEndTheUpdate) {
  failures_["/categories.aspx"] = 12152;
  EXPECT_EQ(Run(), 12152);
  EXPECT_EQ(LastLine(), "Failed to update categories.");
  EXPECT_EQ(host_.steps_, 2);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(7, "Corner Shop")}));
  EXPECT_EQ(folder_.Read("category.lst"), RawListFile({}));
  EXPECT_EQ(Text("discount.dat"), "(none)");
}

TEST_F(UpdateSequenceTest, CouponsThatCannotBeDownloadedEndTheUpdate) {
  failures_["/coupons.aspx"] = 12002;
  EXPECT_EQ(Run(), 12002);
  EXPECT_EQ(LastLine(), "Failed to update coupons.");
  EXPECT_EQ(host_.steps_, 3);
  EXPECT_EQ(Text("discount.dat"), "(none)");
}

TEST_F(UpdateSequenceTest, FeedThatCannotBeReadHasTheLineOfItsStep) {
  // Each of these "succeeds" without leaving a file.
  for (const char* what : {"stores", "categories", "coupons"}) {
    UpdateJob job = Job();
    job.download = [&, inner = job.download](const std::string& url, const std::string& path,
                                             const std::atomic<std::int32_t>& flag) {
      const std::int32_t code = inner(url, path, flag);
      if (url.find(what) != std::string::npos) {
        EXPECT_TRUE(platform::RemoveFile(path));
      }
      return code;
    };
    host_.lines_.clear();
    EXPECT_EQ(RunUpdate(job, host_), -11);
    EXPECT_EQ(LastLine(), "Failed to update "s + what + ".");
  }
}

TEST_F(UpdateSequenceTest, ListThatCannotBeWrittenFailsAndIsNotKeptInMemory) {
  platform::File holder;
  ASSERT_TRUE(holder.Open(folder_.File("store.lst"), platform::File::Mode::kRead));
  EXPECT_EQ(Run(), -11);
  EXPECT_EQ(LastLine(), "Failed to update stores.");
  EXPECT_TRUE(database_.stores().empty());
  holder.Close();
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({}));
}

TEST_F(UpdateSequenceTest, MemoryThatRunsOutHasTheLineOfItsStep) {
  const std::vector<std::pair<std::string, std::string>> steps{
      {"/webspider.xml", "Failed to download search agents."},
      {"/stores.aspx", "Failed to update stores."},
      {"/categories.aspx", "Failed to update categories."},
      {"/coupons.aspx", "Failed to update coupons."},
  };
  for (const auto& [page, line] : steps) {
    UpdateJob job = Job();
    job.download = [inner = job.download, page = page](const std::string& url,
                                                       const std::string& path,
                                                       const std::atomic<std::int32_t>& flag) {
      if (url.find(page) != std::string::npos) throw std::bad_alloc();
      return inner(url, path, flag);
    };
    EXPECT_EQ(RunUpdate(job, host_), -1) << page;
    EXPECT_EQ(LastLine(), line);
  }
}

TEST_F(UpdateSequenceTest, ErrorPagesInPlaceOfFeedsImportNothing) {
  for (const char* page : {"/stores.aspx", "/categories.aspx", "/coupons.aspx"}) {
    answers_[page] = "<html>404 Not Found</html>";
  }
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(database_.stores().empty());
  EXPECT_EQ(Text("discount.dat"), "(none)");
}

TEST_F(UpdateSequenceTest, CancellationAtAnyStepShowsNoFailure) {
  const std::vector<std::pair<std::string, std::string>> steps{
      {"/webspider.xml", "Updating search agents..."},
      {"/stores.aspx", "Updating stores..."},
      {"/categories.aspx", "Updating categories..."},
      {"/coupons.aspx", "Updating coupons..."},
  };
  for (const auto& [page, line] : steps) {
    failures_ = {{page, 0x10000111}};
    EXPECT_EQ(Run(), 0x10000111) << page;
    EXPECT_EQ(LastLine(), line);
  }
}

TEST_F(UpdateSequenceTest, FlagThatIsSetDuringAnImportIsNoticedByTheNextDownload) {
  answers_["/stores.aspx"] = "<IT><ID>8</ID><NM>Bakery</NM></IT>";
  UpdateJob job = Job();
  job.download = [&, inner = job.download](const std::string& url, const std::string& path,
                                           const std::atomic<std::int32_t>& flag) {
    const std::int32_t code = inner(url, path, flag);
    if (url.find("stores") != std::string::npos) host_.flag_ = -1;  // behind the last check
    return code;
  };
  EXPECT_EQ(RunUpdate(job, host_), HTTP_ERR_CANCELLED);
  EXPECT_EQ(LastLine(), "Updating categories...");
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(8, "Bakery")}));
}

TEST_F(UpdateSequenceTest, LeftBehindItTouchesNothingAnyMoreAndSaysNothing) {
  const std::vector<const char*> lines{"Updating search agents...", "Updating stores...",
                                       "Updating stores...",        "Updating categories...",
                                       "Updating categories...",    "Updating coupons...",
                                       "Updating coupons..."};
  for (std::size_t accesses = 0; accesses < lines.size(); ++accesses) {
    host_.accesses_left_ = static_cast<int>(accesses);
    EXPECT_EQ(Run(), -2) << accesses;
    EXPECT_EQ(LastLine(), lines[accesses]) << accesses;
  }
  EXPECT_EQ(Text("discount.dat"), "(none)");
}

TEST_F(UpdateSequenceTest, WithoutAnotherDownloadItAsksTheServerItself) {
  const LoopbackServer server(Serving({
      {"/webspider.xml", HttpReply("200 OK", answers_["/webspider.xml"])},
      {"/stores.aspx", HttpReply("200 OK", answers_["/stores.aspx"])},
      {"/categories.aspx", HttpReply("200 OK", answers_["/categories.aspx"])},
      {"/coupons.aspx", HttpReply("200 OK", answers_["/coupons.aspx"])},
  }));
  UpdateJob job = Job();
  job.server.address = server.Url("/");
  job.download = UpdateJob::DownloadFromServer;
  EXPECT_EQ(RunUpdate(job, host_), 0);
  EXPECT_NE(database_.discounts().Read(12, 1), std::nullopt);
  ASSERT_EQ(server.requests().size(), 4U);
  EXPECT_THAT(server.requests()[3],
              testing::StartsWith("GET /coupons.aspx?idx=0&edx=0&user=user HTTP/1.1\r\n"));
}

TEST_F(UpdateSequenceTest, FeedBeyondTheLimitGoesOnWithTheNextUpdate) {
  std::string feed;
  for (int id = 1; id <= 4'100; ++id) {
    std::string coupon =
        "<CP><ID>" + std::to_string(id) + "</ID><SR>1</SR><SI>7</SI><CI>3</CI><NM>";
    const std::string end = "</NM></CP>";
    coupon += std::string(160 - coupon.size() - end.size(), 'n');
    feed += coupon + end;
  }
  const LoopbackServer server(Serving({
      {"/webspider.xml", HttpReply("200 OK", answers_["/webspider.xml"])},
      {"/stores.aspx", HttpReply("200 OK", "")},
      {"/categories.aspx", HttpReply("200 OK", "")},
      {"/coupons.aspx?idx=0&edx=0&user=user", HttpReply("200 OK", feed)},
      {"/coupons.aspx?idx=3993&edx=0&user=user", HttpReply("200 OK", feed.substr(3'993 * 160))},
  }));
  UpdateJob job = Job();
  job.server.address = server.Url();
  job.download = UpdateJob::DownloadFromServer;
  ASSERT_EQ(RunUpdate(job, host_), 0);
  // 638,976 bytes arrive: 3,993 whole coupons and the beginning of another.
  EXPECT_EQ(database_.discounts().MaxIds().source_1, 3'993);
  ASSERT_EQ(RunUpdate(job, host_), 0);
  EXPECT_EQ(database_.discounts().MaxIds().source_1, 4'100);
  EXPECT_EQ(Text("discount.dat").size(), 12U + 4'100 * 404) << "each of them once";
}

TEST_F(UpdateSequenceTest, RefusalByTheServerEndsItWithTheLineOfTheStep) {
  const LoopbackServer server(Serving({
      {"/webspider.xml", HttpReply("200 OK", answers_["/webspider.xml"])},
      {"/stores.aspx", HttpReply("401 Unauthorized", "")},
  }));
  UpdateJob job = Job();
  job.server.address = server.Url();
  job.download = UpdateJob::DownloadFromServer;
  EXPECT_EQ(RunUpdate(job, host_), 0x10000110);
  EXPECT_EQ(LastLine(), "Failed to update stores.");
}

}  // namespace
}  // namespace brovanta::test

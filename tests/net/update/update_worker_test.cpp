#include "net/update/update_worker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <fstream>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "tests/support/loopback_server.h"
#include "tests/support/stuck_download.h"
#include "tests/support/update_fixture.h"

namespace brovanta::test {
namespace {

using Clock = std::chrono::steady_clock;
using testing::ElementsAre;

constexpr std::chrono::seconds kAtMost{30};

// The queue behind a listener.
class Views {
 public:
  [[nodiscard]] UpdateWorker::Listener listener() {
    return [this](const UpdateView& view) {
      const std::lock_guard lock(mutex_);
      views_.push_back(view);
      changed_.notify_all();
    };
  }
  /// Waits until a view passes the test, and returns the first that does.
  template <typename Test>
  UpdateView Await(Test test) {
    std::unique_lock lock(mutex_);
    UpdateView found;
    const auto look = [&] {
      for (const UpdateView& view : views_) {
        if (test(view)) {
          found = view;
          return true;
        }
      }
      return false;
    };
    EXPECT_TRUE(changed_.wait_for(lock, kAtMost, look));
    return found;
  }
  UpdateView AwaitLine(const std::string& line) {
    return Await([&](const UpdateView& view) { return view.text == line; });
  }
  UpdateView AwaitEnd() {
    return Await([](const UpdateView& view) { return view.result.has_value(); });
  }
  [[nodiscard]] std::vector<UpdateView> all() {
    const std::lock_guard lock(mutex_);
    return views_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<UpdateView> views_;
};

UpdateView View(const char* text, bool ok, bool cancel, int steps) {
  UpdateView view;
  view.text = text;
  view.ok_enabled = ok;
  view.cancel_enabled = cancel;
  view.steps_finished = steps;
  return view;
}

class UpdateWorkerTest : public UpdateFixture {
 protected:
  // Outlives the worker, as a dialog's queue does.
  Views views_;
};

TEST_F(UpdateWorkerTest, GoesThroughItsStatesToDone) {
  UpdateWorker worker(database_, Job(), views_.listener());
  worker.Start();
  views_.AwaitEnd();
  UpdateView done = View("Updating coupons: done.", false, false, 4);
  done.result = 0;
  done.closes = true;
  EXPECT_THAT(views_.all(), ElementsAre(View("Initializing update....", false, false, 0),
                                        View("Initializing update....", false, true, 0),
                                        View("Updating search agents...", false, true, 0),
                                        View("Updating search agents: done.", false, true, 0),
                                        View("Updating search agents: done.", false, true, 1),
                                        View("Updating stores...", false, true, 1),
                                        View("Updating stores: done.", false, true, 1),
                                        View("Updating stores: done.", false, true, 2),
                                        View("Updating categories...", false, true, 2),
                                        View("Updating categories: done.", false, true, 2),
                                        View("Updating categories: done.", false, true, 3),
                                        View("Updating coupons...", false, true, 3),
                                        View("Updating coupons: done.", false, true, 3),
                                        View("Updating coupons: done.", false, true, 4), done));
  EXPECT_EQ(worker.view(), done);
  EXPECT_EQ(worker.Leave(), 0);
  EXPECT_EQ(Text("webspider.xml"), GoodConfiguration());
}

TEST_F(UpdateWorkerTest, WaitsAMomentBeforeItEnablesCancel) {
  UpdateWorker worker(database_, Job(), views_.listener());
  const auto start = Clock::now();
  worker.Start();
  views_.Await([](const UpdateView& view) { return view.cancel_enabled; });
  EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(100));
}

TEST_F(UpdateWorkerTest, FailureLeavesItsLineAndOk) {
  failures_["/stores.aspx"] = HTTP_ERR_UNAUTHORIZED;
  UpdateWorker worker(database_, Job(), views_.listener());
  worker.Start();
  UpdateView failed = View("Failed to update stores.", true, false, 1);
  failed.result = HTTP_ERR_UNAUTHORIZED;
  EXPECT_EQ(views_.AwaitEnd(), failed);
  EXPECT_EQ(worker.Leave(), HTTP_ERR_UNAUTHORIZED);
}

TEST_F(UpdateWorkerTest, CancelShowsItAndClosesWhenTheDownloadNotices) {
  const LoopbackServer server([this](LoopbackPeer& peer, const std::string& request) {
    if (RequestedObject(request) == "/webspider.xml") {
      peer.Send(HttpReply("200 OK", answers_["/webspider.xml"]));
    } else {
      peer.WaitUntilClosed();
    }
  });
  UpdateJob job = Job();
  job.server.address = server.Url();
  job.download = UpdateJob::DownloadFromServer;
  UpdateWorker worker(database_, job, views_.listener());
  worker.Start();
  EXPECT_TRUE(views_.AwaitLine("Updating stores...").cancel_enabled);
  worker.Cancel();
  UpdateView aborting = View("Aborting update....", false, false, 1);
  EXPECT_EQ(views_.AwaitLine("Aborting update...."), aborting);
  aborting.result = 0x10000111;
  aborting.closes = true;
  EXPECT_EQ(views_.AwaitEnd(), aborting);
  EXPECT_EQ(Text("webspider.xml"), GoodConfiguration()) << "what is replaced stays replaced";
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({}));
}

TEST_F(UpdateWorkerTest, CancelSetsTheFlagToMinusOne) {
  std::promise<std::int32_t> value;
  StuckDownload stuck;
  UpdateJob job = Job();
  job.download = stuck.download(
      [&](const std::string&, const std::string&, const std::atomic<std::int32_t>& flag) {
        value.set_value(flag.load());
        return HTTP_ERR_CANCELLED;
      });
  UpdateWorker worker(database_, job, views_.listener());
  worker.Start();
  stuck.AwaitStart();
  worker.Cancel();
  stuck.Release();
  EXPECT_EQ(value.get_future().get(), -1);
  views_.AwaitEnd();
}

TEST_F(UpdateWorkerTest, CancelThatTheLastStepDoesNotNoticeEndsInDone) {
  StuckDownload stuck;
  UpdateJob job = Job();
  const UpdateJob::Download inner = job.download;
  const UpdateJob::Download slow = stuck.download(
      [&](const std::string&, const std::string& path, const std::atomic<std::int32_t>&) {
        const std::atomic<std::int32_t> unset{0};
        return inner("http://server/coupons.aspx", path, unset);
      });
  job.download = [&](const std::string& url, const std::string& path,
                     const std::atomic<std::int32_t>& flag) {
    return (url.find("coupons") != std::string::npos ? slow : inner)(url, path, flag);
  };
  UpdateWorker worker(database_, job, views_.listener());
  worker.Start();
  stuck.AwaitStart();
  worker.Cancel();
  stuck.Release();
  UpdateView done = View("Updating coupons: done.", false, false, 4);
  done.result = 0;
  done.closes = true;
  EXPECT_EQ(views_.AwaitEnd(), done);
}

TEST_F(UpdateWorkerTest, CancelDuringAFailingImportEndsInFailed) {
  StuckDownload stuck;
  UpdateJob job = Job();
  job.download = stuck.download(
      [](const std::string&, const std::string&, const std::atomic<std::int32_t>&) { return 0; });
  UpdateWorker worker(database_, job, views_.listener());
  worker.Start();
  stuck.AwaitStart();
  worker.Cancel();
  stuck.Release();
  UpdateView failed = View("Failed to update search agents.", true, false, 0);
  failed.result = -11;
  EXPECT_EQ(views_.AwaitEnd(), failed);
}

TEST_F(UpdateWorkerTest, CancelAfterTheEndChangesNothing) {
  failures_["/webspider.xml"] = 12029;
  UpdateWorker worker(database_, Job(), views_.listener());
  worker.Start();
  const UpdateView end = views_.AwaitEnd();
  worker.Cancel();
  EXPECT_EQ(worker.view(), end);
  EXPECT_EQ(views_.all().back(), end);
}

TEST_F(UpdateWorkerTest, LeavingEndsARunningDownloadAtOnce) {
  const LoopbackServer server(
      [](LoopbackPeer& peer, const std::string&) { peer.WaitUntilClosed(); });
  UpdateJob job = Job();
  job.server.address = server.Url();
  job.download = UpdateJob::DownloadFromServer;
  UpdateWorker worker(database_, job, views_.listener());
  worker.Start();
  views_.AwaitLine("Updating search agents...");
  EXPECT_EQ(worker.Leave(), 0x10000111);
  EXPECT_EQ(worker.Leave(), 0x10000111);
}

TEST_F(UpdateWorkerTest, LeavingRightAfterTheStartEndsLikeACancel) {
  UpdateWorker worker(database_, Job(), views_.listener());
  worker.Start();
  EXPECT_EQ(worker.Leave(), 0x10000111);
}

TEST_F(UpdateWorkerTest, LeavingOneThatWasNeverStarted) {
  UpdateWorker worker(database_, Job(), views_.listener());
  EXPECT_EQ(worker.Leave(), kUpdateLeftBehind);
  EXPECT_TRUE(views_.all().empty());
}

TEST_F(UpdateWorkerTest, ThreadThatDoesNotEndIsLeftBehindAfterHalfASecond) {
  const auto files = Files();
  const auto stuck = std::make_shared<StuckDownload>();
  // Fulfilled when the thread's own copy of the job goes.
  const auto over = std::make_shared<std::promise<void>>();
  {
    const std::shared_ptr<void> token(nullptr, [over](void*) { over->set_value(); });
    UpdateJob job = Job();
    // The download succeeds in the end, so that the next step would begin.
    job.download = stuck->download(
        [stuck, token, scratch = job.scratch_path](const std::string&, const std::string&,
                                                   const std::atomic<std::int32_t>&) {
          std::ofstream(scratch) << GoodConfiguration();
          return 0;
        });
    UpdateWorker worker(database_, job, views_.listener());
    worker.Start();
    stuck->AwaitStart();
    const auto start = Clock::now();
    EXPECT_EQ(worker.Leave(), -2);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(500));
    EXPECT_EQ(worker.view().result, -2);
    EXPECT_EQ(worker.Leave(), -2);
  }
  const std::size_t seen = views_.all().size();
  stuck->Release();
  ASSERT_EQ(over->get_future().wait_for(kAtMost), std::future_status::ready);
  EXPECT_EQ(Text("update.dat"), GoodConfiguration()) << "the thread went on";
  EXPECT_EQ(Files(), files) << "but touched no file of the program";
  EXPECT_EQ(views_.all().size(), seen) << "and showed nothing";
}

TEST_F(UpdateWorkerTest, NobodyNeedsToListen) {
  UpdateWorker worker(database_, Job(), nullptr);
  worker.Start();
  worker.Leave();
  EXPECT_TRUE(worker.view().result.has_value());
}

TEST_F(UpdateWorkerTest, OneAfterTheOther) {
  for (int round = 0; round < 3; ++round) {
    Views views;
    UpdateWorker worker(database_, Job(), views.listener());
    worker.Start();
    EXPECT_EQ(views.AwaitEnd().result, 0) << round;
  }
  EXPECT_EQ(database_.discounts().size(), 3U) << "this server sends the same coupon each time";
}

}  // namespace
}  // namespace brovanta::test

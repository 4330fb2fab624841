#include "ui/shell/update_dialog.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QTest>
#include <QThread>

#include "tests/support/stuck_download.h"
#include "tests/ui/shell/update_screen.h"

namespace brovanta::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr int kAtMost = 30'000;  // milliseconds

class UpdateDialogTest : public UpdateScreenTest {
 protected:
  /// Cancels by a click as soon as this line is shown, and runs to the end.
  int CancelAt(const std::string& line) {
    return Run(ServerJob(), [&, line](UpdateDialog& dialog, StateWatch& watch) {
      watch.When([line](const ShownState& state) { return state.text == line && state.cancel; },
                 [this, &dialog] { Click(dialog, "cancelButton"); });
    });
  }
  /// Runs until it fails, notes the state, and closes it with "OK".
  int RunToFailure(UpdateJob job) {
    return Run(std::move(job), [this](UpdateDialog& dialog, StateWatch& watch) {
      watch.When(HasFailed, [this, &dialog] {
        failed_ = StateOf(dialog);
        Click(dialog, "okButton");
      });
    });
  }

  ShownState failed_;
};

TEST_F(UpdateDialogTest, GoesThroughItsStatesAndClosesWithZero) {
  Serve();
  EXPECT_EQ(Run(ServerJob()), 0);
  const bool no = false;
  const bool yes = true;
  EXPECT_THAT(states_, ElementsAre(ShownState{"Brovanta Update", no, no, 0},
                                   ShownState{"Initializing update....", no, no, 0},
                                   ShownState{"Initializing update....", no, yes, 0},
                                   ShownState{"Updating search agents...", no, yes, 0},
                                   ShownState{"Updating search agents: done.", no, yes, 0},
                                   ShownState{"Updating search agents: done.", no, yes, 1},
                                   ShownState{"Updating stores...", no, yes, 1},
                                   ShownState{"Updating stores: done.", no, yes, 1},
                                   ShownState{"Updating stores: done.", no, yes, 2},
                                   ShownState{"Updating categories...", no, yes, 2},
                                   ShownState{"Updating categories: done.", no, yes, 2},
                                   ShownState{"Updating categories: done.", no, yes, 3},
                                   ShownState{"Updating coupons...", no, yes, 3},
                                   ShownState{"Updating coupons: done.", no, yes, 3},
                                   ShownState{"Updating coupons: done.", no, yes, 4},
                                   ShownState{"Updating coupons: done.", no, no, 4}));
  EXPECT_EQ(Text("webspider.xml"), GoodConfiguration());
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(7, "Corner Shop")}));
  EXPECT_EQ(folder_.Read("category.lst"), RawListFile({RawItem(3, "Dairy")}));
  EXPECT_NE(database_.discounts().Read(12, 1), std::nullopt);
  EXPECT_EQ(Text("update.dat"), answers_["/coupons.aspx"]);
}

TEST_F(UpdateDialogTest, DoneStaysForAMomentAndTakesNoKey) {
  Serve();
  QElapsedTimer since_done;
  const int result = Run(ServerJob(), [&](UpdateDialog& dialog, StateWatch& watch) {
    watch.When([](const ShownState& state) { return state.steps == 4 && !state.cancel; },
               [&] {
                 since_done.start();
                 QTest::keyClick(&dialog, Qt::Key_Escape);
                 QTest::keyClick(&dialog, Qt::Key_Return);
                 dialog.close();
                 EXPECT_TRUE(dialog.isVisible());
               });
  });
  EXPECT_EQ(result, 0);
  EXPECT_GE(since_done.elapsed(), 90);  // the timer began a little before
  EXPECT_LT(since_done.elapsed(), kAtMost);
}

TEST_F(UpdateDialogTest, NothingCanBePressedWhileItInitializes) {
  Serve();
  UpdateDialog dialog(database_, ServerJob(), nullptr);
  dialog.show();
  ASSERT_EQ(StateOf(dialog), (ShownState{"Initializing update....", false, false, 0}));
  QTest::keyClick(&dialog, Qt::Key_Escape);
  Click(dialog, "cancelButton");
  Click(dialog, "okButton");
  dialog.close();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(StateOf(dialog), (ShownState{"Initializing update....", false, false, 0}));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, kAtMost));
  EXPECT_EQ(dialog.result(), 0) << "the update went on";
}

struct FailingStep {
  const char* page;
  const char* reply;
  const char* line;
  int steps;
};

TEST_F(UpdateDialogTest, EachFailingStepShowsItsLineAndLeavesTheLaterFilesAlone) {
  const std::string agentless =
      HttpReply("200 OK", "<AgentType><TypeId>1</TypeId><TypeName>a</TypeName></AgentType>");
  const FailingStep steps[] = {
      {"/webspider.xml", "HTTP/1.1 401 Unauthorized\r\nContent-Length: 0\r\n\r\n",
       "Failed to download search agents.", 0},
      {"/webspider.xml", agentless.c_str(), "Failed to update search agents.", 0},
      {"/stores.aspx", "HTTP/1.1 401 Unauthorized\r\nContent-Length: 0\r\n\r\n",
       "Failed to update stores.", 1},
      {"/categories.aspx", "HTTP/1.1 302 Found\r\nLocation: http://127.0.0.1/\r\n\r\n",
       "Failed to update categories.", 2},
      {"/coupons.aspx", "HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\n<CP><ID>1</ID>",
       "Failed to update coupons.", 3},
  };
  const std::map<std::string, std::string> before = Files();
  for (const FailingStep& step : steps) {
    ASSERT_EQ(database_.Open(folder_.path()), 0);
    replies_ = {{step.page, step.reply}};
    Serve();
    EXPECT_NE(RunToFailure(ServerJob()), 0) << step.line;
    EXPECT_EQ(failed_, (ShownState{step.line, true, false, step.steps}));
    EXPECT_EQ(states_.back(), failed_);
    const auto after = Files();
    EXPECT_EQ(after.at("webspider.xml") == before.at("webspider.xml"), step.steps < 1) << step.line;
    EXPECT_EQ(after.at("store.lst") == before.at("store.lst"), step.steps < 2) << step.line;
    EXPECT_EQ(after.at("category.lst") == before.at("category.lst"), step.steps < 3) << step.line;
    EXPECT_EQ(after.at("discount.dat"), before.at("discount.dat")) << step.line;
    server_.reset();
    for (const auto& [name, bytes] : before) {
      if (bytes != "(none)") folder_.WriteText(name, bytes);
    }
  }
}

TEST_F(UpdateDialogTest, ServerThatIsGoneFailsTheFirstStep) {
  UpdateJob job = Job();
  job.server.address = "http://127.0.0.1:" + std::to_string(UnusedPort());
  job.download = UpdateJob::DownloadFromServer;
  const auto before = Files();
  EXPECT_NE(RunToFailure(job), 0);
  EXPECT_EQ(failed_, (ShownState{"Failed to download search agents.", true, false, 0}));
  EXPECT_EQ(Files(), before);
}

TEST_F(UpdateDialogTest, ServerThatGoesAwayInBetweenFailsTheStepThatAsksNext) {
  UpdateJob job = Job();
  Serve();
  job.server.address = server_->Url();
  job.download = [this](const std::string& url, const std::string& path,
                        const std::atomic<std::int32_t>& flag) {
    if (url.find("categories") != std::string::npos) server_.reset();
    return UpdateJob::DownloadFromServer(url, path, flag);
  };
  EXPECT_NE(RunToFailure(job), 0);
  EXPECT_EQ(failed_, (ShownState{"Failed to update categories.", true, false, 2}));
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(7, "Corner Shop")}));
  EXPECT_EQ(folder_.Read("category.lst"), RawListFile({}));
}

TEST_F(UpdateDialogTest, AddressThatIsNoneFailsTheFirstStep) {
  for (const char* address : {"", "localhost:8427", "https://localhost:8427", "http://"}) {
    UpdateJob job = Job();
    job.server.address = address;
    job.download = UpdateJob::DownloadFromServer;
    EXPECT_NE(RunToFailure(job), 0) << address;
    EXPECT_EQ(failed_.text, "Failed to download search agents.") << address;
  }
}

TEST_F(UpdateDialogTest, AfterAFailureOnlyOkClosesIt) {
  replies_["/stores.aspx"] = HttpReply("401 Unauthorized", "");
  Serve();
  const int result = Run(ServerJob(), [this](UpdateDialog& dialog, StateWatch& watch) {
    watch.When(HasFailed, [this, &dialog] {
      QTest::keyClick(&dialog, Qt::Key_Escape);
      dialog.close();
      Click(dialog, "cancelButton");
      EXPECT_TRUE(dialog.isVisible());
      EXPECT_EQ(StateOf(dialog), (ShownState{"Failed to update stores.", true, false, 1}));
      EXPECT_EQ(dialog.focusWidget()->objectName().toStdString(), "okButton");
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
  });
  EXPECT_EQ(result, ModalDialog::kCancelled);
}

TEST_F(UpdateDialogTest, CancelAtEachStepClosesItAndLeavesTheLaterFilesAlone) {
  const auto before = Files();
  const std::pair<const char*, const char*> steps[] = {
      {"/webspider.xml", "Updating search agents..."},
      {"/stores.aspx", "Updating stores..."},
      {"/categories.aspx", "Updating categories..."},
      {"/coupons.aspx", "Updating coupons..."},
  };
  int finished = 0;
  for (const auto& [page, line] : steps) {
    held_ = {page};
    Serve();
    EXPECT_EQ(CancelAt(line), ModalDialog::kCancelled) << line;
    EXPECT_EQ(states_.back(), (ShownState{"Aborting update....", false, false, finished})) << line;
    const auto after = Files();
    EXPECT_EQ(after.at("webspider.xml") == before.at("webspider.xml"), finished < 1) << line;
    EXPECT_EQ(after.at("store.lst") == before.at("store.lst"), finished < 2) << line;
    EXPECT_EQ(after.at("category.lst") == before.at("category.lst"), finished < 3) << line;
    EXPECT_EQ(after.at("discount.dat"), before.at("discount.dat")) << line;
    server_.reset();
    ++finished;
  }
}

TEST_F(UpdateDialogTest, CancelShowsAtOnceThatItIsAborting) {
  held_ = {"/stores.aspx"};
  Serve();
  QElapsedTimer since_cancel;
  Run(ServerJob(), [&](UpdateDialog& dialog, StateWatch& watch) {
    watch.When(Line("Updating stores..."), [&] {
      since_cancel.start();
      Click(dialog, "cancelButton");
      EXPECT_EQ(StateOf(dialog), (ShownState{"Aborting update....", false, false, 1}));
      QTest::keyClick(&dialog, Qt::Key_Escape);
      Click(dialog, "cancelButton");
      dialog.close();
      EXPECT_TRUE(dialog.isVisible()) << "it closes by itself";
    });
  });
  EXPECT_GE(since_cancel.elapsed(), 100);
  EXPECT_LT(since_cancel.elapsed(), 5'000) << "the download did not notice";
  EXPECT_EQ(Text("webspider.xml"), GoodConfiguration()) << "what is replaced stays replaced";
}

TEST_F(UpdateDialogTest, EscapeAndTheCloseBoxAreCancelWhileItRuns) {
  for (const bool escape : {true, false}) {
    held_ = {"/webspider.xml"};
    Serve();
    const int result = Run(ServerJob(), [&](UpdateDialog& dialog, StateWatch& watch) {
      watch.When(Line("Updating search agents..."), [&dialog, escape] {
        if (escape) {
          QTest::keyClick(&dialog, Qt::Key_Escape);
        } else {
          dialog.close();
        }
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(StateOf(dialog).text, "Aborting update....");
      });
    });
    EXPECT_EQ(result, ModalDialog::kCancelled);
    server_.reset();
  }
}

TEST_F(UpdateDialogTest, CancelCanBeReachedAndPressedByKeys) {
  held_ = {"/webspider.xml"};
  Serve();
  Run(ServerJob(), [&](UpdateDialog& dialog, StateWatch& watch) {
    watch.When(Line("Updating search agents..."), [&dialog] {
      dialog.activateWindow();
      QTest::keyClick(&dialog, Qt::Key_Return);
      EXPECT_TRUE(StateOf(dialog).cancel) << "Enter alone stops nothing";
      QTest::keyClick(&dialog, Qt::Key_Tab);
      ASSERT_NE(dialog.focusWidget(), nullptr);
      EXPECT_EQ(dialog.focusWidget()->objectName().toStdString(), "cancelButton");
      QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
    });
  });
  EXPECT_EQ(states_.back().text, "Aborting update....");
}

TEST_F(UpdateDialogTest, AbortThatTheLastStepDoesNotNoticeIsDone) {
  StuckDownload stuck;
  UpdateJob job = Job();
  const UpdateJob::Download answered = job.download;
  const UpdateJob::Download unaware = stuck.download(
      [&](const std::string& url, const std::string& path, const std::atomic<std::int32_t>&) {
        const std::atomic<std::int32_t> unset{0};
        return answered(url, path, unset);
      });
  job.download = [&](const std::string& url, const std::string& path,
                     const std::atomic<std::int32_t>& flag) {
    return (url.find("coupons") != std::string::npos ? unaware : answered)(url, path, flag);
  };
  const int result = Run(job, [&](UpdateDialog& dialog, StateWatch& watch) {
    watch.When(Line("Updating coupons..."), [&] {
      Click(dialog, "cancelButton");
      stuck.Release();
    });
  });
  EXPECT_EQ(result, 0);
  EXPECT_THAT(states_, Contains(ShownState{"Aborting update....", false, false, 3}));
  EXPECT_EQ(states_.back(), (ShownState{"Updating coupons: done.", false, false, 4}));
}

TEST_F(UpdateDialogTest, AbortDuringAnImportThatFailsHasFailed) {
  StuckDownload stuck;
  UpdateJob job = Job();
  job.download = stuck.download(
      [](const std::string&, const std::string&, const std::atomic<std::int32_t>&) { return 0; });
  const int result = Run(job, [&](UpdateDialog& dialog, StateWatch& watch) {
    watch.When(Line("Updating search agents..."), [&] {
      Click(dialog, "cancelButton");
      stuck.Release();
    });
    watch.When(HasFailed, [&] { Click(dialog, "okButton"); });
  });
  EXPECT_EQ(result, ModalDialog::kCancelled);
  EXPECT_THAT(states_, Contains(ShownState{"Aborting update....", false, false, 0}));
  EXPECT_EQ(states_.back(), (ShownState{"Failed to update search agents.", true, false, 0}));
}

TEST_F(UpdateDialogTest, StoresAreAskedForFromTheHighestSharedId) {
  Serve();
  ASSERT_EQ(Run(ServerJob()), 0);
  EXPECT_THAT(Objects(), Contains("/stores.aspx?idx=0&user=user"));
  server_.reset();
  folder_.Write("store.lst",
                RawListFile({RawItem(12, "Market"), RawItem(40, "Bakery"), RawItem(5003, "Mine")}));
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  Serve();
  ASSERT_EQ(Run(ServerJob()), 0);
  EXPECT_THAT(Objects(), Contains("/stores.aspx?idx=40&user=user"));
}

TEST_F(UpdateDialogTest, SecondUpdateSendsTheNewIds) {
  Serve();
  ASSERT_EQ(Run(ServerJob()), 0);
  server_.reset();
  answers_["/coupons.aspx"] = "<CP><ID>40</ID><SR>2</SR><NM>Deal</NM><SI>7</SI><CI>3</CI></CP>";
  Serve();
  ASSERT_EQ(Run(ServerJob()), 0);
  EXPECT_THAT(Objects(), ElementsAre("/webspider.xml", "/stores.aspx?idx=7&user=user",
                                     "/categories.aspx?idx=3&user=user",
                                     "/coupons.aspx?idx=12&edx=0&user=user"));
  server_.reset();
  Serve();
  ASSERT_EQ(Run(ServerJob()), 0);
  EXPECT_EQ(Objects().back(), "/coupons.aspx?idx=12&edx=40&user=user");
}

TEST_F(UpdateDialogTest, UpdateDoesNotWaitForTheScreen) {
  Serve();
  UpdateDialog dialog(database_, ServerJob(), nullptr);
  dialog.show();
  // Not one event is handled in the meantime.
  QElapsedTimer waiting;
  waiting.start();
  while (server_->requests().size() < 4 && waiting.elapsed() < kAtMost)
    QThread::yieldCurrentThread();
  EXPECT_EQ(server_->requests().size(), 4U);
  EXPECT_EQ(StateOf(dialog).text, "Initializing update....");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, kAtMost));
  EXPECT_EQ(dialog.result(), 0);
}

}  // namespace
}  // namespace brovanta::test

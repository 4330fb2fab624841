// The update dialog that goes while its update still runs.
#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QTest>
#include <fstream>
#include <future>

#include "tests/support/stuck_download.h"
#include "tests/ui/shell/update_screen.h"

namespace brovanta::test {
namespace {

constexpr int kAtMost = 30'000;  // milliseconds

class UpdateDialogEndingTest : public UpdateScreenTest {};

TEST_F(UpdateDialogEndingTest, DestroyedWhileTheServerKeepsItWaiting) {
  held_ = {"/stores.aspx"};
  Serve();
  QElapsedTimer destruction;
  {
    UpdateDialog dialog(database_, ServerJob(), nullptr);
    dialog.show();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return StateOf(dialog).text == "Updating stores..."; }, kAtMost));
    destruction.start();
  }
  EXPECT_LT(destruction.elapsed(), 500) << "the download notices the flag";
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({}));
}

TEST_F(UpdateDialogEndingTest, DestroyedBeforeItBegins) {
  Serve();
  {
    UpdateDialog dialog(database_, ServerJob(), nullptr);
    dialog.show();
  }
  EXPECT_TRUE(Objects().empty());
}

TEST_F(UpdateDialogEndingTest, DestroyedWithoutHavingBeenShown) {
  Serve();
  { const UpdateDialog dialog(database_, ServerJob(), nullptr); }
  EXPECT_TRUE(Objects().empty());
  EXPECT_EQ(Text("update.dat"), "(none)");
}

TEST_F(UpdateDialogEndingTest, ClosedFromOutsideItEndsTheUpdateFirst) {
  held_ = {"/categories.aspx"};
  Serve();
  UpdateDialog dialog(database_, ServerJob(), nullptr);
  StateWatch watch(dialog);
  watch.When(Line("Updating categories..."), [&] { dialog.done(ModalDialog::kCancelled); });
  EXPECT_EQ(dialog.exec(), ModalDialog::kCancelled);
  EXPECT_EQ(dialog.worker_result(), 0x10000111);
  // What was queued by then is not shown any more, and does not close it again.
  const ShownState last = StateOf(dialog);
  QTest::qWait(150);
  EXPECT_EQ(StateOf(dialog), last);
  EXPECT_EQ(dialog.result(), ModalDialog::kCancelled);
}

TEST_F(UpdateDialogEndingTest, ThreadThatDoesNotEndIsLeftBehindAfterHalfASecond) {
  const auto files = Files();
  const auto stuck = std::make_shared<StuckDownload>();
  // Fulfilled when the thread's own copy of the job goes.
  const auto over = std::make_shared<std::promise<void>>();
  {
    const std::shared_ptr<void> token(nullptr, [over](void*) { over->set_value(); });
    UpdateJob job = Job();
    // It succeeds in the end, so that the next step would begin.
    job.download = stuck->download(
        [stuck, token, scratch = job.scratch_path](const std::string&, const std::string&,
                                                   const std::atomic<std::int32_t>&) {
          std::ofstream(scratch) << GoodConfiguration();
          return 0;
        });
    auto dialog = std::make_unique<UpdateDialog>(database_, std::move(job), nullptr);
    dialog->show();
    stuck->AwaitStart();
    QElapsedTimer closing;
    closing.start();
    dialog->done(ModalDialog::kCancelled);
    EXPECT_GE(closing.elapsed(), 500);
    EXPECT_LT(closing.elapsed(), 5'000);
    EXPECT_EQ(dialog->worker_result(), -2);
    closing.restart();
    dialog.reset();
    EXPECT_LT(closing.elapsed(), 400) << "it has waited once already";
  }
  stuck->Release();
  ASSERT_EQ(over->get_future().wait_for(std::chrono::milliseconds(kAtMost)),
            std::future_status::ready);
  QCoreApplication::processEvents();
  EXPECT_EQ(Text("update.dat"), GoodConfiguration()) << "the thread went on";
  EXPECT_EQ(Files(), files) << "but touched no file of the program";
}

TEST_F(UpdateDialogEndingTest, AnotherUpdateRunsWhileAnEarlierOneIsLeftBehind) {
  const auto stuck = std::make_shared<StuckDownload>();
  const auto over = std::make_shared<std::promise<void>>();
  {
    const std::shared_ptr<void> token(nullptr, [over](void*) { over->set_value(); });
    UpdateJob job = Job();
    job.scratch_path = folder_.File("other.dat");
    job.download = stuck->download([stuck, token](const std::string&, const std::string&,
                                                  const std::atomic<std::int32_t>&) { return 0; });
    UpdateDialog dialog(database_, std::move(job), nullptr);
    dialog.show();
    stuck->AwaitStart();
  }
  Serve();
  EXPECT_EQ(Run(ServerJob()), 0);
  stuck->Release();
  ASSERT_EQ(over->get_future().wait_for(std::chrono::milliseconds(kAtMost)),
            std::future_status::ready);
  EXPECT_NE(database_.discounts().Read(12, 1), std::nullopt);
}

}  // namespace
}  // namespace brovanta::test

// How the update dialog looks: its controls, its sizes, each of its states.
#include <gmock/gmock.h>

#include <QImage>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include "tests/support/form_check.h"
#include "tests/support/small_screen.h"
#include "tests/support/stuck_download.h"
#include "tests/ui/shell/update_screen.h"

namespace brovanta::test {
namespace {

constexpr int kAtMost = 30'000;  // milliseconds

class UpdateDialogLayoutTest : public UpdateScreenTest {
 protected:
  /// Shows the dialog and waits for the state.
  void Reach(UpdateDialog& dialog, const StateWatch::Test& test) {
    dialog.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return test(StateOf(dialog)); }, kAtMost));
  }
  /// Looks at it in every size.
  static void Look(UpdateDialog& dialog, const QString& name) {
    for (const QSize& size : ScreenSizes()) {
      dialog.resize(size);
      SavePicture(&dialog, name);
      EXPECT_EQ(Clipped(&dialog), "") << name.toStdString() << size.width();
    }
  }
};

TEST_F(UpdateDialogLayoutTest, ControlsHaveTheirNumbersAndTexts) {
  UpdateDialog dialog(database_, Job(), nullptr);
  EXPECT_EQ(dialog.windowTitle().toStdString(), "Brovanta");
  const auto* status = qobject_cast<QLabel*>(Control(&dialog, 1052));
  ASSERT_NE(status, nullptr);
  EXPECT_EQ(status->text().toStdString(), "Brovanta Update");
  const auto* bar = qobject_cast<QProgressBar*>(Control(&dialog, 1053));
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(bar->maximum() - bar->minimum(), 4);
  const auto* ok = qobject_cast<QPushButton*>(Control(&dialog, 1));
  ASSERT_NE(ok, nullptr);
  EXPECT_EQ(ok->text().toStdString(), "OK");
  const auto* cancel = qobject_cast<QPushButton*>(Control(&dialog, 2));
  ASSERT_NE(cancel, nullptr);
  EXPECT_EQ(cancel->text().toStdString(), "Cancel");
  EXPECT_TRUE(dialog.isModal());
}

TEST_F(UpdateDialogLayoutTest, LooksWellInitializing) {
  for (const QSize& size : ScreenSizes()) {
    UpdateDialog dialog(database_, Job(), nullptr);
    dialog.resize(size);
    dialog.show();
    SavePicture(&dialog, QStringLiteral("update_1_initializing"));
    EXPECT_EQ(Clipped(&dialog), "") << size.width();
  }
}

TEST_F(UpdateDialogLayoutTest, LooksWellRunningAndAborting) {
  StuckDownload stuck;
  UpdateJob job = Job();
  const UpdateJob::Download answered = job.download;
  job.download = [&, held = stuck.download()](const std::string& url, const std::string& path,
                                              const std::atomic<std::int32_t>& flag) {
    return (url.find("categories") != std::string::npos ? held : answered)(url, path, flag);
  };
  UpdateDialog dialog(database_, std::move(job), nullptr);
  Reach(dialog, Line("Updating categories..."));
  Look(dialog, QStringLiteral("update_2_running"));
  Click(dialog, "cancelButton");
  Look(dialog, QStringLiteral("update_3_aborting"));
  stuck.Release();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, kAtMost));
}

TEST_F(UpdateDialogLayoutTest, LooksWellFailed) {
  failures_["/webspider.xml"] = 12029;
  UpdateDialog dialog(database_, Job(), nullptr);
  const auto* icon = dialog.findChild<QLabel*>(QStringLiteral("iconLabel"));
  const QImage before = icon->pixmap().toImage();
  Reach(dialog, HasFailed);
  EXPECT_NE(icon->pixmap().toImage(), before) << "a failure is not only a sentence";
  Look(dialog, QStringLiteral("update_4_failed"));
  Click(dialog, "okButton");
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(UpdateDialogLayoutTest, LooksWellDone) {
  for (const QSize& size : ScreenSizes()) {
    UpdateDialog dialog(database_, Job(), nullptr);
    dialog.resize(size);
    Reach(dialog, [](const ShownState& state) { return state.steps == 4 && !state.cancel; });
    SavePicture(&dialog, QStringLiteral("update_5_done"));
    EXPECT_EQ(Clipped(&dialog), "") << size.width();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, kAtMost));
  }
}

TEST_F(UpdateDialogLayoutTest, TextOfTwiceTheSizeFits) {
  failures_["/webspider.xml"] = 12029;
  UpdateDialog dialog(database_, Job(), nullptr);
  QFont font = dialog.font();
  font.setPixelSize(2 * QFontInfo(font).pixelSize());
  dialog.setFont(font);
  Reach(dialog, HasFailed);
  Look(dialog, QStringLiteral("update_6_large"));
}

TEST_F(UpdateDialogLayoutTest, NothingMovesWhenTheLineChanges) {
  Serve();
  held_ = {"/stores.aspx"};
  UpdateDialog dialog(database_, ServerJob(), nullptr);
  dialog.show();
  QCoreApplication::sendPostedEvents();
  auto* bar = dialog.findChild<QProgressBar*>(QStringLiteral("progressBar"));
  const QPoint before = bar->pos();
  const QSize size = dialog.size();
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return StateOf(dialog).text == "Updating stores..."; }, kAtMost));
  EXPECT_EQ(bar->pos(), before);
  EXPECT_EQ(dialog.size(), size);
}

TEST_F(UpdateDialogLayoutTest, SmallWindowOnADesktopAndTheWholeScreenOfAHandheld) {
  UpdateDialog dialog(database_, Job(), nullptr);
  dialog.show();
  if (OnSmallScreen()) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_TRUE(dialog.isFullScreen());
    EXPECT_EQ(dialog.size(), QSize(360, 640));
    return;
  }
  EXPECT_EQ(dialog.width(), 360);
  EXPECT_LT(dialog.height(), 240);
  EXPECT_EQ(RunOnSmallScreen("UpdateDialogLayoutTest."
                             "SmallWindowOnADesktopAndTheWholeScreenOfAHandheld"),
            0);
}

}  // namespace
}  // namespace brovanta::test

#include "app/application.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

/// Runs an action in the main dialog's loop, then closes the window.
template <typename Action>
void WithMainWindow(Application& application, Action action) {
  QTimer::singleShot(0, qApp, [&application, action] {
    QWidget* const window = QApplication::activeModalWidget();
    ASSERT_NE(window, nullptr);
    action(application, window);
    window->close();
  });
  EXPECT_FALSE(application.InitInstance());
}

class ApplicationTest : public testing::Test {
 protected:
  test::TempFolder folder_;
  Application application_{platform::RegistryStore(folder_.File("registry.reg")), folder_.path()};
};

TEST_F(ApplicationTest, RunsTheMainDialogModallyAndEndsWhenItCloses) {
  bool seen = false;
  WithMainWindow(application_, [&seen](Application&, QWidget* window) {
    seen = true;
    EXPECT_TRUE(window->isModal());
    EXPECT_TRUE(window->isWindow());
  });
  EXPECT_TRUE(seen);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ApplicationTest, SearchManagerIsMadeOnFirstUseAndGoesWithTheMainDialog) {
  SearchManager* const searches = application_.GetSearchManager();
  ASSERT_NE(searches, nullptr);
  EXPECT_EQ(searches->index_path(), "");
  EXPECT_EQ(searches->configuration_path(), "");
  EXPECT_EQ(searches->results_folder(), "");
  EXPECT_EQ(searches->FirstCategory(), nullptr);
  EXPECT_EQ(searches->FirstAgent(), nullptr);
  EXPECT_EQ(searches->engine().RunningCount(), 0U);
  EXPECT_EQ(searches->engine().ResultCount(), 0U);
  EXPECT_TRUE(searches->saved_searches().searches().empty());
  EXPECT_EQ(application_.GetSearchManager(), searches) << "there is one";
  bool seen = false;
  WithMainWindow(application_, [&](Application& application, QWidget* window) {
    seen = true;
    EXPECT_EQ(application.GetSearchManager(), searches);
    EXPECT_EQ(qobject_cast<MainDialog*>(window)->searches(), searches);
    window->close();
    EXPECT_EQ(application.GetSearchManager(), nullptr);
  });
  EXPECT_TRUE(seen);
  EXPECT_EQ(application_.GetSearchManager(), nullptr) << "it is not made again";
}

TEST_F(ApplicationTest, RaisingRestoresAMinimizedWindow) {
  WithMainWindow(application_, [](Application& application, QWidget* window) {
    window->setWindowState(window->windowState() | Qt::WindowMinimized);
    application.RaiseWindow();
    EXPECT_FALSE(window->isMinimized());
  });
}

TEST_F(ApplicationTest, RaisingBringsTheOpenDialogAlong) {
  WithMainWindow(application_, [](Application& application, QWidget* window) {
    QDialog dialog(window);
    dialog.setModal(true);
    dialog.show();
    dialog.setWindowState(Qt::WindowMinimized);
    application.RaiseWindow();
    EXPECT_FALSE(dialog.isMinimized());
  });
}

TEST_F(ApplicationTest, RaisingWithoutAWindowDoesNothing) {
  application_.RaiseWindow();
  WithMainWindow(application_, [](Application&, QWidget*) {});
  application_.RaiseWindow();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace brovanta

// Add on the list of web searches.
#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "tests/search/agents.h"
#include "tests/support/loopback_shops.h"
#include "tests/ui/shell/main_screen.h"
#include "ui/websearch/search_progress_dialog.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kAtMost = 30'000;  // milliseconds
constexpr int kSearchesTab = 3;

class MainCommandsNewSearchTest : public MainScreenTest, protected LoopbackShops {
 protected:
  /// Opens the screen on the web searches.
  void OpenOnSearches() {
    WriteConfiguration(folder_);
    Open();
    ChooseTab(kSearchesTab);
  }
  static QPushButton& Button(QWidget& dialog, const char* name) {
    return *dialog.findChild<QPushButton*>(QString::fromLatin1(name));
  }
  static bool IsEnabled(QWidget& dialog, const char* name) {
    return Button(dialog, name).isEnabled();
  }
  /// "Add", a search for soap in the first category, and `work` in its progress screen.
  void SearchAnd(const std::function<void(SearchProgressDialog&)>& work) {
    InNextDialog([this, &work](QWidget& dialog) {
      auto* categories = dialog.findChild<QComboBox*>();
      ASSERT_NE(categories, nullptr);
      QTest::keyClick(categories, Qt::Key_Down);
      Type(dialog, "nameEdit", "soap");
      InNextDialog([&work](QWidget& window) { work(dynamic_cast<SearchProgressDialog&>(window)); });
      Click(dialog, "searchButton");
    });
    Tool(kToolAdd);
  }
  static void Finish(SearchProgressDialog& progress) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return IsEnabled(progress, "doneButton"); }, kAtMost));
    Click(progress, "doneButton");
  }
  static void AwaitSearching(SearchProgressDialog& progress) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return IsEnabled(progress, "stopButton"); }, kAtMost));
  }
};

TEST_F(MainCommandsNewSearchTest, AddOpensTheSearchDialog) {
  OpenOnSearches();
  const std::function<void()> ways[] = {[&] { Tool(kToolAdd); }, [&] { ToolsMenu("Add"); },
                                        [&] { Press(Qt::Key_Insert); }};
  for (const auto& way : ways) {
    std::string opened;
    InNextDialog([&](QWidget& dialog) {
      opened = dialog.metaObject()->className();
      dialog.close();
    });
    way();
    EXPECT_EQ(opened, "brovanta::SearchDialog");
  }
}

TEST_F(MainCommandsNewSearchTest, SearchWithResultsIsListedAtOnce) {
  AddShop(1, Block("Soap", "/s", "1.50"));
  OpenOnSearches();
  EXPECT_THAT(Rows(), IsEmpty());
  SearchAnd([this](SearchProgressDialog& progress) {
    InNextDialog([](QWidget& list) { list.close(); });
    Finish(progress);
  });
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "soap"));
}

TEST_F(MainCommandsNewSearchTest, SearchWithoutResultsLeavesTheTreeAsItIs) {
  AddShop(1, Block("Soap", "/s", "1.50"));
  OpenOnSearches();
  SearchAnd([this](SearchProgressDialog& progress) {
    InNextDialog([](QWidget& list) { list.close(); });
    Finish(progress);
  });
  agents_.clear();
  AddShop(2);
  WriteConfiguration(folder_);
  Select("soap");
  SearchAnd(&Finish);
  EXPECT_TRUE(tree().CaretInfo()) << "not rebuilt";
}

TEST_F(MainCommandsNewSearchTest, CancelledDialogLeavesTheTreeAsItIs) {
  AddShop(1, Block("Soap", "/s", "1.50"));
  OpenOnSearches();
  SearchAnd([this](SearchProgressDialog& progress) {
    InNextDialog([](QWidget& list) { list.close(); });
    Finish(progress);
  });
  Select("soap");
  InNextDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  Tool(kToolAdd);
  EXPECT_TRUE(tree().CaretInfo());
}

TEST_F(MainCommandsNewSearchTest, ClosedWindowEndsTheSearch) {
  AddShop(1, Block("Soap", "/s", "1.50"));
  AddHeldShop(2);
  OpenOnSearches();
  QElapsedTimer closing;
  SearchAnd([&](SearchProgressDialog& progress) {
    AwaitSearching(progress);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Objects().size() == 2; }, kAtMost));
    closing.start();
    screen().close();
    EXPECT_FALSE(progress.isVisible());
    EXPECT_EQ(screen().searches(), nullptr);
  });
  EXPECT_LT(closing.elapsed(), 5'000);
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(IsQuiet());
  EXPECT_FALSE(folder_.Read("websearch.dat"));
}

TEST_F(MainCommandsNewSearchTest, ClosedWindowEndsTheResultsListOfASearchToo) {
  AddShop(1, Block("Soap", "/s", "1.50"));
  AddHeldShop(2);
  OpenOnSearches();
  SearchAnd([&](SearchProgressDialog& progress) {
    AwaitSearching(progress);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Objects().size() == 2; }, kAtMost));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return progress.findChild<QTreeWidget*>()->topLevelItemCount() == 2; }, kAtMost));
    Click(progress, "stopButton");
    InNextDialog([&](QWidget& list) {
      screen().close();
      EXPECT_FALSE(list.isVisible());
    });
    Finish(progress);
  });
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(MainCommandsNewSearchTest, AllWindowsClosedUnderTheResultsListEndTheProgram) {
  AddShop(1, Block("Soap", "/s", "1.50"));
  OpenOnSearches();
  SearchAnd([&](SearchProgressDialog& progress) {
    InNextDialog([](QWidget&) { QApplication::closeAllWindows(); });
    Finish(progress);
  });
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(screen().searches(), nullptr);
  EXPECT_TRUE(folder_.Read("WebSearch/2.dat"));
}

TEST_F(MainCommandsNewSearchTest, AllWindowsClosedInTheSearchDialogEndTheProgram) {
  OpenOnSearches();
  InNextDialog([](QWidget&) { QApplication::closeAllWindows(); });
  Tool(kToolAdd);
  EXPECT_FALSE(screen().isVisible());
}

TEST_F(MainCommandsNewSearchTest, ClosedWindowUnderTheFirstMessageOpensNothing) {
  Open();  // without an agent file
  ChooseTab(kSearchesTab);
  InNextDialog([this](QWidget& box) {
    EXPECT_NE(qobject_cast<QMessageBox*>(&box), nullptr);
    screen().close();
  });
  Tool(kToolAdd);
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace brovanta::test

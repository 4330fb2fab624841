// The search chapter: the demonstration's shops asked, one of them stopped, and what was found
// kept, viewed and deleted.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <algorithm>
#include <atomic>
#include <ctime>

#include "net/http/http_client.h"
#include "search/results_file.h"
#include "tests/support/browser_stand_in.h"
#include "tests/support/framed_file.h"
#include "tests/tour/chapters.h"
#include "tests/tour/demo_server.h"
#include "ui/base/color_button.h"
#include "ui/websearch/result_list.h"
#include "ui/websearch/search_results_dialog.h"

namespace brovanta::tour {
namespace {

using test::ReadFramedFile;
using test::TextAt;
using test::WordAt;

constexpr int kAtMost = 30'000;  // milliseconds
constexpr int kUpdateButton = 1004;
constexpr int kSearchesTab = 3;
constexpr int kAdd = 2771;
constexpr int kEdit = 2772;
constexpr int kDelete = 2773;
constexpr std::uint32_t kFirstSearch = 2;
constexpr const char* kSlowShop = "Slow Boat Traders";
constexpr const char* kBrokenShop = "Creaky Gate Bazaar";
constexpr QSize kHandheld{360, 640};

class SearchChapter {
 public:
  SearchChapter(Robot& robot, Stage& stage, DemoServer& server)
      : robot_(robot), stage_(stage), server_(server) {}

  void Play(MainDialog& main);

 private:
  /// Pictures of a screen in all three shapes.
  void Pictures(QWidget& window, const char* name);
  QString StateOf(QWidget& progress, const char* shop);
  bool Await(const std::function<bool()>& condition, const char* what);
  /// The saved results, in the order of their file.
  std::vector<SearchResultItem> Saved();
  void ExpectSaved(std::size_t results, const char* what);
  ResultList* ListOf(QWidget& dialog);
  void SelectResult(QWidget& dialog, int row);

  void WithoutShops(MainDialog& main);
  void BringShops(MainDialog& main);
  void ForgetTheName(QWidget& dialog);
  void Search(MainDialog& main);
  void WatchAndStopOne(QWidget& progress);
  void SeeTheList(QWidget& list);
  void Reopen(MainDialog& main);
  void ViewOne(QWidget& list);
  void DeleteSearch(MainDialog& main);

  Robot& robot_;
  Stage& stage_;
  DemoServer& server_;
  std::size_t found_ = 0;
};

void SearchChapter::Play(MainDialog& main) {
  main.SetUpdateServer(server_.url());
  robot_.TapTab(main, kSearchesTab);
  robot_.Picture(main, Text("before"));
  WithoutShops(main);
  BringShops(main);
  Search(main);
  Reopen(main);
  DeleteSearch(main);
}

void SearchChapter::Pictures(QWidget& window, const char* name) {
  for (const QSize& size : {QSize(640, 360), QSize(320, 480), kHandheld}) {
    window.resize(size);
    Settle();
    robot_.Picture(window, Text(name) + QStringLiteral("_%1").arg(size.width()));
  }
}

bool SearchChapter::Await(const std::function<bool()>& condition, const char* what) {
  const bool came = QTest::qWaitFor(condition, kAtMost);
  robot_.Expect(came, Text(what));
  return came;
}

QString SearchChapter::StateOf(QWidget& progress, const char* shop) {
  const auto* list = progress.findChild<QTreeWidget*>(Text("agentList"));
  if (list == nullptr) return {};
  const auto rows = list->findItems(Text(shop), Qt::MatchExactly);
  return rows.isEmpty() ? QString() : rows.first()->text(1);
}

std::vector<SearchResultItem> SearchChapter::Saved() {
  SearchResultList list;
  const std::string path = stage_.folder() + "/WebSearch/2.dat";
  robot_.Expect(ReadSearchResults(list, path) == 0, Text("the results file is sound"));
  return list.items();
}

void SearchChapter::ExpectSaved(std::size_t results, const char* what) {
  robot_.Expect(Saved().size() == results, Text(what) + Text(": so many results are kept"));
}

ResultList* SearchChapter::ListOf(QWidget& dialog) {
  auto* list = dialog.findChild<ResultList*>();
  robot_.Expect(list != nullptr, Text("there is a list of results"));
  return list;
}

void SearchChapter::SelectResult(QWidget& dialog, int row) {
  ResultList* const list = ListOf(dialog);
  if (list == nullptr || list->topLevelItem(row) == nullptr) return;
  const QModelIndex index = list->model()->index(row, 0);
  list->scrollTo(index);
  Settle();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(index).center());
  Settle();
  robot_.Expect(list->Selected() != nullptr, Text("the result is selected"));
}

// The dialog opens behind a message.
void SearchChapter::WithoutShops(MainDialog& main) {
  QTimer watch;
  watch.setInterval(1);
  QObject::connect(&watch, &QTimer::timeout, [&] {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || dialog->objectName() != Text("SearchForm")) return;
    watch.stop();
    robot_.Picture(*dialog, Text("without_shops"));
    robot_.Tap(*dialog, Text("Cancel"));
  });
  watch.start();
  robot_.AnswerMessage(
      [&] { robot_.TapCommand(main, kAdd); },
      Text("There was an error while loading the web search agents configuration file.\n\nPlease "
           "use the Update command to download the latest web search agents configuration file."),
      Text("OK"));
  robot_.Expect(!watch.isActive(), Text("the dialog opens all the same"));
}

void SearchChapter::BringShops(MainDialog& main) {
  robot_.During([&] { robot_.Tap(main, kUpdateButton); },
                [&](QWidget& dialog) {
                  Await([&] { return !dialog.isVisible(); }, "the update closes by itself");
                });
  robot_.Expect(QFile(Text("webspider.xml")).size() > 0, Text("there are search agents"));
}

void SearchChapter::ForgetTheName(QWidget& dialog) {
  robot_.AnswerMessage(
      [&] { robot_.Tap(dialog, Text("Search")); },
      Text("You must first enter the item name for the item that you want to search for."),
      Text("OK"));
}

void SearchChapter::Search(MainDialog& main) {
  robot_.During([&] { robot_.TapCommand(main, kAdd); },
                [&](QWidget& dialog) {
                  ForgetTheName(dialog);
                  if (QWidget* box = robot_.Field(dialog, Text("Category:"))) {
                    robot_.Choose(*box, Text("Groceries"));
                  }
                  if (QWidget* name = robot_.Field(dialog, Text("Name:")))
                    robot_.Type(*name, Text("bread"));
                  Pictures(dialog, "search");
                  robot_.During([&] { robot_.Tap(dialog, Text("Search")); },
                                [&](QWidget& progress) { WatchAndStopOne(progress); });
                });
  robot_.Expect(robot_.Rows(main) == QStringList{Text("bread")}, Text("the search is listed"));
  robot_.Picture(main, Text("listed"));
  const auto index = ReadFramedFile(stage_.folder() + "/websearch.dat", true, 68);
  robot_.Expect(
      index && index->records.size() == 1 && WordAt(index->records[0], 4) == kFirstSearch &&
          WordAt(index->records[0], 8) == 1 && TextAt(index->records[0], 16, 50) == "bread",
      Text("the index has the search"));
}

void SearchChapter::WatchAndStopOne(QWidget& progress) {
  robot_.Picture(progress, Text("starting"));
  const auto ended = [&] {
    const auto* list = progress.findChild<QTreeWidget*>(Text("agentList"));
    return list != nullptr && list->topLevelItemCount() > 1 &&
           list->findItems(Text("searching"), Qt::MatchExactly, 1).size() == 1;
  };
  Await(ended, "all shops but one have answered");
  robot_.Expect(StateOf(progress, kSlowShop) == Text("searching"), Text("the slow one has not"));
  robot_.Expect(StateOf(progress, kBrokenShop) == Text("failed"), Text("the broken one failed"));
  Pictures(progress, "searching");
  robot_.Tap(progress, Text("Stop"));
  Await([&] { return StateOf(progress, kSlowShop) == Text("failed"); }, "the slow shop is stopped");
  Await([&] { return progress.findChild<QPushButton*>(Text("doneButton"))->isEnabled(); },
        "the search is over");
  Pictures(progress, "found");
  robot_.During([&] { robot_.Tap(progress, Text("Done")); },
                [&](QWidget& list) { SeeTheList(list); });
}

void SearchChapter::SeeTheList(QWidget& list) {
  const std::vector<SearchResultItem> saved = Saved();
  found_ = saved.size();
  robot_.Expect(found_ >= 10, Text("bread has been found"));
  robot_.Expect(std::is_sorted(saved.begin(), saved.end(),
                               [](const auto& a, const auto& b) { return a.Price < b.Price; }),
                Text("the cheapest comes first"));
  // Who answers first may not show, or the pictures of the guide would change by themselves.
  robot_.Expect(std::adjacent_find(saved.begin(), saved.end(),
                                   [](const auto& a, const auto& b) {
                                     return a.Price == b.Price && a.SiteName != b.SiteName;
                                   }) == saved.end(),
                Text("no two shops ask the same price"));
  robot_.Expect(std::all_of(saved.begin(), saved.end(),
                            [](const auto& item) {
                              return item.Price > 0.0 &&
                                     QString::fromStdString(item.Title.value_or(std::string()))
                                         .contains(Text("bread"), Qt::CaseInsensitive);
                            }),
                Text("everything found is bread and has a price"));
  const ResultList* rows = ListOf(list);
  robot_.Expect(rows != nullptr && rows->topLevelItemCount() == static_cast<int>(found_),
                Text("the list shows what is kept"));
  Pictures(list, "results");
  robot_.Tap(list, Text("Close"));
}

void SearchChapter::Reopen(MainDialog& main) {
  robot_.SelectRow(main, Text("bread"));
  robot_.During([&] { robot_.TapCommand(main, kEdit); },
                [&](QWidget& list) {
                  ViewOne(list);
                  ExpectSaved(found_ - 1, "after one was deleted in the viewer");
                  SelectResult(list, 1);
                  robot_.AnswerMessage(
                      [&] { robot_.TapCommand(list, kResultDelete); },
                      Text("Do you want to permanently delete the selected search result?"),
                      Text("Yes"));
                  ExpectSaved(found_ - 2, "after one was deleted in the list");
                  const ResultList* rows = ListOf(list);
                  if (rows == nullptr) return;
                  robot_.Expect(rows->topLevelItemCount() == static_cast<int>(found_) - 2,
                                Text("the list has lost both"));
                  robot_.Picture(list, Text("two_less"));
                  robot_.Tap(list, Text("Close"));
                });
}

void SearchChapter::ViewOne(QWidget& list) {
  SelectResult(list, 0);
  const ResultList* rows = ListOf(list);
  const ResultRow* row = rows != nullptr ? rows->Selected() : nullptr;
  robot_.Expect(row != nullptr, Text("a result is selected"));
  if (row == nullptr) return;
  const QString title = row->subitem(kTitleSubitem);
  const QString url = row->subitem(kUrlSubitem);
  const test::BrowserStandIn browser;
  robot_.During([&] { robot_.TapCommand(list, kResultView); },
                [&](QWidget& viewer) {
                  Pictures(viewer, "viewer");
                  robot_.Tap(viewer, Text("Open"));
                  robot_.Expect(viewer.isVisible(), Text("the viewer stays open"));
                  robot_.Tap(viewer, Text("Delete"));
                });
  robot_.Expect(browser.addresses() == QStringList{url},
                Text("the browser is sent to the article"));
  const std::atomic<std::int32_t> flag{0};
  const auto page = DownloadUrlToBuffer(url.toStdString(), 0, flag);
  robot_.Expect(
      page && page->find(title.section(QLatin1Char(' '), 0, 0).toStdString()) != std::string::npos,
      Text("its page tells of it"));
}

void SearchChapter::DeleteSearch(MainDialog& main) {
  robot_.SelectRow(main, Text("bread"));
  robot_.AnswerMessage(
      [&] { robot_.TapCommand(main, kDelete); },
      Text("Do you want to permanently delete the selected web search and all its results?"),
      Text("Yes"));
  robot_.Expect(robot_.Rows(main).isEmpty(), Text("no search is listed any more"));
  robot_.Expect(!QFile::exists(Text("WebSearch/2.dat")), Text("its results are gone"));
  robot_.Picture(main, Text("deleted"));
}

}  // namespace

void SearchTheWeb(Robot& robot, Stage& stage) {
  if (!HasDemoServer()) return;
  for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"}) qunsetenv(name);
  QDir::setCurrent(QString::fromStdString(stage.folder()));  // as the program does at its start
  DemoServer server(stage.folder());
  robot.Expect(!server.url().empty(), Text("the server starts"));
  if (server.url().empty()) return;
  stage.Run(std::time(nullptr), kHandheld,
            [&](MainDialog& main) { SearchChapter(robot, stage, server).Play(main); });
}

}  // namespace brovanta::tour

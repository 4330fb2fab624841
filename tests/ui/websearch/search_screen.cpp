#include "tests/ui/websearch/search_screen.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>
#include <QTreeWidget>
#include <chrono>
#include <utility>

namespace brovanta::test {
namespace {

template <typename Widget>
Widget& Find(QWidget& dialog, const char* name) {
  auto* const found = dialog.findChild<Widget*>(QString::fromLatin1(name));
  if (found == nullptr) qFatal("no %s", name);
  return *found;
}

constexpr int kLookEvery = 5;  // milliseconds

void FireStartTimer() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* const progress = qobject_cast<SearchProgressDialog*>(window);
    if (progress == nullptr || progress->start_timer() == 0) continue;
    QTimerEvent fires(progress->start_timer());
    QApplication::sendEvent(progress, &fires);
    return;  // there is one such screen at a time
  }
}

}  // namespace

ShownProgress ProgressOf(QDialog& dialog) {
  return {Find<QLabel>(dialog, "headerLabel").text().toStdString(),
          Find<QPushButton>(dialog, "doneButton").isEnabled(),
          Find<QPushButton>(dialog, "stopButton").isEnabled()};
}

std::vector<std::string> AgentRows(QDialog& dialog) {
  const auto& list = Find<QTreeWidget>(dialog, "agentList");
  std::vector<std::string> rows;
  for (int i = 0; i < list.topLevelItemCount(); ++i) {
    const QTreeWidgetItem& row = *list.topLevelItem(i);
    rows.push_back((row.text(0) + QStringLiteral(": ") + row.text(1)).toStdString());
  }
  return rows;
}

void ClickButton(QWidget& dialog, const char* button_name) {
  QTest::mouseClick(&Find<QPushButton>(dialog, button_name), Qt::LeftButton);
}

bool IsSearching(QDialog& dialog) { return ProgressOf(dialog).stop; }
bool HasFinished(QDialog& dialog) { return ProgressOf(dialog).done; }

int EndedAgents(QDialog& dialog) {
  int ended = 0;
  for (const std::string& row : AgentRows(dialog)) {
    if (row.find(": searching") == std::string::npos) ++ended;
  }
  return ended;
}

void Await(const std::function<bool()>& condition) {
  FireStartTimer();
  // Each report of an agent waits for the one before: with a pause between two looks, as in
  // QTest::qWaitFor, those of two hundred would take seconds.
  QTimer look;  // for what changes without an event
  look.start(kLookEvery);
  QElapsedTimer waited;
  waited.start();
  while (!condition() && waited.elapsed() < kAtMost) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  EXPECT_TRUE(condition());
}

SearchServices ServicesWithoutDelay() {
  SearchServices services = SearchServices::Real();
  services.sleep = [](std::chrono::milliseconds) {};
  return services;
}

SearchScreenTest::SearchScreenTest() { EXPECT_EQ(searches_->SetSearchFolder(folder_.path()), 0); }

SearchScreenTest::~SearchScreenTest() {
  searches_.reset();
  EXPECT_TRUE(IsQuiet()) << "somebody still holds a connection";
}

void SearchScreenTest::UseServices(SearchServices services) {
  searches_ = std::make_unique<SearchManager>(std::move(services));
  EXPECT_EQ(searches_->SetSearchFolder(folder_.path()), 0);
}

void SearchScreenTest::LoadConfiguration() {
  WriteConfiguration(folder_);
  EXPECT_EQ(searches_->LoadAgentConfiguration(searches_->configuration_path()), 0);
}

int SearchScreenTest::RunProgress(const std::function<void(SearchProgressDialog&)>& work,
                                  const QString& name, std::int32_t category, QWidget* parent) {
  SearchProgressDialog dialog(*searches_, name, category, parent);
  QTimer::singleShot(0, &dialog, [&] {
    work(dialog);
    if (dialog.isVisible()) dialog.done(ModalDialog::kCancelled);  // the work gave up
  });
  return dialog.exec();
}

int SearchScreenTest::RunToDone() {
  return RunProgress([this](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    CloseNextDialog();
    ClickButton(dialog, "doneButton");
  });
}

void SearchScreenTest::InNextDialog(std::function<void(QWidget&)> work) {
  dialog_watch_ = std::make_unique<DialogWatch>(std::move(work));
}

std::shared_ptr<bool> SearchScreenTest::CloseNextDialog() {
  auto opened = std::make_shared<bool>(false);
  InNextDialog([opened](QWidget& dialog) {
    *opened = true;
    dialog.close();
  });
  return opened;
}

}  // namespace brovanta::test

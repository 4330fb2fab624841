#include "ui/websearch/search_progress_dialog.h"

#include <QTimerEvent>
#include <utility>

#include "search/query_address.h"
#include "ui/base/message_box.h"
#include "ui/base/wide_text.h"
#include "ui/websearch/search_results_dialog.h"
#include "ui_search_progress.h"

namespace brovanta {
namespace {

constexpr int kStartDelay = 500;  // milliseconds: the screen is on view before the agents start

}  // namespace

SearchProgressDialog::SearchProgressDialog(SearchManager& searches, QString item_name,
                                           std::int32_t category_id, QWidget* parent)
    : ModalDialog(parent),
      searches_(searches),
      item_name_(std::move(item_name)),
      category_id_(category_id),
      form_(std::make_unique<Ui::SearchProgressForm>()) {
  form_->setupUi(this);
  form_->statusHeader->SetText(tr("Starting the web search agents...."));
  form_->doneButton->setEnabled(false);
  form_->stopButton->setEnabled(false);
  connect(form_->doneButton, &QPushButton::clicked, this, &SearchProgressDialog::Leave);
  connect(form_->stopButton, &QPushButton::clicked, this, [this] { searches_.StopSearch(); });
  link_ = std::make_shared<WindowLink>(
      [this](std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
        OnMessage(message, wParam, lParam);
      },
      [this] {
        QMetaObject::invokeMethod(
            this, [this] { link_->Deliver(); }, Qt::QueuedConnection);
      });
  form_->agentList->setFocus();
}

SearchProgressDialog::~SearchProgressDialog() { link_->Close(); }

void SearchProgressDialog::showEvent(QShowEvent* event) {
  ModalDialog::showEvent(event);
  if (std::exchange(shown_, true)) return;
  start_timer_ = startTimer(kStartDelay, Qt::PreciseTimer);
}

void SearchProgressDialog::timerEvent(QTimerEvent* event) {
  if (start_timer_ == 0 || event->timerId() != start_timer_) {
    ModalDialog::timerEvent(event);
    return;
  }
  KillStartTimer();
  Start();
}

void SearchProgressDialog::KillStartTimer() {
  if (start_timer_ != 0) killTimer(std::exchange(start_timer_, 0));
}

void SearchProgressDialog::Start() {
  const std::string words = NarrowText(item_name_).substr(0, kMaxWordsLength);
  if (searches_.StartSearch(category_id_, words, link_) == 0) {
    ShowMessage(this, tr("There was an error while starting the search agents for the "
                         "selected category."));
    if (over_) return;
    EnableDone(true);
    form_->statusHeader->SetText(tr("There was an error while starting the search."));
    return;
  }
  EnableDone(false);
  form_->statusHeader->SetText(tr("Brovanta is searching the internet..."));
}

void SearchProgressDialog::OnMessage(std::uint32_t message, std::uintptr_t wParam,
                                     std::intptr_t lParam) {
  switch (message) {
    case WM_SEARCH_AGENT_STARTED:
      return AddAgent(*AgentOf(wParam));
    case WM_SEARCH_AGENT_RESULTS:
      return form_->agentList->SetState(AgentOf(wParam)->SiteId, tr("%1 results").arg(lParam));
    case WM_SEARCH_AGENT_FAILED:
      return form_->agentList->SetState(AgentOf(wParam)->SiteId, tr("failed"));
    case WM_SEARCH_FINISHED:
      return ShowFinished(lParam);
    default:
      return;
  }
}

void SearchProgressDialog::AddAgent(const WebAgent& agent) {
  form_->agentList->AddAgent(agent.SiteId, WebText(agent.SiteName.value_or(std::string())));
  form_->agentList->SetState(agent.SiteId, tr("searching"));
}

// After a stop it comes once for each agent that was stopped.
void SearchProgressDialog::ShowFinished(std::intptr_t total) {
  form_->statusHeader->SetText(total >= 1 ? tr("Brovanta found %1 search results.").arg(total)
                                          : tr("Brovanta found no search results."));
  EnableDone(true);
}

void SearchProgressDialog::EnableDone(bool enable) {
  const bool comes_free = enable && !form_->doneButton->isEnabled();
  form_->doneButton->setEnabled(enable);
  if (comes_free) form_->doneButton->setFocus();
  form_->stopButton->setEnabled(!enable);
}

void SearchProgressDialog::Leave() {
  if (leaving_) return;
  if (searches_.engine().ResultCount() < 1) return done(kNoResults);
  leaving_ = true;
  SaveAndShow();
  if (!over_) done(kCompleted);
}

void SearchProgressDialog::SaveAndShow() {
  const SearchEngine& engine = searches_.engine();
  SavedSearches& saved = searches_.saved_searches();
  const SearchResultList results = engine.Results();
  const std::int32_t number = saved.SaveSearch(engine.category_id(), engine.words(), &results);
  if (number < 1) {
    ShowMessage(this, tr("There was an error while saving the search results.\r\n"
                         "Please try your search again."));
    return;
  }
  SearchResultsDialog(saved, number, WideText(engine.words()), this).exec();
}

// Once "Done" has been pressed the screen only waits for what is open over it: with all windows
// being closed it goes as well.
void SearchProgressDialog::reject() {
  if (leaving_) done(kCompleted);
}

void SearchProgressDialog::done(int result) {
  if (!std::exchange(over_, true)) {
    KillStartTimer();
    link_->Close();  // before the stop, which nobody is told of any more
    searches_.StopSearch();
  }
  ModalDialog::done(result);
}

}  // namespace brovanta

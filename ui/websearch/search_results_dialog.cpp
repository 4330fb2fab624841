#include "ui/websearch/search_results_dialog.h"

#include <QToolButton>

#include "ui/base/icons.h"
#include "ui/base/message_box.h"
#include "ui/base/row_layout.h"
#include "ui/base/theme.h"
#include "ui/websearch/result_page.h"
#include "ui/websearch/search_result_viewer.h"
#include "ui_search_results.h"

namespace brovanta {
namespace {

constexpr int kDeletePicture = 2773;  // of the main screen's tool with the same meaning

}  // namespace

SearchResultsDialog::SearchResultsDialog(const SavedSearches& searches, std::int32_t number,
                                         const QString& search_text, QWidget* parent)
    : ModalDialog(parent),
      path_(searches.ResultsPath(number)),
      search_text_(search_text),
      form_(std::make_unique<Ui::SearchResultsForm>()) {
  form_->setupUi(this);
  layout()->setSizeConstraint(QLayout::SetNoConstraint);
  form_->searchHeader->SetText(tr("Search: %1").arg(search_text));
  AddCommands();
  Load();
  OnCaretChanged();
  form_->resultList->setFocus();
}

SearchResultsDialog::~SearchResultsDialog() { form_->resultList->disconnect(this); }

void SearchResultsDialog::AddCommands() {
  PictureBar& bar = *form_->commandBar;
  const auto picture = [](const char* name) {
    return NamedIcon(QString::fromLatin1(name), theme::kNavy);
  };
  // Enter is the list's own key.
  bar.AddCommand(kResultView, picture("command_2795_view"), tr("View result"));
  bar.action(kResultView)->setToolTip(tr("View result (Enter)"));
  bar.AddCommand(kResultBrowse, picture("command_2805_browser"), tr("Open in the web browser"),
                 QStringLiteral("Ctrl+O"));
  bar.AddCommand(kResultDelete, CommandIcon(kDeletePicture), tr("Delete result"),
                 QStringLiteral("Del"));
  const QList<QWidget*> order = {form_->resultList, bar.button(kResultView),
                                 bar.button(kResultBrowse), bar.button(kResultDelete),
                                 form_->closeButton};
  for (qsizetype i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
  connect(&bar, &PictureBar::CommandChosen, this, &SearchResultsDialog::RunCommand);
  connect(form_->resultList, &ResultList::RowChosen, this, &SearchResultsDialog::View);
  connect(form_->resultList, &ResultList::CaretChanged, this, &SearchResultsDialog::OnCaretChanged);
  connect(form_->closeButton, &QPushButton::clicked, this, &SearchResultsDialog::reject);
}

void SearchResultsDialog::Load() {
  readable_ = ReadSearchResults(results_, path_) == 0;
  if (!readable_) results_.Clear();
  form_->resultList->SetResults(results_);
  form_->resultList->SetEmptyText(readable_ ? tr("No results") + QLatin1Char('\n') +
                                                  tr("Search again with other words.")
                                            : tr("The results could not be read"));
}

int SearchResultsDialog::exec() {
  if (!readable_) {
    ShowMessage(parentWidget(), tr("There was an error while reading the search "
                                   "results from the database."));
  }
  return over_ ? result() : ModalDialog::exec();
}

void SearchResultsDialog::done(int result) {
  over_ = true;
  ModalDialog::done(result);
}

void SearchResultsDialog::OnCaretChanged() {
  const bool selected = form_->resultList->Selected() != nullptr;
  for (const int command : {kResultView, kResultBrowse, kResultDelete}) {
    form_->commandBar->action(command)->setEnabled(selected);
  }
}

void SearchResultsDialog::RunCommand(int command) {
  switch (command) {
    case kResultView:
      return View();
    case kResultBrowse:
      return OpenPage();
    case kResultDelete:
      return Delete();
    default:
      return;
  }
}

const SearchResultItem* SearchResultsDialog::ResultToView() {
  const ResultRow* row = form_->resultList->Selected();
  if (row == nullptr) {
    Say(tr("You must first select the search result that you want to view."));
    return nullptr;
  }
  const SearchResultItem* result = results_.Find(row->id());
  if (result == nullptr) Say(tr("There was an error while opening the selected search result."));
  return result;
}

void SearchResultsDialog::View() {
  const SearchResultItem* result = ResultToView();
  if (result == nullptr) return;
  const std::int32_t id = result->Id;
  const ResultRow& row = *form_->resultList->Selected();
  SearchResultViewer viewer({.search_text = search_text_,
                             .title = row.subitem(kTitleSubitem),
                             .description = row.subitem(kDescriptionSubitem),
                             .url = row.subitem(kUrlSubitem),
                             .web_site = row.subitem(kWebSiteSubitem),
                             .price = PriceText(result->Price)},
                            this);
  if (viewer.exec() == SearchResultViewer::kDeleteResult && isVisible()) Remove(id);
}

void SearchResultsDialog::OpenPage() {
  if (ResultToView() != nullptr) {
    OpenResultPage(form_->resultList->Selected()->subitem(kUrlSubitem), this);
  }
}

void SearchResultsDialog::Delete() {
  const ResultRow* row = form_->resultList->Selected();
  if (row == nullptr)
    return Say(tr("You must first select the search result that you want to delete."));
  const std::int32_t id = row->id();
  const Answer answer =
      AskYesNo(this, tr("Do you want to permanently delete the selected search result?"));
  if (answer == Answer::kYes && isVisible()) Remove(id);
}

void SearchResultsDialog::Remove(std::int32_t id) {
  if (results_.Remove(id) != 0) {
    return Say(tr("There was an error while deleting the selected search result."));
  }
  if (WriteSearchResults(results_, path_) != 0) {
    return Say(tr("There was an error while saving the search results to the database."));
  }
  form_->resultList->RemoveSelected();
}

void SearchResultsDialog::Say(const QString& sentence) { ShowMessage(this, sentence); }

void SearchResultsDialog::Arrange() {
  ModalDialog::Arrange();
  SetInARow(*form_->bottomLayout, height() < width());  // the list gets the height
}

}  // namespace brovanta

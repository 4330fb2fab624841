#include "ui/websearch/search_dialog.h"

#include "ui/base/icons.h"
#include "ui/base/input_panel.h"
#include "ui/base/message_box.h"
#include "ui/base/wide_text.h"
#include "ui/websearch/search_progress_dialog.h"
#include "ui_search.h"

namespace brovanta {
namespace {

constexpr int kSearchesTab = 3;
constexpr QSize kPictureSize{32, 32};
constexpr QSize kWindowSize{360, 240};  // a larger text scrolls

}  // namespace

SearchDialog::SearchDialog(SearchManager& searches, QWidget* parent)
    : ModalDialog(parent), searches_(searches), form_(std::make_unique<Ui::SearchForm>()) {
  form_->setupUi(this);
  ShowIcon(*form_->iconLabel, TabIcon(kSearchesTab), kPictureSize, QIcon::On);
  ShowInputPanelOnFocus(form_->nameEdit);
  HideInputPanelOnFocus(form_->categoryBox);
  connect(form_->searchButton, &QPushButton::clicked, this, &SearchDialog::Search);
  connect(form_->cancelButton, &QPushButton::clicked, this, &SearchDialog::reject);
  form_->categoryBox->setFocus();
  resize(kWindowSize);
}

SearchDialog::~SearchDialog() = default;

int SearchDialog::exec() {
  const QString problem = LoadCategories();
  if (!problem.isEmpty()) ShowMessage(parentWidget(), problem);
  return over_ ? result() : ModalDialog::exec();
}

QString SearchDialog::LoadCategories() {
  if (searches_.LoadAgentConfiguration(searches_.configuration_path()) != 0) {
    return tr(
        "There was an error while loading the web search agents configuration file.\r\n\r\nPlease "
        "use the Update command to download the latest web search agents configuration file.");
  }
  if (searches_.CategoryCount() == 0) {
    return tr(
        "There are no search categories defined in the web search agents configuration "
        "file.\r\n\r\nPlease use the Update command to download the latest web search agents "
        "configuration file.");
  }
  for (const WebAgentType* category = searches_.FirstCategory(); category != nullptr;
       category = searches_.NextCategory()) {
    form_->categoryBox->addItem(OneLine(WebText(category->TypeName)), category->TypeId);
  }
  form_->categoryBox->setCurrentIndex(-1);  // the box has taken the first by itself
  return {};
}

void SearchDialog::Search() {
  const QString name = OneLine(form_->nameEdit->text());
  if (name.isEmpty()) {
    ShowMessage(this, tr("You must first enter the item name for the item that you "
                         "want to search for."));
    form_->nameEdit->setFocus();
    return;
  }
  const int category_id = form_->categoryBox->currentData().toInt();  // 0 without a selection
  if (category_id == 0) {
    ShowMessage(this, tr("You must first select the item category for the item that "
                         "you want to search for."));
    form_->categoryBox->setFocus();
    return;
  }
  ShowInputPanel(false);
  const int result = SearchProgressDialog(searches_, name, category_id, this).exec();
  if (!over_) done(result == kCompleted ? kCompleted : kNoResults);
}

void SearchDialog::done(int result) {
  over_ = true;
  ModalDialog::done(result);
}

}  // namespace brovanta

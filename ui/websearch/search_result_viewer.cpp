#include "ui/websearch/search_result_viewer.h"

#include "ui/base/theme.h"
#include "ui/websearch/result_page.h"
#include "ui_search_result.h"

namespace brovanta {
namespace {

constexpr int kAboveCaption = 8;  // sets the fields apart

}  // namespace

SearchResultViewer::SearchResultViewer(const ShownResult& result, QWidget* parent)
    : ModalDialog(parent, kCloseResult),
      url_(result.url),
      form_(std::make_unique<Ui::SearchResultForm>()) {
  form_->setupUi(this);
  SetUpTexts(result);
  connect(form_->openButton, &QPushButton::clicked, this, [this] { OpenResultPage(url_, this); });
  connect(form_->closeButton, &QPushButton::clicked, this, [this] { done(kCloseResult); });
  connect(form_->deleteButton, &QPushButton::clicked, this, [this] { done(kDeleteResult); });
  form_->openButton->setFocus();
}

SearchResultViewer::~SearchResultViewer() = default;

void SearchResultViewer::SetUpTexts(const ShownResult& result) {
  for (QLabel* caption : {form_->webSiteTitle, form_->priceTitle, form_->titleTitle,
                          form_->urlTitle, form_->descriptionTitle}) {
    InkWithAccent(*caption);
    caption->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  }
  for (QLabel* caption : {form_->titleTitle, form_->urlTitle, form_->descriptionTitle}) {
    caption->setContentsMargins(0, kAboveCaption, 0, 0);
  }
  form_->searchHeader->SetText(tr("Search: ") + result.search_text);
  form_->webSiteLabel->setText(result.web_site);
  form_->priceLabel->setText(result.price);
  form_->titleLabel->setText(result.title);
  form_->urlLabel->setText(result.url);
  form_->descriptionLabel->setText(result.description);
}

void SearchResultViewer::showEvent(QShowEvent* event) {
  ModalDialog::showEvent(event);
  // There is nothing in the page that could take the focus, and long texts are read by keys too.
  form_->scrollArea->setFocusPolicy(Qt::StrongFocus);
}

}  // namespace brovanta

#include "ui/shell/options_dialog.h"

#include <QFontInfo>
#include <QLineEdit>

#include "ui/base/input_panel.h"
#include "ui/base/message_box.h"
#include "ui/base/wide_text.h"
#include "ui_172_options.h"
#include "util/number.h"

namespace brovanta {

namespace {

constexpr int kTitlePixels = 14;

constexpr const char* kCountries[] = {"United States", "Canada",
                                      "Australia",     "United Kingdom",
                                      "Germany",       "France",
                                      "Italy",         "Spain",
                                      "Japan",         "Austria",
                                      "Belgium",       "Denmark",
                                      "New Zealand",   "Finland",
                                      "Greece",        "Ireland",
                                      "Luxembourg",    "Netherlands",
                                      "Norway",        "Sweden",
                                      "Switzerland",   ""};

/// Bold and 14 pixels high, or as high as the rest of the form where that is larger.
void MakeTitle(QLabel* label) {
  QFont font = label->font();
  font.setPixelSize(qMax(kTitlePixels, QFontInfo(font).pixelSize()));
  font.setWeight(QFont::Bold);
  label->setFont(font);
}

}  // namespace

OptionsDialog::OptionsDialog(AppOptions& options, QWidget* parent)
    : ModalDialog(parent), options_(options), form_(std::make_unique<Ui::OptionsForm>()) {
  form_->setupUi(this);
  MakeTitle(form_->salesTaxTitle);
  MakeTitle(form_->locationTitle);
  FillCountries();
  ShowOptions();
  for (QWidget* field :
       {static_cast<QWidget*>(form_->taxEdit), static_cast<QWidget*>(form_->countryBox),
        static_cast<QWidget*>(form_->zipCodeEdit)}) {
    ShowInputPanelOnFocus(field);
  }
  connect(form_->okButton, &QPushButton::clicked, this, &OptionsDialog::Accept);
  connect(form_->cancelButton, &QPushButton::clicked, this, &OptionsDialog::reject);
}

OptionsDialog::~OptionsDialog() = default;

void OptionsDialog::FillCountries() {
  QStringList countries;
  for (const char* const country : kCountries) countries.append(QLatin1String(country));
  countries.sort();
  form_->countryBox->addItems(countries);
  form_->countryBox->setCompleter(nullptr);  // it would turn a typed "Ger" into "Germany"
  // More could be saved, but not read back.
  form_->countryBox->lineEdit()->setMaxLength(AppOptions::kTextLength);
  form_->zipCodeEdit->setMaxLength(AppOptions::kTextLength);
}

void OptionsDialog::ShowOptions() {
  form_->taxEdit->setText(WideText(FormatTwoDecimals(options_.tax())));
  form_->countryBox->setEditText(QString::fromStdString(options_.country()));
  form_->zipCodeEdit->setText(QString::fromStdString(options_.zip_code()));
  form_->taxEdit->setFocus();
  form_->taxEdit->selectAll();
}

void OptionsDialog::Accept() {
  const std::string tax_text = NarrowText(form_->taxEdit->text()).substr(0, kNumberFieldLength);
  const double tax = LeadingDouble(tax_text);
  if (tax < 0.0) {
    ShowMessage(this, QStringLiteral("The tax must be a valid number."));
    form_->taxEdit->setFocus();
    form_->taxEdit->selectAll();
    return;
  }
  options_.set_country(form_->countryBox->currentText().toStdString());
  options_.set_zip_code(form_->zipCodeEdit->text().toStdString());
  options_.set_tax(tax + 0.0);  // "-0" is no negative number, and is not shown as one
  if (options_.save() != 0) {
    ShowMessage(this, QStringLiteral("There was an error while saving the Brovanta options to the "
                                     "registry."));
    return;
  }
  done(kCompleted);
}

}  // namespace brovanta

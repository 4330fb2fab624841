#include "ui/shell/options_dialog.h"

#include <QCollator>
#include <QFontInfo>
#include <QLineEdit>
#include <algorithm>
#include <utility>
#include <vector>

#include "ui/base/input_panel.h"
#include "ui/base/language.h"
#include "ui/base/message_box.h"
#include "ui/base/wide_text.h"
#include "ui_172_options.h"
#include "util/number.h"

namespace brovanta {

namespace {

constexpr int kTitlePixels = 14;

constexpr const char* kCountries[] = {
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "United States"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Canada"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Australia"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "United Kingdom"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Germany"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "France"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Italy"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Spain"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Japan"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Austria"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Belgium"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Denmark"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "New Zealand"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Finland"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Greece"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Ireland"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Luxembourg"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Netherlands"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Norway"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Sweden"),
    QT_TRANSLATE_NOOP("brovanta::OptionsDialog", "Switzerland"),
    ""};

/// Bold and 14 pixels high, or as high as the rest of the form where that is larger.
void MakeTitle(QLabel* label) {
  QFont font = label->font();
  font.setPixelSize(qMax(kTitlePixels, QFontInfo(font).pixelSize()));
  font.setWeight(QFont::Bold);
  label->setFont(font);
  label->setWordWrap(true);
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
  std::vector<std::pair<QString, QString>> countries;
  for (const char* const country : kCountries) {
    countries.emplace_back(*country == '\0' ? QString() : tr(country), QLatin1String(country));
  }
  const QCollator in_order(SpokenLocale());
  std::sort(countries.begin(), countries.end(), [&in_order](const auto& left, const auto& right) {
    return in_order.compare(left.first, right.first) < 0;
  });
  // The settings and the update server have the English name.
  for (const auto& [shown, name] : countries) form_->countryBox->addItem(shown, name);
  const int none = form_->countryBox->findText(QString(), Qt::MatchExactly);
  form_->countryBox->setItemData(none, tr("none"), Qt::AccessibleTextRole);
  form_->countryBox->setCompleter(nullptr);  // it would turn a typed "Ger" into "Germany"
  // More could be saved, but not read back.
  form_->countryBox->lineEdit()->setMaxLength(AppOptions::kTextLength);
  form_->zipCodeEdit->setMaxLength(AppOptions::kTextLength);
}

void OptionsDialog::ShowOptions() {
  form_->taxEdit->setText(WideText(FormatTwoDecimals(options_.tax())));
  const QString country = QString::fromStdString(options_.country());
  const int known = form_->countryBox->findData(country);
  form_->countryBox->setEditText(known < 0 ? country : form_->countryBox->itemText(known));
  form_->zipCodeEdit->setText(QString::fromStdString(options_.zip_code()));
  form_->taxEdit->setFocus();
  form_->taxEdit->selectAll();
}

QString OptionsDialog::Country() const {
  const QString text = OneLine(form_->countryBox->currentText());
  const int known = form_->countryBox->findText(text);
  return known < 0 ? text : form_->countryBox->itemData(known).toString();
}

void OptionsDialog::Accept() {
  const std::string tax_text = NarrowLine(form_->taxEdit->text()).substr(0, kNumberFieldLength);
  const double tax = LeadingDouble(tax_text);
  if (tax < 0.0) {
    ShowMessage(this, tr("The tax must be a valid number."));
    form_->taxEdit->setFocus();
    form_->taxEdit->selectAll();
    return;
  }
  options_.set_country(Country().toStdString());
  options_.set_zip_code(OneLine(form_->zipCodeEdit->text()).toStdString());
  options_.set_tax(tax + 0.0);  // "-0" is no negative number, and is not shown as one
  if (options_.save() != 0) {
    ShowMessage(this, tr("There was an error while saving the Brovanta options to the "
                         "registry."));
    return;
  }
  done(kCompleted);
}

}  // namespace brovanta

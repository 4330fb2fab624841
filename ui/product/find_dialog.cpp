#include "ui/product/find_dialog.h"

#include <QLineEdit>

#include "ui/base/icons.h"
#include "ui/base/input_panel.h"
#include "ui/base/theme.h"
#include "ui/base/wide_text.h"
#include "ui_139_find.h"

namespace brovanta {

namespace {

constexpr int kMagnifier = 2785;
constexpr int kIconSize = 24;
constexpr int kEarlierTexts = 10;

/// Texts looked for in this run, the latest first; the drop-down list offers them.
QStringList& EarlierTexts() {
  static QStringList texts;
  return texts;
}

void Remember(const QString& text) {
  if (text.isEmpty()) return;
  QStringList& texts = EarlierTexts();
  texts.removeAll(text);
  texts.prepend(text);
  if (texts.size() > kEarlierTexts) texts.removeLast();
}

}  // namespace

FindTextDialog::FindTextDialog(QWidget* parent, const std::optional<std::string>& find_text)
    : ModalDialog(parent, kFindCancelled),
      form_(std::make_unique<Ui::FindForm>()),
      find_text_(WideText(find_text.value_or(std::string()))) {
  form_->setupUi(this);
  ShowIcon(*form_->iconLabel, CommandIcon(kMagnifier), {kIconSize, kIconSize});
  QComboBox* const box = form_->findTextBox;
  box->addItems(EarlierTexts());
  box->setCompleter(nullptr);  // it would turn a typed text into an earlier, longer one
  box->setEditText(find_text_);
  box->lineEdit()->selectAll();
  ShowInputPanelOnFocus(box);
  box->setFocus();
  connect(form_->findButton, &QPushButton::clicked, this,
          [this, box] { End(OneLine(box->currentText())); });
  connect(form_->clearButton, &QPushButton::clicked, this, [this] { End(QString()); });
  connect(form_->cancelButton, &QPushButton::clicked, this, &FindTextDialog::reject);
  resize(360, minimumSizeHint().height());
}

FindTextDialog::~FindTextDialog() = default;

std::optional<std::string> FindTextDialog::find_text() const {
  if (find_text_.isEmpty()) return std::nullopt;
  return NarrowText(find_text_);
}

void FindTextDialog::End(const QString& text) {
  find_text_ = text;
  Remember(text);
  ShowInputPanel(false);
  done(kCompleted);
}

}  // namespace brovanta

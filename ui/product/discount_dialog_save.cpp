// The discount dialog's OK: its checks in their order, and the save.
#include "ui/base/message_box.h"
#include "ui/base/notes_field.h"
#include "ui/base/wide_text.h"
#include "ui/product/discount_dialog.h"
#include "ui/product/product_numbers.h"
#include "ui_133_discount.h"

namespace brovanta {

// Shows the message and leads the user to the field it speaks of, if any; always false.
bool DiscountDialog::Refuse(const QString& message, QWidget* field) {
  if (field != nullptr) form_->tabBar->setCurrentIndex(0);
  ShowMessage(this, message);
  if (field != nullptr) field->setFocus();
  return false;
}

void DiscountDialog::Accept() {
  DiscountFields fields;
  if (!ReadReferences(fields) || !ReadTypes(fields)) return;
  fields.start_date = form_->startDateEdit->Stamp();
  fields.end_date = form_->endDateEdit->Stamp();
  if (!ReadTexts(fields)) return;
  fields.value = FieldNumber(form_->valueEdit->text());
  fields.description =
      NotesText(*form_->notesEdit, record_ ? record_->Description.view() : std::string_view());
  if (Save(fields)) done(kCompleted);
}

bool DiscountDialog::ReadReferences(DiscountFields& fields) {
  if (form_->storeBox->IsTooLong()) {
    return Refuse(tr("The store name has more than 50 characters."), form_->storeBox);
  }
  if (form_->categoryBox->IsTooLong()) {
    return Refuse(tr("The category name has more than 50 characters."), form_->categoryBox);
  }
  fields.store = form_->storeBox->Reference();
  fields.category = form_->categoryBox->Reference();
  return true;
}

bool DiscountDialog::ReadTypes(DiscountFields& fields) {
  const int value_type = form_->valueTypeBox->currentData().toInt();  // 0 without a selection
  if (value_type < 1) {
    return Refuse(tr("You must select a value type for this discount."), form_->valueTypeBox);
  }
  const int type = form_->typeBox->currentData().toInt();
  if (type < 1) {
    return Refuse(tr("You must select a discount type for this discount."), form_->typeBox);
  }
  fields.value_type = static_cast<std::uint16_t>(value_type);
  fields.type = static_cast<std::int16_t>(type);
  return true;
}

bool DiscountDialog::ReadTexts(DiscountFields& fields) {
  const QString name = OneLine(form_->couponNameEdit->text());
  if (name.isEmpty())
    return Refuse(tr("The discount name can not be empty."), form_->couponNameEdit);
  if (name.size() > kNameLimit) {
    return Refuse(tr("The discount name has more than 50 characters."), form_->couponNameEdit);
  }
  if (form_->productBox->IsTooLong()) {
    return Refuse(tr("The product name has more than 50 characters."), form_->productBox);
  }
  fields.name = NarrowText(name).substr(0, kNameSize);
  fields.product = NarrowLine(form_->productBox->currentText()).substr(0, kNameSize);
  return true;
}

bool DiscountDialog::Save(DiscountFields& fields) {
  DiscountList& discounts = database_.discounts();
  const std::optional<DiscountRecord> saved =
      record_ ? discounts.Update(record_->Id, record_->Source, fields)
              : discounts.Add(0, 0, fields);
  if (saved) {
    saved_ = {static_cast<std::uint32_t>(saved->Id), saved->Source, saved->Type};
    apply_chosen_ = form_->applyBox->isChecked();
    return true;
  }
  // Names may have got their ids although the record was not saved.
  form_->storeBox->Remember(fields.store);
  form_->categoryBox->Remember(fields.category);
  return Refuse(tr("There was an error while saving the discount data to the database."), nullptr);
}

}  // namespace brovanta

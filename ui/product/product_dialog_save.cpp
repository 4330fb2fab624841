// The product dialog's OK: its checks in their order, and the save.
#include "db/schedule.h"
#include "ui/base/date_field.h"
#include "ui/base/message_box.h"
#include "ui/base/notes_field.h"
#include "ui/base/wide_text.h"
#include "ui/product/coupon_row.h"
#include "ui/product/product_dialog.h"
#include "ui/product/product_numbers.h"
#include "ui/product/purchase_type.h"
#include "ui_130_product.h"
#include "util/number.h"

namespace brovanta {

// Shows the message and leads the user to the field it speaks of, if any; always false.
bool ProductDialog::Refuse(const QString& message, QWidget* field) {
  if (field != nullptr) form_->tabBar->setCurrentIndex(0);
  ShowMessage(this, message);
  if (field != nullptr) field->setFocus();
  return false;
}

void ProductDialog::Accept() {
  if (SelectedType() == 0) {
    Refuse(tr("You must select the purchase type for this product."), form_->purchaseTypeBox);
    return;
  }
  ProductFields fields;
  if (!ReadName(fields)) return;
  ReadNumbers(fields);
  if (!ReadReferences(fields) || !ReadSchedule(fields)) return;
  fields.notes = Notes();
  if (record_) fields.short_text = record_->ShortText.view();
  fields.discounts = coupons_->slots();
  if (Save(fields)) done(kCompleted);
}

// What the search for discounts goes by; a long name is cut without a message.
std::optional<ProductFields> ProductDialog::ReadForSearch() {
  ProductFields fields;
  if (!HasName() || !ReadReferences(fields)) return std::nullopt;
  fields.name = NarrowLine(form_->productNameEdit->text()).substr(0, kNameSize);
  fields.notes = Notes();
  return fields;
}

bool ProductDialog::HasName() {
  if (!OneLine(form_->productNameEdit->text()).isEmpty()) return true;
  return Refuse(tr("The product name can not be empty."), form_->productNameEdit);
}

bool ProductDialog::ReadName(ProductFields& fields) {
  if (!HasName()) return false;
  const QString name = OneLine(form_->productNameEdit->text());
  if (name.size() > kNameLimit) {
    return Refuse(tr("The product name has more than 50 characters."), form_->productNameEdit);
  }
  fields.name = NarrowText(name).substr(0, kNameSize);
  return true;
}

std::string ProductDialog::Notes() const {
  return NotesText(*form_->notesEdit, record_ ? record_->Notes.view() : std::string_view());
}

void ProductDialog::ReadNumbers(ProductFields& fields) const {
  fields.unit_price = FieldNumber(form_->unitPriceEdit->text());
  fields.quantity = FieldNumber(form_->quantityEdit->text());
  fields.tax_percent = FieldNumber(form_->taxEdit->text());
}

bool ProductDialog::ReadReferences(ProductFields& fields) {
  if (form_->unitTypeBox->IsTooLong()) {
    return Refuse(tr("The unit type has more than 50 characters."), form_->unitTypeBox);
  }
  if (form_->storeBox->IsTooLong()) {
    return Refuse(tr("The store name has more than 50 characters."), form_->storeBox);
  }
  if (form_->categoryBox->IsTooLong()) {
    return Refuse(tr("The category name has more than 50 characters."), form_->categoryBox);
  }
  // A coupon that was added meanwhile may have brought the names that stand here as well.
  form_->storeBox->RememberAll(database_.stores());
  form_->categoryBox->RememberAll(database_.categories());
  fields.unit = form_->unitTypeBox->Reference();
  fields.store = form_->storeBox->Reference();
  fields.category = form_->categoryBox->Reference();
  return true;
}

bool ProductDialog::ReadSchedule(ProductFields& fields) {
  if (mode_ == kPurchaseMode && record_ && record_->PurchaseKind != kOneTime) {
    // No control shows its schedule, so it stays as it is, whatever it is.
    fields.purchase_kind = record_->PurchaseKind;
    fields.every = record_->Every;
    fields.day_value = record_->DayValue;
    fields.start_date = record_->StartDate;
    return true;
  }
  const PurchaseType* type = FindPurchaseType(SelectedType());
  if (type == nullptr) {
    return Refuse(tr("You must select a purchase type for this product."), form_->purchaseTypeBox);
  }
  fields.purchase_kind = type->kind;
  fields.every = type->every;
  const DayChoice* choice = DayChoiceOfKind(type->kind);
  if (choice == nullptr) {
    fields.start_date = StampOfPickedDay(form_->purchaseDateEdit->date());
    return true;
  }
  const int day = LeadingInt(NarrowText(form_->dayBox->currentText()));
  if (day < 1) return Refuse(PurchaseTypeWords(choice->missing), form_->dayBox);
  fields.day_value = static_cast<std::uint16_t>(day);
  fields.start_date = record_ ? record_->StartDate : TodayStamp();
  return true;
}

bool ProductDialog::Save(ProductFields& fields) {
  const int kind = mode_ == kPurchaseMode ? brovanta::kPurchaseKind : kProductKind;
  const std::optional<ProductRecord> saved =
      record_ ? database_.products().Update(kind, record_->Id, fields)
              : database_.products().Add(kind, fields);
  if (saved) return true;
  // Names may have got their ids although the record was not saved.
  form_->unitTypeBox->Remember(fields.unit);
  form_->storeBox->Remember(fields.store);
  form_->categoryBox->Remember(fields.category);
  return Refuse(tr("There was an error while saving the product data to the database."), nullptr);
}

}  // namespace brovanta

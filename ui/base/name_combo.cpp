#include "ui/base/name_combo.h"

#include <QCompleter>
#include <QLineEdit>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "ui/base/wide_text.h"

namespace brovanta {
NameCombo::NameCombo(QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);  // it would turn a new name "Al" into "Aldi"
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(6);
  const auto forget = [this] { unknown_id_ = 0; };
  connect(lineEdit(), &QLineEdit::textEdited, this, forget);
  connect(this, &QComboBox::activated, this, forget);
}

void NameCombo::Fill(const NameList& names) {
  clear();
  AddEmptyItem();
  for (const auto& [id, item] : names) addItem(WideText(item.Name.view()), id);
  setCurrentIndex(0);
}

void NameCombo::FillSorted(const NameList& names) {
  std::vector<std::pair<QString, int>> items;
  for (const auto& [id, item] : names) items.emplace_back(WideText(item.Name.view()), id);
  std::stable_sort(items.begin(), items.end(), [](const auto& left, const auto& right) {
    return left.first.compare(right.first, Qt::CaseInsensitive) < 0;
  });
  clear();
  AddEmptyItem();
  for (const auto& [name, id] : items) addItem(name, id);
  setCurrentIndex(0);
}

void NameCombo::AddEmptyItem() {
  addItem(QString(), 0);
  setItemData(count() - 1, tr("none"), Qt::AccessibleTextRole);
}

void NameCombo::SelectId(std::uint32_t id) {
  unknown_id_ = 0;
  if (id == 0) return;
  const int index = findData(static_cast<int>(id));
  if (index < 0) {
    unknown_id_ = static_cast<std::int32_t>(id);
    return;
  }
  setCurrentIndex(index);
  lineEdit()->setCursorPosition(0);  // of a long name the beginning is shown
}

bool NameCombo::IsTooLong() const { return OneLine(currentText()).size() > kNameLimit; }

int NameCombo::FindItem(const QString& text) const {
  // Of several entries with one name it is the selected one, or an edit would exchange them.
  if (currentIndex() >= 0 && itemText(currentIndex()) == currentText()) return currentIndex();
  const int whole = findText(text, Qt::MatchFixedString);
  if (whole >= 0) return whole;
  const std::string stored = StoredForm(NarrowText(text));
  for (int index = 0; index < count(); ++index) {
    if (StoredForm(NarrowText(itemText(index))) == stored) return index;
  }
  return -1;
}

std::optional<NameRef> NameCombo::Reference() const {
  if (unknown_id_ != 0) return NameRef{unknown_id_, {}};
  const QString text = OneLine(currentText());
  if (text.isEmpty()) return std::nullopt;
  const int index = FindItem(text);
  if (index >= 0) return NameRef{itemData(index).toInt(), NarrowText(itemText(index))};
  return NameRef{0, NarrowText(text).substr(0, kNameSize)};
}

void NameCombo::Remember(const std::optional<NameRef>& reference) {
  if (!reference || reference->Id == 0 || findData(reference->Id) >= 0) return;
  const QString typed = currentText();
  addItem(typed, reference->Id);
  setEditText(typed);
}

void NameCombo::RememberAll(const NameList& names) {
  for (const auto& [id, item] : names) {
    if (item.Name.empty() || findData(item.Id) >= 0) continue;
    const QString typed = currentText();
    addItem(WideText(item.Name.view()), item.Id);
    if (currentText() != typed) setEditText(typed);
  }
}

}  // namespace brovanta

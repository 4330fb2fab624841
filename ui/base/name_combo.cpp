#include "ui/base/name_combo.h"

#include <QCompleter>
#include <QLineEdit>
#include <algorithm>
#include <utility>
#include <vector>

#include "ui/base/wide_text.h"
#include "util/word_search.h"

namespace brovanta {
namespace {

// What the database keeps of a name, in one letter case.
std::string StoredForm(const QString& text) {
  std::string stored = NarrowText(text).substr(0, kNameSize - 1);
  std::transform(stored.begin(), stored.end(), stored.begin(), [](char character) {
    return static_cast<char>(UpperCase(static_cast<unsigned char>(character)));
  });
  return stored;
}

}  // namespace

NameCombo::NameCombo(QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);  // it would turn a new name "Al" into "Aldi"
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(6);
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
  if (id == 0) return;
  const int index = findData(static_cast<int>(id));
  if (index < 0) return;
  setCurrentIndex(index);
  lineEdit()->setCursorPosition(0);  // of a long name the beginning is shown
}

bool NameCombo::IsTooLong() const { return currentText().size() > kNameLimit; }

int NameCombo::FindItem() const {
  const QString text = currentText();
  // Of several entries with one name it is the selected one, or an edit would exchange them.
  if (currentIndex() >= 0 && itemText(currentIndex()) == text) return currentIndex();
  const int whole = findText(text, Qt::MatchFixedString);
  if (whole >= 0) return whole;
  const std::string stored = StoredForm(text);
  for (int index = 0; index < count(); ++index) {
    if (StoredForm(itemText(index)) == stored) return index;
  }
  return -1;
}

std::optional<NameRef> NameCombo::Reference() const {
  const QString text = currentText();
  if (text.isEmpty()) return std::nullopt;
  const int index = FindItem();
  if (index >= 0) return NameRef{itemData(index).toInt(), NarrowText(itemText(index))};
  return NameRef{0, NarrowText(text).substr(0, kNameSize)};
}

void NameCombo::Remember(const std::optional<NameRef>& reference) {
  if (!reference || reference->Id == 0 || findData(reference->Id) >= 0) return;
  const QString typed = currentText();
  addItem(typed, reference->Id);
  setEditText(typed);
}

}  // namespace brovanta

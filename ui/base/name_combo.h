// An editable drop-down list over a name list: pick a known name or type a new one.
#pragma once

#include <QComboBox>
#include <optional>

#include "db/name_list.h"

namespace brovanta {

/// Characters that a name may have before it is refused.
inline constexpr int kNameLimit = 50;

/// The first item is empty and stands for none; the others carry their id. Typing neither completes
/// nor inserts: what is typed counts as typed.
class NameCombo : public QComboBox {
  Q_OBJECT

 public:
  explicit NameCombo(QWidget* parent = nullptr);

  /// The empty item, then the entries in the list's order.
  void Fill(const NameList& names);

  /// The same, sorted by name without regard to letter case.
  void FillSorted(const NameList& names);

  /// Selects the first item with this id; selects nothing for 0 or an id that is not there. Such an
  /// id stays the reference until the user types or chooses something: the list may only have been
  /// out of reach.
  void SelectId(std::uint32_t id);

  /// Whether the text has more than kNameLimit characters.
  [[nodiscard]] bool IsTooLong() const;

  /// What the text, as one line, means for a record that is saved: nothing for an empty text, the
  /// id of the item
  /// whose whole text it is in any letter case (also when only its first 49 bytes agree with a
  /// stored name, which is all that is stored of a longer one), else id 0 and the typed name, at
  /// most 50 bytes.
  [[nodiscard]] std::optional<NameRef> Reference() const;

  /// Takes a name that a save has given an id among the items, so that a second try finds it.
  void Remember(const std::optional<NameRef>& reference);

  /// Takes the entries among the items that are not there yet: another dialog may have made them.
  /// What is typed or chosen stays.
  void RememberAll(const NameList& names);

 private:
  void AddEmptyItem();
  [[nodiscard]] int FindItem(const QString& text) const;

  std::int32_t unknown_id_ = 0;  // selected, but not among the items
};

}  // namespace brovanta

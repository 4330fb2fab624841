// The store and category filters: a button whose menu lists the names in use.
#pragma once

#include <QMenu>
#include <QObject>
#include <QString>
#include <memory>

#include "db/name_list.h"

namespace brovanta {

class ColorButton;

/// Commands of the filter menus: this number for "all", plus the id for one store or category.
inline constexpr int kStoreCommands = 10000;
inline constexpr int kCategoryCommands = 20000;
/// Ids above it have no command: it would belong to the next menu.
inline constexpr std::int32_t kLargestFilterId = 9999;

/// A name for a filter button: of more than 14 characters the first 11 and "...".
[[nodiscard]] QString ShortenedName(const QString& name);

/// What was looked for, as an empty list says it: of more than 24 characters the first ones and
/// "...".
[[nodiscard]] QString ShortenedSearch(const QString& words);

/// What an entry without a name is for a menu; imports make some.
enum class Nameless {
  kEnd,      ///< the last one that is looked at
  kPassedBy  ///< none that could be read, but what comes behind it counts
};

/// "All ...", then the names in list order. Ids that have no command are left out. Every action has
/// its command in data().
[[nodiscard]] std::unique_ptr<QMenu> BuildFilterMenu(int commands, const QString& all_text,
                                                     const NameList& names, Nameless nameless);

/// One filter button with its menu. The button stays the screen's.
class NameFilter : public QObject {
  Q_OBJECT

 public:
  /// `commands` is kStoreCommands or kCategoryCommands; `alignment` that of the chevron.
  NameFilter(ColorButton& button, int commands, const QString& all_text, int alignment,
             Nameless nameless = Nameless::kEnd);
  ~NameFilter() override;

  /// Replaces the menu by one of these names.
  void BuildMenu(const NameList& names);

  /// Shows that there is no restriction.
  void Reset();

  /// Shows what a command of the menu chose, by its name in the list of all names; an id that is
  /// not there leaves the button as it is.
  void ShowChoice(int command, const NameList& all_names);

 Q_SIGNALS:
  void Chosen(int command);

 private:
  ColorButton& button_;
  int commands_;
  QString all_text_;
  Nameless nameless_;
  std::unique_ptr<QMenu> menu_;
};

}  // namespace brovanta

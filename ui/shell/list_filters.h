// The store and category filters of the main screen.
#pragma once

#include <QObject>

#include "ui/base/filter_menu.h"
#include "ui/shell/main_state.h"

namespace brovanta {

class ColorButton;

/// Sets the ids of the shared filter; the screen rebuilds the tree when Changed() is sent.
class ListFilters : public QObject {
  Q_OBJECT

 public:
  ListFilters(ColorButton& store_button, ColorButton& category_button, MainState& state,
              QObject* parent);

  /// All stores, all categories, no find text.
  void Reset();

  /// Lists the names that the records of the shown list use, as it is loaded.
  void BuildStoreMenu();
  void BuildCategoryMenu();

  void Enable(bool enabled);

  /// Shows what the command chose on its button.
  void ShowChoice(int command);

 Q_SIGNALS:
  /// The filter holds the id that this command stands for.
  void Changed(int command);

 private:
  ColorButton& store_button_;
  ColorButton& category_button_;
  MainState& state_;
  NameFilter stores_;
  NameFilter categories_;
};

}  // namespace brovanta

// Forms on a screen that is too narrow for labels beside their fields.
#pragma once

#include <vector>

class QGridLayout;
class QLayoutItem;
class QWidget;

namespace brovanta {

/// The lines of a form: each label in the first column, its field in the second. Where both do not
/// fit side by side, every label stands above its field. The grid is borrowed, and nothing else may
/// be moved in it.
class FormColumns {
 public:
  explicit FormColumns(QGridLayout& grid);

  /// Arranges the lines for a grid of this width.
  void Fit(int width);

 private:
  struct Place {
    QLayoutItem* item;
    int row;
    int column;
    int rows;
    int columns;
  };

  [[nodiscard]] int WidthSideBySide() const;
  void Put(const Place& place, int row, int column, int columns);

  QGridLayout& grid_;
  std::vector<Place> places_;
  bool above_ = false;
};

/// Puts buttons that do not fit the window's width beside each other one below the other. They are
/// the lines of the layouts named "buttonLayout" and "couponLayout".
void FitButtonLines(QWidget& window);

/// Lets the tabs of a window write in letters with which all of them fit its width.
void FitTabs(QWidget& window);

/// Lets the labels that take several lines write in letters with which no word is wider than the
/// window.
void FitLabels(QWidget& window);

/// Lets the whole of a window scroll where it is higher than the screen; what it holds keeps its
/// order and places. To be called once, when the window has its layout.
void ScrollWhole(QWidget& window);

/// Scrolls the areas of a window so that the control with the focus is seen.
void ShowFocus(QWidget& window);

}  // namespace brovanta

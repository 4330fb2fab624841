// The command bar of the coupon picker.
#pragma once

#include "ui/base/picture_bar.h"

namespace brovanta {

/// Commands of the coupon picker.
inline constexpr int kPickerNew = 2791;
inline constexpr int kPickerEdit = 2792;
inline constexpr int kPickerDelete = 2793;
inline constexpr int kPickerFind = 2794;

class PickerBar : public PictureBar {
  Q_OBJECT

 public:
  explicit PickerBar(QWidget* parent = nullptr);

  /// Shows on the find button that the text narrows the list; an empty text shows the plain button.
  void ShowFindText(const QString& text);
};

}  // namespace brovanta

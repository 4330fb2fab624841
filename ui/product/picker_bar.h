// The command bar of the coupon picker.
#pragma once

#include <QAction>
#include <QHash>

#include "ui/base/lined_frame.h"

class QToolButton;

namespace brovanta {

/// Commands of the coupon picker.
inline constexpr int kPickerNew = 2791;
inline constexpr int kPickerEdit = 2792;
inline constexpr int kPickerDelete = 2793;
inline constexpr int kPickerFind = 2794;

/// Four picture buttons. Every action has its command's number in data(), and its key works in the
/// whole window while it is enabled.
class PickerBar : public LinedFrame {
  Q_OBJECT

 public:
  explicit PickerBar(QWidget* parent = nullptr);

  /// nullptr for an unknown number.
  [[nodiscard]] QAction* action(int command) const { return actions_.value(command); }

  /// Shows on the find button that the text narrows the list; an empty text shows the plain button.
  void ShowFindText(const QString& text);

 Q_SIGNALS:
  void CommandChosen(int command);

 private:
  QHash<int, QAction*> actions_;
  QToolButton* find_button_ = nullptr;
};

}  // namespace brovanta

// A command bar of picture buttons at the bottom of a screen.
#pragma once

#include <QAction>
#include <QHash>
#include <QIcon>

#include "ui/base/lined_frame.h"

class QToolButton;

namespace brovanta {

/// Every action has its command's number in data(), and its key works in the whole window while it
/// is enabled. The button of command N is named "toolN".
class PictureBar : public LinedFrame {
  Q_OBJECT

 public:
  explicit PictureBar(QWidget* parent = nullptr);

  /// Appends a command: its name is what the button is called, and its key stands in the tool tip.
  /// No key where `key` ("Ctrl+O") is empty.
  void AddCommand(int command, const QIcon& picture, const QString& name, const QString& key = {});

  /// Both are nullptr for an unknown number.
  [[nodiscard]] QAction* action(int command) const { return actions_.value(command); }
  [[nodiscard]] QToolButton* button(int command) const { return buttons_.value(command); }

 Q_SIGNALS:
  void CommandChosen(int command);

 private:
  QHash<int, QAction*> actions_;
  QHash<int, QToolButton*> buttons_;
};

}  // namespace brovanta

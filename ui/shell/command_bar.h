// The command bar at the bottom of the main screen: "Tools" menu and tool bar.
#pragma once

#include <QAction>
#include <QHash>

#include "ui/base/lined_frame.h"

class QBoxLayout;
class QMenu;
class QToolButton;

namespace brovanta {

class ColorButton;

/// Commands of the menu (131) and the tool bar (129), which number one command differently.
inline constexpr int kMenuAdd = 2777;
inline constexpr int kMenuEdit = 2784;
inline constexpr int kMenuPurchase = 2804;
inline constexpr int kMenuDelete = 2778;
inline constexpr int kMenuFind = 2803;
inline constexpr int kMenuUpdate = 2783;
inline constexpr int kMenuOptions = 2801;
inline constexpr int kToolAdd = 2771;
inline constexpr int kToolEdit = 2772;
inline constexpr int kToolDelete = 2773;
inline constexpr int kToolPurchase = 2789;
inline constexpr int kToolFind = 2785;

/// Every action has its command's number in data(). The keys belong to the menu's actions and work
/// in the whole window while their action is enabled.
class CommandBar : public LinedFrame {
  Q_OBJECT

 public:
  explicit CommandBar(QWidget* parent = nullptr);

  /// Enables or greys one command of the menu or the tool bar.
  void Enable(int command, bool enabled);

  /// The action of a command, nullptr for an unknown number.
  [[nodiscard]] QAction* action(int command) const { return actions_.value(command); }

  /// Marks the find button while a find text narrows the list; empty = none.
  void ShowFindText(const QString& text);

  /// As wide as the wider of its two lines.
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void CommandChosen(int command);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] int LeastWidthInARow() const;
  void BuildMenu();
  void BuildToolBar();
  QAction* MakeAction(int command, const QString& text);
  [[nodiscard]] QString TipFor(const QString& name, int menu_command) const;

  QBoxLayout* lines_ = nullptr;  // one below the other where both do not fit
  ColorButton* tools_button_;
  QMenu* menu_;
  QHash<int, QAction*> actions_;
  QHash<int, QToolButton*> buttons_;
};

}  // namespace brovanta

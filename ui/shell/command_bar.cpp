#include "ui/shell/command_bar.h"

#include <QHBoxLayout>
#include <QKeySequence>
#include <QMenu>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "ui/base/color_button.h"
#include "ui/base/icons.h"
#include "ui/base/row_layout.h"
#include "ui/base/theme.h"
#include "ui/base/tool_tip.h"

namespace brovanta {
namespace {

struct MenuEntry {
  int command;  // 0 = separator
  const char* text;
  const char* keys;
};

constexpr std::array kMenuEntries{
    MenuEntry{kMenuAdd, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Add"), "Ins"},
    MenuEntry{kMenuEdit, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Edit"), "F2"},
    MenuEntry{kMenuPurchase, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Purchase"), "Ctrl+P"},
    MenuEntry{kMenuDelete, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Delete"), "Del"},
    MenuEntry{0, "", ""},
    MenuEntry{kMenuFind, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Search"), "Ctrl+F"},
    MenuEntry{0, "", ""},
    MenuEntry{kMenuUpdate, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Update"), "F5"},
    MenuEntry{kMenuOptions, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Options"), "Ctrl+,"}};

struct ToolEntry {
  int command;
  int menu_command;
  const char* name;
};

constexpr std::array kToolEntries{
    ToolEntry{kToolAdd, kMenuAdd, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Add")},
    ToolEntry{kToolEdit, kMenuEdit, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Edit")},
    ToolEntry{kToolDelete, kMenuDelete, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Delete")},
    ToolEntry{kToolPurchase, kMenuPurchase,
              QT_TRANSLATE_NOOP("brovanta::CommandBar", "Mark as purchased")},
    ToolEntry{kToolFind, kMenuFind, QT_TRANSLATE_NOOP("brovanta::CommandBar", "Find")}};

constexpr int kToolPicture = 22;
constexpr int kLeastToolWidth = 30;  // on the narrowest screen; a finger high they are anywhere

}  // namespace

CommandBar::CommandBar(QWidget* parent)
    : LinedFrame(parent, Lines::kAbove),
      tools_button_(new ColorButton(this)),
      menu_(new QMenu(this)) {
  setObjectName(QStringLiteral("commandBar"));
  lines_ = new QBoxLayout(QBoxLayout::LeftToRight, this);
  lines_->setContentsMargins(3, 3, 3, 3);
  lines_->setSpacing(0);
  lines_->addWidget(tools_button_);
  BuildMenu();
  BuildToolBar();
}

QAction* CommandBar::MakeAction(int command, const QString& text) {
  auto* action = new QAction(text, this);
  action->setData(command);
  connect(action, &QAction::triggered, this, [this, command] { Q_EMIT CommandChosen(command); });
  actions_.insert(command, action);
  return action;
}

void CommandBar::BuildMenu() {
  menu_->setObjectName(QStringLiteral("toolsMenu"));
  menu_->setAccessibleName(tr("Tools"));
  for (const MenuEntry& entry : kMenuEntries) {
    if (entry.command == 0) {
      menu_->addSeparator();
      continue;
    }
    QAction* action = MakeAction(entry.command, tr(entry.text));
    action->setShortcut(QKeySequence(QString::fromLatin1(entry.keys), QKeySequence::PortableText));
    menu_->addAction(action);
    addAction(action);  // so that its keys work while the menu is closed
  }
  tools_button_->setObjectName(QStringLiteral("toolsButton"));
  tools_button_->setText(tr("Tools"));
  tools_button_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_T));
  tools_button_->AttachMenu(menu_, false);
  for (int index = 0; index < ColorButton::kColorCount; index += 2) {
    tools_button_->SetColor(index, theme::kBar, false);
  }
  QFont bold = tools_button_->font();
  bold.setBold(true);
  tools_button_->setFont(bold);
  tools_button_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void CommandBar::BuildToolBar() {
  auto* layout = new QHBoxLayout;
  layout->setSpacing(0);
  for (const ToolEntry& entry : kToolEntries) {
    const QString name = tr(entry.name);
    QAction* action = MakeAction(entry.command, name);
    action->setIcon(CommandIcon(entry.command));
    action->setToolTip(TipFor(name, entry.menu_command));
    auto* button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setObjectName(QStringLiteral("tool%1").arg(entry.command));
    button->setAccessibleName(name);
    button->setIconSize({kToolPicture, kToolPicture});
    button->setFocusPolicy(Qt::TabFocus);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setMinimumWidth(kLeastToolWidth);
    layout->addWidget(button);
    buttons_.insert(entry.command, button);
  }
  lines_->addLayout(layout, 1);
}

QSize CommandBar::minimumSizeHint() const {
  int widest = 0;
  for (int i = 0; i < lines_->count(); ++i) {
    widest = std::max(widest, lines_->itemAt(i)->minimumSize().width());
  }
  const QMargins margins = lines_->contentsMargins();
  return {widest + margins.left() + margins.right(), LinedFrame::minimumSizeHint().height()};
}

int CommandBar::LeastWidthInARow() const {
  const QMargins margins = lines_->contentsMargins();
  return margins.left() + tools_button_->sizeHint().width() +
         static_cast<int>(buttons_.size()) * kLeastToolWidth + margins.right();
}

void CommandBar::resizeEvent(QResizeEvent* event) {
  LinedFrame::resizeEvent(event);
  SetInARow(*lines_, LeastWidthInARow() <= width());
}

void CommandBar::Enable(int command, bool enabled) {
  if (QAction* known = action(command)) known->setEnabled(enabled);
}

void CommandBar::ShowFindText(const QString& text) {
  const QString name = text.isEmpty() ? tr("Find") : tr("Find: %1").arg(text);
  QAction* find = action(kToolFind);
  find->setIcon(text.isEmpty()
                    ? CommandIcon(kToolFind)
                    : NamedIcon(QStringLiteral("toolbar_129_%1").arg(kToolFind), theme::kWarm));
  find->setToolTip(TipFor(name, kMenuFind));
  buttons_.value(kToolFind)->setAccessibleName(name);
}

QString CommandBar::TipFor(const QString& name, int menu_command) const {
  const QKeySequence keys = action(menu_command)->shortcut();
  // A find text may look like markup.
  return ToolTipText(QStringLiteral("%1 (%2)").arg(name, keys.toString(QKeySequence::NativeText)));
}

}  // namespace brovanta

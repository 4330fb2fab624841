#include "ui/product/picker_bar.h"

#include <QHBoxLayout>
#include <QKeySequence>
#include <QToolButton>
#include <array>

#include "ui/base/icons.h"
#include "ui/base/theme.h"
#include "ui/base/tool_tip.h"

namespace brovanta {
namespace {

constexpr int kFindPicture = 2785;

struct Entry {
  int command;
  int picture;  // the main screen's tool with the same meaning looks the same
  const char* name;
  const char* keys;
};

constexpr std::array kEntries{Entry{kPickerNew, 2771, "New coupon", "Ins"},
                              Entry{kPickerEdit, 2772, "Edit coupon", "F2"},
                              Entry{kPickerDelete, 2773, "Delete coupon", "Del"},
                              Entry{kPickerFind, kFindPicture, "Find", "Ctrl+F"}};

constexpr int kPictureSize = 22;
constexpr int kNarrowest = 34;

}  // namespace

PickerBar::PickerBar(QWidget* parent) : LinedFrame(parent, Lines::kAbove) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(4, 3, 4, 3);
  layout->setSpacing(2);
  for (const Entry& entry : kEntries) {
    const QString name = QString::fromLatin1(entry.name);
    auto* action = new QAction(CommandIcon(entry.picture), name, this);
    action->setData(entry.command);
    action->setShortcut(QKeySequence(QString::fromLatin1(entry.keys)));
    action->setToolTip(QStringLiteral("%1 (%2)").arg(name, QString::fromLatin1(entry.keys)));
    connect(action, &QAction::triggered, this,
            [this, command = entry.command] { Q_EMIT CommandChosen(command); });
    actions_.insert(entry.command, action);
    auto* button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setObjectName(QStringLiteral("tool%1").arg(entry.command));
    button->setAccessibleName(name);
    button->setIconSize({kPictureSize, kPictureSize});
    button->setFocusPolicy(Qt::TabFocus);
    button->setMinimumWidth(kNarrowest);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    layout->addWidget(button);
    if (entry.command == kPickerFind) find_button_ = button;
  }
}

void PickerBar::ShowFindText(const QString& text) {
  QAction* find = action(kPickerFind);
  const QString name = text.isEmpty() ? find->text() : find->text() + QStringLiteral(": ") + text;
  find->setIcon(text.isEmpty()
                    ? CommandIcon(kFindPicture)
                    : NamedIcon(QStringLiteral("toolbar_129_%1").arg(kFindPicture), theme::kWarm));
  find->setToolTip(ToolTipText(
      name + QStringLiteral(" (%1)").arg(find->shortcut().toString(QKeySequence::PortableText))));
  find_button_->setAccessibleName(name);
}

}  // namespace brovanta

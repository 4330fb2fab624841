#include "ui/base/picture_bar.h"

#include <QHBoxLayout>
#include <QKeySequence>
#include <QToolButton>

namespace brovanta {
namespace {

constexpr int kPictureSize = 22;
constexpr int kNarrowest = 34;

}  // namespace

PictureBar::PictureBar(QWidget* parent) : LinedFrame(parent, Lines::kAbove) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(4, 3, 4, 3);
  layout->setSpacing(2);
}

void PictureBar::AddCommand(int command, const QIcon& picture, const QString& name,
                            const QString& key) {
  auto* action = new QAction(picture, name, this);
  action->setData(command);
  action->setToolTip(name);
  if (!key.isEmpty()) {
    action->setShortcut(QKeySequence(key, QKeySequence::PortableText));
    action->setToolTip(
        QStringLiteral("%1 (%2)").arg(name, action->shortcut().toString(QKeySequence::NativeText)));
  }
  connect(action, &QAction::triggered, this, [this, command] { Q_EMIT CommandChosen(command); });
  actions_.insert(command, action);
  auto* button = new QToolButton(this);
  button->setDefaultAction(action);
  button->setObjectName(QStringLiteral("tool%1").arg(command));
  button->setAccessibleName(name);
  button->setIconSize({kPictureSize, kPictureSize});
  button->setFocusPolicy(Qt::TabFocus);
  button->setMinimumWidth(kNarrowest);
  button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  layout()->addWidget(button);
  buttons_.insert(command, button);
}

}  // namespace brovanta

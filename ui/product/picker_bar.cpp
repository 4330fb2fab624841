#include "ui/product/picker_bar.h"

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

constexpr std::array kEntries{
    Entry{kPickerNew, 2771, QT_TRANSLATE_NOOP("brovanta::PickerBar", "New coupon"), "Ins"},
    Entry{kPickerEdit, 2772, QT_TRANSLATE_NOOP("brovanta::PickerBar", "Edit coupon"), "F2"},
    Entry{kPickerDelete, 2773, QT_TRANSLATE_NOOP("brovanta::PickerBar", "Delete coupon"), "Del"},
    Entry{kPickerFind, kFindPicture, QT_TRANSLATE_NOOP("brovanta::PickerBar", "Find"), "Ctrl+F"}};

}  // namespace

PickerBar::PickerBar(QWidget* parent) : PictureBar(parent) {
  for (const Entry& entry : kEntries) {
    AddCommand(entry.command, CommandIcon(entry.picture), tr(entry.name),
               QString::fromLatin1(entry.keys));
  }
}

void PickerBar::ShowFindText(const QString& text) {
  QAction* find = action(kPickerFind);
  const QString name = text.isEmpty() ? find->text() : tr("Find: %1").arg(text);
  find->setIcon(text.isEmpty()
                    ? CommandIcon(kFindPicture)
                    : NamedIcon(QStringLiteral("toolbar_129_%1").arg(kFindPicture), theme::kWarm));
  const QString keys = find->shortcut().toString(QKeySequence::NativeText);
  find->setToolTip(ToolTipText(QStringLiteral("%1 (%2)").arg(name, keys)));
  button(kPickerFind)->setAccessibleName(name);
}

}  // namespace brovanta

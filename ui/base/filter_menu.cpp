#include "ui/base/filter_menu.h"

#include <QAction>
#include <utility>

#include "ui/base/color_button.h"
#include "ui/base/wide_text.h"

namespace brovanta {
namespace {
constexpr qsizetype kLongestName = 14;
constexpr qsizetype kKeptOfLongName = 11;
constexpr int kChevron = 134;
constexpr QSize kChevronSize{12, 12};
constexpr QSize kThirdPictureSize{32, 32};

void AddCommand(QMenu& menu, const QString& name, int command) {
  QString text = OneLine(name);                         // a tab would part it into columns
  text.replace(QLatin1Char('&'), QLatin1String("&&"));  // a name has no mnemonic
  menu.addAction(text)->setData(command);
}
}  // namespace

QString ShortenedName(const QString& name) {
  if (name.size() <= kLongestName) return name;
  return name.left(kKeptOfLongName) + QLatin1String("...");
}

QString ShortenedSearch(const QString& words) {
  constexpr qsizetype kLongest = 24;
  constexpr qsizetype kKept = 21;
  if (words.size() <= kLongest) return words;
  return words.left(kKept) + QLatin1String("...");
}

std::unique_ptr<QMenu> BuildFilterMenu(int commands, const QString& all_text, const NameList& names,
                                       Nameless nameless) {
  auto menu = std::make_unique<QMenu>();
  menu->setAccessibleName(all_text);
  AddCommand(*menu, all_text, commands);
  for (const auto& [id, item] : names) {
    if (item.Name.empty() && nameless == Nameless::kEnd) break;
    if (item.Name.empty()) continue;
    if (id <= kLargestFilterId) AddCommand(*menu, WideText(item.Name.view()), commands + id);
  }
  return menu;
}

NameFilter::NameFilter(ColorButton& button, int commands, const QString& all_text, int alignment,
                       Nameless nameless)
    : button_(button), commands_(commands), all_text_(all_text), nameless_(nameless) {
  button.SetPictures(kChevron, kChevronSize, kChevron, kChevronSize, 0, kThirdPictureSize);
  button.SetAlignment(alignment, false);
  button.UseProgramColors();
  Reset();
}

NameFilter::~NameFilter() = default;

void NameFilter::BuildMenu(const NameList& names) {
  auto menu = BuildFilterMenu(commands_, all_text_, names, nameless_);
  menu->setObjectName(button_.objectName() + QLatin1String("Menu"));
  connect(menu.get(), &QMenu::triggered, this,
          [this](const QAction* action) { Q_EMIT Chosen(action->data().toInt()); });
  button_.AttachMenu(menu.get(), true);
  menu_ = std::move(menu);  // the previous one goes when the button has let go of it
}

void NameFilter::Reset() { button_.setText(all_text_); }

void NameFilter::ShowChoice(int command, const NameList& all_names) {
  if (command == commands_) {
    Reset();
    return;
  }
  const ListItem* item = all_names.Find(command - commands_);
  if (item != nullptr) button_.setText(ShortenedName(WideText(item->Name.view())));
}

}  // namespace brovanta

#include "ui/shell/icon_tab_bar.h"

#include <QStyleOptionTab>
#include <QStylePainter>

namespace brovanta {
namespace {
constexpr QSize kTabSize{56, 28};
constexpr QMargins kInnerMargin{1, 3, 1, 3};
}  // namespace

IconTabBar::IconTabBar(QWidget* parent) : QTabBar(parent) {
  setDrawBase(false);
  setExpanding(false);
  setUsesScrollButtons(false);
  const QSize inner = kTabSize.shrunkBy(kInnerMargin);
  setIconSize({inner.height(), inner.height()});
}

QSize IconTabBar::tabSizeHint(int) const { return kTabSize; }

QSize IconTabBar::minimumTabSizeHint(int) const { return kTabSize; }

void IconTabBar::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  for (int index = 0; index < count(); ++index) {
    QStyleOptionTab option;
    initStyleOption(&option, index);
    painter.drawControl(QStyle::CE_TabBarTabShape, option);
    // The style's label would leave room for a text beside the picture.
    QRect picture(QPoint(0, 0), iconSize());
    picture.moveCenter(tabRect(index).center());
    const bool selected = index == currentIndex();
    tabIcon(index).paint(&painter, picture, Qt::AlignCenter, QIcon::Normal,
                         selected ? QIcon::On : QIcon::Off);
  }
}

}  // namespace brovanta

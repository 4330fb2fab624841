#include "ui/shell/icon_tab_bar.h"

#include <QMouseEvent>
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

void IconTabBar::TakeTapsOf(QWidget& strip) { strip.installEventFilter(this); }

bool IconTabBar::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::MouseButtonPress && watched->isWidgetType();
  if (!press || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) {
    return QTabBar::eventFilter(watched, event);
  }
  const QPoint point = static_cast<QMouseEvent*>(event)->position().toPoint();
  const int x = mapFrom(static_cast<QWidget*>(watched), point).x();
  const int index = tabAt({x, rect().center().y()});
  if (index >= 0) setCurrentIndex(index);
  return index >= 0;
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

#include "ui/base/wrapped_check_box.h"

#include <QFontMetrics>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "ui/base/row_painting.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

constexpr int kAroundText = 4;
constexpr int kTextFlags = static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextWordWrap;

}  // namespace

WrappedCheckBox::WrappedCheckBox(QWidget* parent) : QCheckBox(parent) {
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

int WrappedCheckBox::BoxWidth() const {
  return style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this) +
         style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, this);
}

QSize WrappedCheckBox::sizeHint() const {
  const QSize line = fontMetrics().size(0, text());
  return {BoxWidth() + line.width() + kAroundText,
          std::max(theme::kFingerHeight, line.height() + kAroundText)};
}

QSize WrappedCheckBox::minimumSizeHint() const {
  int longest = 0;
  for (const QString& word : text().split(QLatin1Char(' '))) {
    longest = std::max(longest, fontMetrics().horizontalAdvance(word));
  }
  return {BoxWidth() + longest + kAroundText, theme::kFingerHeight};
}

int WrappedCheckBox::RoomForText(int width) const {
  return std::max(1, width - BoxWidth() - kAroundText);
}

QFont WrappedCheckBox::ShownFont(int width) const {
  constexpr int kLines = 2;  // about
  return FittingFont(font(), text(), kLines * RoomForText(width));
}

int WrappedCheckBox::heightForWidth(int width) const {
  const QRect room(0, 0, RoomForText(width), QWIDGETSIZE_MAX);
  const QRect lines = QFontMetrics(ShownFont(width)).boundingRect(room, kTextFlags, text());
  return std::max(theme::kFingerHeight, lines.height());
}

bool WrappedCheckBox::hitButton(const QPoint& position) const { return rect().contains(position); }

void WrappedCheckBox::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  painter.drawControl(QStyle::CE_CheckBox, option);
  painter.setFont(ShownFont(width()));
  painter.drawItemText(rect().adjusted(BoxWidth(), 0, 0, 0), kTextFlags, palette(), isEnabled(),
                       text(), foregroundRole());
}

}  // namespace brovanta

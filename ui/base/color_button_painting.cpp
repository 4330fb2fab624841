// The looks of the owner-drawn button: colours by state, picture and text by alignment.
#include <QPainter>

#include "ui/base/color_button.h"
#include "ui/base/icons.h"
#include "ui/base/row_painting.h"
#include "ui/base/theme.h"

namespace brovanta {

namespace {

constexpr int kPadding = 8;
constexpr int kPictureMargin = 6;  ///< of a picture alone
constexpr int kGap = 6;
constexpr int kMenuMark = 12;
constexpr int kMenuMarkRoom = kMenuMark + 4;
constexpr int kArrowPicture = 134;

QColor Mixed(const QColor& one, const QColor& other, double share) {
  const auto channel = [share](int a, int b) {
    return static_cast<int>(a * (1.0 - share) + b * share);
  };
  return {channel(one.red(), other.red()), channel(one.green(), other.green()),
          channel(one.blue(), other.blue())};
}

}  // namespace

ColorButton::ColorIndex ColorButton::BackgroundIndex() const {
  if (isDown() || menu_showing_ || isChecked()) return kPressedBackground;
  if (hasFocus() || pointer_over_) return kFocusedBackground;
  return kNormalBackground;
}

const ColorButton::Picture* ColorButton::CurrentPicture() const {
  const bool pressed = BackgroundIndex() != kNormalBackground;
  if (!isEnabled() && pictures_[2].number != 0) return &pictures_[2];
  if (isEnabled() && pressed && pictures_[1].number != 0) return &pictures_[1];
  return pictures_[0].number == 0 ? nullptr : &pictures_[0];
}

bool ColorButton::HasMenuMark() const {
  // A picture that is an arrow, or that stands alone in the middle, speaks for itself.
  const bool alone = alignment_ == kPictureCentered && text().isEmpty();
  return menu_ != nullptr && pictures_[0].number != kArrowPicture && !alone;
}

QSize ColorButton::sizeHint() const {
  const QSize picture = pictures_[0].number == 0 ? QSize(0, 0) : pictures_[0].size;
  const bool stacked = alignment_ == kPictureCentered && !picture.isEmpty();
  const QFontMetrics metrics = fontMetrics();
  const QSize label = text().isEmpty()
                          ? QSize(0, 0)
                          : QSize(metrics.horizontalAdvance(text()) + 2, metrics.height());
  const int gap = picture.isEmpty() || text().isEmpty() ? 0 : kGap;
  int width =
      stacked ? qMax(picture.width(), label.width()) : picture.width() + gap + label.width();
  const int height =
      stacked ? picture.height() + label.height() : qMax(picture.height(), label.height());
  if (HasMenuMark()) width += kMenuMarkRoom;
  const int padding = text().isEmpty() ? kPictureMargin : kPadding;
  return QSize(width + 2 * padding, height + kPadding)
      .expandedTo(QSize(theme::kFingerHeight, theme::kFingerHeight));
}

QSize ColorButton::minimumSizeHint() const {
  return {qMin(sizeHint().width(), 2 * theme::kFingerHeight), sizeHint().height()};
}

void ColorButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const ColorIndex state = BackgroundIndex();
  const QColor ground = colors_[state];
  const QColor ink = colors_[state + 1U];
  const QRectF frame = QRectF(rect()).adjusted(1, 1, -1, -1);

  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRect(rect());
  if (state == kPressedBackground) {
    // A tint of the text's colour, so that a press shows even where all three pairs are alike.
    painter.setBrush(Mixed(ground, ink, 0.12));
    painter.drawRoundedRect(frame, theme::kRadius, theme::kRadius);
  } else if (pointer_over_) {
    painter.setBrush(Mixed(ground, ink, 0.05));
    painter.drawRoundedRect(frame, theme::kRadius, theme::kRadius);
  }
  painter.setPen(isEnabled() ? ink : Mixed(ink, ground, 0.6));
  PaintContent(painter, rect().adjusted(kPadding, 2, -kPadding, -2));
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 2));
    painter.drawRoundedRect(frame, theme::kRadius, theme::kRadius);
  }
}

void ColorButton::PaintContent(QPainter& painter, const QRect& inner) const {
  QRect room = inner;
  if (HasMenuMark()) {
    const QRect mark(room.right() - kMenuMark + 1, room.center().y() - kMenuMark / 2, kMenuMark,
                     kMenuMark);
    NamedIcon(QStringLiteral("chevron_down"), ThemeColor(painter.pen().color()))
        .paint(&painter, mark);
    room.setRight(room.right() - kMenuMarkRoom);
  }
  const Picture* picture = CurrentPicture();
  const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
  const QSize size = picture == nullptr ? QSize(0, 0) : picture->size;
  int align = Qt::AlignVCenter | Qt::AlignLeft;
  if (alignment_ == kPictureRight) align = Qt::AlignVCenter | Qt::AlignRight;
  if (alignment_ == kPictureCentered || (picture != nullptr && text().isEmpty())) {
    align = Qt::AlignCenter;
  }

  QRect label = room;
  if (picture != nullptr) {
    QRect place(QPoint(0, 0), size);
    place.moveCenter(room.center());
    if (alignment_ == kPictureCentered && !text().isEmpty()) {
      const int stack = size.height() + fontMetrics().height();
      place.moveTop(room.top() + (room.height() - stack) / 2);
      label.setTop(place.bottom() + 1);
      label.setHeight(fontMetrics().height());
    } else if (alignment_ == kPictureRight && !text().isEmpty()) {
      place.moveRight(room.right());
      label.setRight(place.left() - kGap);
    } else if (!text().isEmpty()) {
      place.moveLeft(room.left());
      label.setLeft(place.right() + kGap);
    }
    picture->icon.paint(&painter, place, Qt::AlignCenter, mode);
  }
  if (text().isEmpty()) return;
  const QFont fitting = FittingFont(font(), text(), label.width());
  painter.setFont(fitting);
  const QString shown = QFontMetrics(fitting).elidedText(text(), Qt::ElideRight, label.width());
  painter.drawText(label, align, shown);
}

}  // namespace brovanta

#include "ui/base/color_button.h"

#include <QDesktopServices>
#include <QKeyEvent>
#include <QScreen>
#include <QStyle>
#include <QUrl>
#include <algorithm>

#include "ui/base/color_button_accessible.h"
#include "ui/base/icons.h"
#include "ui/base/theme.h"

namespace brovanta {

namespace {

bool OpenInBrowser(const QString& address) {
  return QDesktopServices::openUrl(QUrl::fromUserInput(address));
}

WebAddressHandler web_address_handler = &OpenInBrowser;

}  // namespace

WebAddressHandler SetWebAddressHandler(WebAddressHandler handler) {
  const WebAddressHandler before = web_address_handler;
  web_address_handler = handler == nullptr ? &OpenInBrowser : handler;
  return before;
}

bool OpenWebAddress(const QString& address) {
  static const QStringList kSchemes = {QStringLiteral("http"), QStringLiteral("https"),
                                       QStringLiteral("ftp"), QStringLiteral("mailto")};
  // Addresses come from downloaded lists: nothing that would start a program or show a local file.
  if (!kSchemes.contains(QUrl::fromUserInput(address).scheme())) return false;
  return web_address_handler(address);
}

ColorButton::ColorButton(QWidget* parent) : QAbstractButton(parent) {
  SpeakForColorButtons();
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  UseProgramColors();
  // First of all connections, so that the button's own action comes before everybody else's.
  connect(this, &QAbstractButton::clicked, this, &ColorButton::Tap);
}

void ColorButton::setText(const QString& text) {
  QAbstractButton::setText(text);
  setShortcut(QKeySequence());
  updateGeometry();
}

int ColorButton::SetColor(int index, const QColor& color, bool repaint) {
  return SetColor(index, ThemeColor(color), repaint);
}

int ColorButton::SetColor(int index, ThemeColor color, bool repaint) {
  if (index < 0 || index >= kColorCount) return 3;
  colors_[static_cast<std::size_t>(index)] = color;
  if (repaint) update();
  return 0;
}

void ColorButton::UseProgramColors() {
  for (int index = 0; index < kColorCount; index += 2) {
    SetColor(index, theme::kGround, false);
    SetColor(index + 1, theme::kNavy, false);
  }
  update();
}

int ColorButton::SetAlignment(int alignment, bool repaint) {
  if (alignment < kPictureLeft || alignment > kPictureRight) return 4;
  alignment_ = alignment;
  if (repaint) update();
  return 0;
}

void ColorButton::SetPictures(int first, QSize first_size, int second, QSize second_size, int third,
                              QSize third_size) {
  const std::array<std::pair<int, QSize>, 3> given = {
      {{first, first_size}, {second, second_size}, {third, third_size}}};
  for (std::size_t i = 0; i < given.size(); ++i) {
    const auto& [number, size] = given[i];
    pictures_[i] = {number, size, number == 0 ? QIcon() : NumberedIcon(number)};
  }
  updateGeometry();
  update();
}

int ColorButton::AttachMenu(QMenu* menu, bool repaint) {
  if (menu_ != nullptr) menu_->disconnect(this);
  menu_showing_ = false;
  menu_ = menu;
  if (menu != nullptr) {
    connect(menu, &QMenu::aboutToHide, this, [this] {
      menu_showing_ = false;
      update();
    });
  }
  updateGeometry();
  if (repaint) update();
  return 0;
}

void ColorButton::SetCheckBoxMode(bool on) {
  check_box_mode_ = on;
  setCheckable(on);
}

void ColorButton::SetHoverTracking(bool on) {
  hover_tracking_ = on;
  SetPointerOver(on && underMouse() && isActiveWindow());
}

void ColorButton::Tap() {
  if (check_box_mode_) return;  // the check mark has been inverted already
  if (menu_ != nullptr) {
    DropMenuDown();
  } else if (!web_address_.isEmpty()) {
    // Without a message on failure, as links on a button have it.
    static_cast<void>(OpenWebAddress(web_address_));
  }
}

void ColorButton::DropMenuDown() {
  menu_showing_ = true;
  update();
  // A tap beside the open menu only closes it; on this button it would open it again at once.
  menu_->setAttribute(Qt::WA_NoMouseReplay);
  // Above the button where there is no room below it; the toolkit would cut the menu off.
  const QRect room = screen()->availableGeometry();
  const int high = menu_->sizeHint().height();
  QPoint place = mapToGlobal(QPoint(0, height()));
  if (place.y() + high > room.bottom()) {
    place.setY(std::max(room.top(), mapToGlobal(QPoint(0, 0)).y() - high));
  }
  menu_->popup(place);
}

void ColorButton::SetPointerOver(bool over) {
  if (over == pointer_over_) return;
  pointer_over_ = over;
  update();
}

// Of a change of the active window the toolkit tells the parts of a window by these two only.
bool ColorButton::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate) SetPointerOver(false);
  if (event->type() == QEvent::WindowActivate) SetPointerOver(hover_tracking_ && underMouse());
  return QAbstractButton::event(event);
}

void ColorButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  SetPointerOver(hover_tracking_ && isActiveWindow());
}

void ColorButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  SetPointerOver(false);
}

void ColorButton::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool drop = event->key() == Qt::Key_Down && menu_ != nullptr && !check_box_mode_;
  if ((enter || drop) && !event->isAutoRepeat()) {
    click();
    return;
  }
  QAbstractButton::keyPressEvent(event);
}

}  // namespace brovanta

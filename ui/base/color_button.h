// The owner-drawn button: a picture and a text in colours of its own, with an optional drop-down
// menu, check-box mode or web address.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QIcon>
#include <QMenu>
#include <QPointer>
#include <QSize>
#include <QString>
#include <array>

#include "ui/base/theme.h"

class QPainter;

namespace brovanta {

/// Opens a web address (http, https, ftp and mailto only); false when it could not.
using WebAddressHandler = bool (*)(const QString& address);

/// Replaces the handler that opens web addresses (tests do); nullptr brings the desktop's back.
/// Returns what was in place before.
WebAddressHandler SetWebAddressHandler(WebAddressHandler handler);

/// Opens the address with the handler in place.
bool OpenWebAddress(const QString& address);

/// A tap first inverts the check mark in check-box mode; else drops an attached menu down; else
/// opens a web address of at least one character; and in any case sends clicked().
class ColorButton : public QAbstractButton {
  Q_OBJECT

 public:
  /// Index of a colour: background (even) and text (odd) of the three drawing states.
  enum ColorIndex {
    kNormalBackground,
    kNormalText,
    kPressedBackground,
    kPressedText,
    kFocusedBackground,
    kFocusedText,
    kColorCount
  };
  /// Where the picture stands against the text.
  enum Alignment { kPictureLeft, kPictureCentered, kPictureRight };

  explicit ColorButton(QWidget* parent = nullptr);

  /// Shown as it stands: "&" is no mnemonic, store names may hold one.
  void setText(const QString& text);

  /// 0, or 3 for an index of 6 or more (nothing changes).
  int SetColor(int index, const QColor& color, bool repaint);
  /// The same with a colour that follows the palette in use.
  int SetColor(int index, ThemeColor color, bool repaint);
  /// White backgrounds and navy texts in all three states, or what the dark palette has for them.
  void UseProgramColors();

  /// 0, or 4 for a value greater than 2 (nothing changes).
  int SetAlignment(int alignment, bool repaint);

  /// Pictures by number (NumberedIcon) and size; 0 = none for the second and third.
  void SetPictures(int first, QSize first_size, int second, QSize second_size, int third,
                   QSize third_size);
  [[nodiscard]] int first_picture() const { return pictures_[0].number; }

  /// Attaches a drop-down menu, forgetting (not destroying) the previous one; nullptr leaves none.
  /// The menu is borrowed: its owner destroys it. Its commands are its actions. Returns 0.
  int AttachMenu(QMenu* menu, bool repaint);
  [[nodiscard]] QMenu* menu() const { return menu_; }
  [[nodiscard]] bool menu_showing() const { return menu_showing_; }

  void SetCheckBoxMode(bool on);
  void SetWebAddress(const QString& address) { web_address_ = address; }
  void SetHoverTracking(bool on);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Picture {
    int number = 0;
    QSize size;
    QIcon icon;
  };

  void Tap();
  void DropMenuDown();
  void SetPointerOver(bool over);
  [[nodiscard]] ColorIndex BackgroundIndex() const;
  [[nodiscard]] const Picture* CurrentPicture() const;
  [[nodiscard]] bool HasMenuMark() const;
  void PaintContent(QPainter& painter, const QRect& inner) const;

  std::array<ThemeColor, kColorCount> colors_;
  std::array<Picture, 3> pictures_;
  int alignment_ = kPictureLeft;
  QPointer<QMenu> menu_;
  bool menu_showing_ = false;
  bool check_box_mode_ = false;
  bool hover_tracking_ = false;
  bool pointer_over_ = false;
  QString web_address_;
};

}  // namespace brovanta

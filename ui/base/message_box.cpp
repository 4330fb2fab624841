#include "ui/base/message_box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFontInfo>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>

#include "ui/base/theme.h"

namespace brovanta {

namespace {

constexpr int kWidestBox = 320;
constexpr int kAroundText = 60;  ///< margins and gaps on both sides

int LongestWord(const QLabel& label) {
  int longest = 0;
  for (const QString& line : label.text().split(QLatin1Char('\n'))) {
    for (const QString& word : line.split(QLatin1Char(' '))) {
      longest = std::max(longest, label.fontMetrics().horizontalAdvance(word));
    }
  }
  return longest;
}

/// Measures itself for a narrow screen. The base class makes a box as wide as half the screen
/// before it breaks the text, which is wider than the whole program on a desktop and ragged on a
/// handheld.
class NarrowBox : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  bool event(QEvent* event) override {
    const bool handled = QMessageBox::event(event);
    const bool other_colours = event->type() == QEvent::PaletteChange && isVisible();
    if (other_colours) setIcon(icon());  // in them
    // The moments at which the base class measures; one is that of a new icon.
    if (other_colours || event->type() == QEvent::Show || event->type() == QEvent::LayoutRequest) {
      Fit();
    }
    return handled;
  }

 private:
  void Fit() {
    auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label == nullptr || !isVisible()) return;
    PlaceText(label);
    NamePicture();
    label->setWordWrap(true);
    const QSize room = screen()->size();
    // Large print on a small screen: what is asked must be seen whole, with its buttons.
    QFont font = QApplication::font();
    int pixels = QFontInfo(font).pixelSize();
    QSize size = Measure(label, room);
    while ((size.height() > room.height() || LongestWord(*label) > label->minimumWidth()) &&
           pixels > theme::kLeastTextPixels) {
      pixels = std::max(theme::kLeastTextPixels, pixels - 2);
      font.setPixelSize(pixels);
      for (QWidget* part : findChildren<QWidget*>()) part->setFont(font);
      size = Measure(label, room);
    }
    setFixedSize(size);
    QCoreApplication::removePostedEvents(this, QEvent::LayoutRequest);
  }

  /// Arranges text and buttons for a screen of this size.
  QSize Measure(QLabel* label, const QSize& room) {
    const int widest = qMin(kWidestBox, room.width());
    const int icon = iconPixmap().isNull() ? 0 : theme::kMessageIconSize;
    const int natural = label->fontMetrics().size(0, text()).width();
    label->setMinimumWidth(qMin(natural + 1, widest - kAroundText - icon));
    auto* const buttons = findChild<QDialogButtonBox*>();
    if (buttons != nullptr) Turn(*buttons, Qt::Horizontal);
    layout()->activate();
    if (buttons != nullptr && layout()->totalMinimumSize().width() > room.width()) {
      Turn(*buttons, Qt::Vertical);
      layout()->activate();
    }
    const int width = qMin(layout()->totalMinimumSize().width(), room.width());
    return {width, layout()->totalHeightForWidth(width)};
  }

  /// As wide as the text in either direction.
  static void Turn(QDialogButtonBox& buttons, Qt::Orientation orientation) {
    buttons.setOrientation(orientation);
    buttons.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    buttons.updateGeometry();
  }

  void NamePicture() {
    auto* picture = findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
    if (picture != nullptr)
      picture->setAccessibleName(QCoreApplication::translate("Message", "Question"));
  }

  /// The text takes what the buttons leave, and without an icon no room is kept for one.
  void PlaceText(QLabel* label) {
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (grid == nullptr) return;
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
    grid->setColumnStretch(column, 1);
    QLayoutItem* const before = column == 0 ? nullptr : grid->itemAtPosition(row, column - 1);
    QSpacerItem* const gap = before == nullptr ? nullptr : before->spacerItem();
    if (gap != nullptr && iconPixmap().isNull()) gap->changeSize(0, 0);
  }
};

int RunBox(QWidget* parent, QMessageBox::Icon icon, const QString& text,
           QMessageBox::StandardButtons buttons, QMessageBox::StandardButton escape) {
  NarrowBox box(parent == nullptr ? nullptr : parent->window());
  box.setWindowTitle(QStringLiteral("Brovanta"));
  box.setIcon(icon);
  box.setTextFormat(Qt::PlainText);
  box.setText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  box.setStandardButtons(buttons);
  box.setEscapeButton(escape);
  return box.exec();
}

}  // namespace

void ShowMessage(QWidget* parent, const QString& text) {
  RunBox(parent, QMessageBox::NoIcon, text, QMessageBox::Ok, QMessageBox::Ok);
}

Answer AskYesNo(QWidget* parent, const QString& text) {
  const int button = RunBox(parent, QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No,
                            QMessageBox::No);
  return button == QMessageBox::Yes ? Answer::kYes : Answer::kNo;
}

Answer AskYesNoCancel(QWidget* parent, const QString& text) {
  const int button =
      RunBox(parent, QMessageBox::Question, text,
             QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel);
  if (button == QMessageBox::Yes) return Answer::kYes;
  return button == QMessageBox::No ? Answer::kNo : Answer::kCancel;
}

}  // namespace brovanta

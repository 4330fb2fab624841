#include "ui/base/message_box.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>

#include "ui/base/theme.h"

namespace brovanta {

namespace {

constexpr int kWidestText = 320;

/// Lets a long sentence break instead of pushing the box over the edge of a narrow screen.
void FitText(QMessageBox& box) {
  auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (label == nullptr) return;
  label->setWordWrap(true);
  const int icon_width = box.iconPixmap().isNull() ? 0 : box.iconPixmap().width();
  const int room = box.screen()->availableGeometry().width() - icon_width - 6 * theme::kMargin;
  const int natural = label->fontMetrics()
                          .boundingRect(QRect(0, 0, 1 << 16, 1 << 16), Qt::AlignLeft, box.text())
                          .width();
  label->setMinimumWidth(qMin(natural + 1, qMin(room, kWidestText)));
}

int RunBox(QWidget* parent, QMessageBox::Icon icon, const QString& text,
           QMessageBox::StandardButtons buttons, QMessageBox::StandardButton escape) {
  QMessageBox box(parent == nullptr ? nullptr : parent->window());
  box.setWindowTitle(QStringLiteral("Brovanta"));
  box.setIcon(icon);
  box.setTextFormat(Qt::PlainText);
  box.setText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  box.setStandardButtons(buttons);
  box.setEscapeButton(escape);
  FitText(box);
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

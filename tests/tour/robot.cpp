#include "tests/tour/robot.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QMessageBox>
#include <QPixmap>
#include <QTest>
#include <QTimer>
#include <utility>

#include "tests/tour/guide_pictures.h"

namespace brovanta::tour {

void Settle() {
  for (int round = 0; round < 3; ++round) {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
  }
}

Robot::Robot(QString picture_folder, QString picture_prefix)
    : picture_folder_(std::move(picture_folder)), picture_prefix_(std::move(picture_prefix)) {}

void Robot::Expect(bool condition, const QString& what) {
  ++checks_;
  if (!condition) failures_.push_back(what);
}

void Robot::During(const std::function<void()>& trigger, const std::function<void(QWidget&)>& act) {
  QWidget* const before = QApplication::activeModalWidget();
  bool came = false;
  QTimer watch;
  watch.setInterval(1);
  QObject::connect(&watch, &QTimer::timeout, [&] {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || window == before || !window->isVisible()) return;
    watch.stop();
    came = true;
    Settle();
    act(*window);
    // A window that is still open here would hold the tour up for ever.
    if (window == QApplication::activeModalWidget() && window->isVisible()) {
      Expect(false, QStringLiteral("the window \"%1\" did not close").arg(window->objectName()));
      window->close();
    }
  });
  watch.start();
  trigger();
  Settle();
  Expect(came, QStringLiteral("no window opened"));
}

void Robot::AnswerMessage(const std::function<void()>& trigger, const QString& text,
                          const QString& button, const QString& picture) {
  During(trigger, [&](QWidget& window) {
    auto* box = qobject_cast<QMessageBox*>(&window);
    Expect(box != nullptr, QStringLiteral("a message box was expected: ") + text);
    if (box == nullptr) return;
    Expect(box->text() == text, QStringLiteral("the box says: ") + box->text());
    Expect(box->windowTitle() == QStringLiteral("Brovanta"), QStringLiteral("caption of the box"));
    Picture(*box, picture);
    Tap(*box, button);
  });
}

QWidget* Robot::Control(QWidget& window, int control_id) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const QVariant number = widget->property("controlId");
    if (number.isValid() && number.toInt() == control_id) return widget;
  }
  Expect(false, QStringLiteral("no control %1 in %2").arg(control_id).arg(window.objectName()));
  return nullptr;
}

QWidget* Robot::Control(QWidget& window, const QString& object_name) {
  auto* widget = window.findChild<QWidget*>(object_name);
  Expect(widget != nullptr,
         QStringLiteral("no control %1 in %2").arg(object_name, window.objectName()));
  return widget;
}

void Robot::Tap(QWidget& widget) {
  Expect(widget.isVisible() && widget.isEnabled(),
         QStringLiteral("%1 cannot be tapped").arg(widget.objectName()));
  QTest::mouseClick(&widget, Qt::LeftButton);
  Settle();
}

void Robot::Tap(QWidget& window, int control_id) {
  if (QWidget* widget = Control(window, control_id)) Tap(*widget);
}

void Robot::Tap(QWidget& window, const QString& button) {
  for (auto* candidate : window.findChildren<QAbstractButton*>()) {
    if (candidate->isVisible() && candidate->text().remove(QLatin1Char('&')) == button) {
      Tap(*candidate);
      return;
    }
  }
  Expect(false, QStringLiteral("no button \"%1\" in %2").arg(button, window.objectName()));
}

void Robot::Type(QWidget& field, const QString& text) {
  field.setFocus();
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&field, Qt::Key_Delete);
  for (const QChar character : text) {
    if (character == QLatin1Char('\n')) {
      QTest::keyClick(&field, Qt::Key_Return);
    } else {
      QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(character),
                          Qt::NoModifier);
    }
  }
  Settle();
}

void Robot::Key(QWidget& widget, int key, Qt::KeyboardModifiers modifiers) {
  widget.window()->activateWindow();  // a window manager does so when a dialog has closed
  Expect(QTest::qWaitForWindowActive(widget.window()), QStringLiteral("the window takes keys"));
  QTest::keyClick(&widget, static_cast<Qt::Key>(key), modifiers);
  Settle();
}

void Robot::Choose(QWidget& widget, const QString& item) {
  auto* combo = qobject_cast<QComboBox*>(&widget);
  Expect(combo != nullptr, widget.objectName() + QStringLiteral(" is no combo box"));
  if (combo == nullptr) return;
  const int wanted = combo->findText(item, Qt::MatchExactly);
  Expect(wanted >= 0, QStringLiteral("%1 does not offer \"%2\"").arg(combo->objectName(), item));
  if (wanted < 0) return;
  combo->setFocus();
  while (combo->currentIndex() != wanted) {
    const int before = combo->currentIndex();
    QTest::keyClick(combo, before < wanted ? Qt::Key_Down : Qt::Key_Up);
    if (combo->currentIndex() == before) {
      Expect(false, QStringLiteral("%1 stays on item %2").arg(combo->objectName()).arg(before));
      return;
    }
  }
  Settle();
}

QString Robot::PictureFile(const QString& name) {
  ++pictures_;
  return QStringLiteral("%1/%2_%3_%4.png")
      .arg(picture_folder_, picture_prefix_)
      .arg(pictures_, 2, 10, QLatin1Char('0'))
      .arg(name);
}

void Robot::SavePicture(const QPixmap& picture, const QString& name) {
  const QString file = PictureFile(name);
  Expect(picture.save(file), QStringLiteral("cannot write ") + file);
  SaveForTheGuide(picture, name);
}

void Robot::SaveForTheGuide(const QPixmap& picture, const QString& name) {
  const QString guide_file = GuideFile(picture_prefix_, name);
  const QDir folder(picture_folder_ + QStringLiteral("/guide"));
  if (guide_file.isEmpty() || folder.exists(guide_file)) return;
  // The guide's pictures are part of the source tree: packed as small as can be.
  constexpr int kSmallest = 0;
  const QImage opaque = picture.toImage().convertToFormat(QImage::Format_RGB888);
  Expect(folder.mkpath(QStringLiteral(".")) &&
             opaque.save(folder.filePath(guide_file), "PNG", kSmallest),
         QStringLiteral("cannot write ") + folder.filePath(guide_file));
}

void Robot::Picture(QWidget& window, const QString& name) {
  Settle();
  SavePicture(window.grab(), name);
}

}  // namespace brovanta::tour

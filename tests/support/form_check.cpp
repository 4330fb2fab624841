#include "tests/support/form_check.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QScrollArea>
#include <QTest>

namespace brovanta::test {

namespace {

QString NameOf(const QWidget* widget) {
  const QString name = widget->objectName();
  return name.isEmpty() ? QString::fromLatin1(widget->metaObject()->className()) : name;
}

/// What a person reads or taps; the parts that a control is made of do not count.
bool IsControl(const QWidget* widget) {
  if (qobject_cast<const QComboBox*>(widget->parentWidget()) != nullptr ||
      qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()) != nullptr) {
    return false;
  }
  return qobject_cast<const QLabel*>(widget) != nullptr ||
         qobject_cast<const QAbstractButton*>(widget) != nullptr ||
         qobject_cast<const QLineEdit*>(widget) != nullptr ||
         qobject_cast<const QComboBox*>(widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(widget) != nullptr;
}

QString SizeComplaint(const QWidget* widget) {
  QSize need = widget->minimumSizeHint();
  if (widget->minimumWidth() > 0) need.setWidth(widget->minimumWidth());  // was said so
  if (widget->width() < need.width()) {
    return QStringLiteral("%1: %2 wide, needs %3")
        .arg(NameOf(widget))
        .arg(widget->width())
        .arg(need.width());
  }
  const int height =
      widget->hasHeightForWidth() ? widget->heightForWidth(widget->width()) : need.height();
  if (widget->height() < height) {
    return QStringLiteral("%1: %2 high, needs %3")
        .arg(NameOf(widget))
        .arg(widget->height())
        .arg(height);
  }
  if (!widget->parentWidget()->rect().contains(widget->geometry())) {
    return QStringLiteral("%1: stands out of its parent").arg(NameOf(widget));
  }
  return {};
}

}  // namespace

QList<QSize> ScreenSizes() { return {{360, 640}, {640, 360}, {320, 480}}; }

std::string Clipped(QWidget* form) {
  QCoreApplication::processEvents();
  QStringList complaints;
  QList<QWidget*> controls;
  for (QWidget* widget : form->findChildren<QWidget*>()) {
    if (widget->isVisibleTo(form) && IsControl(widget)) controls.append(widget);
  }
  for (const QWidget* widget : controls) {
    const QString complaint = SizeComplaint(widget);
    if (!complaint.isEmpty()) complaints.append(complaint);
    for (const QWidget* other : controls) {
      if (other == widget) break;
      if (other->parentWidget() == widget->parentWidget() &&
          other->geometry().intersects(widget->geometry())) {
        complaints.append(NameOf(widget) + QStringLiteral(": overlaps ") + NameOf(other));
      }
    }
  }
  for (const QScrollArea* area : form->findChildren<QScrollArea*>()) {
    if (area->isVisibleTo(form) && area->widget()->width() > area->viewport()->width()) {
      complaints.append(NameOf(area) + QStringLiteral(": scrolls sideways"));
    }
  }
  return complaints.join(QLatin1Char('\n')).toStdString();
}

std::string TabOrder(QWidget* form) {
  QStringList names;
  QWidget* const first = form->focusWidget();
  if (first == nullptr) return {};
  do {
    names.append(NameOf(form->focusWidget()));
    QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
  } while (form->focusWidget() != first && names.size() < 100);
  return names.join(QLatin1Char(' ')).toStdString();
}

QWidget* Control(QWidget* form, int control_id) {
  QWidget* found = nullptr;
  for (QWidget* widget : form->findChildren<QWidget*>()) {
    const QVariant number = widget->property("controlId");
    if (!number.isValid() || number.toInt() != control_id) continue;
    if (found != nullptr) return nullptr;
    found = widget;
  }
  return found;
}

void TypeText(QWidget* field, const QString& text) {
  for (const QChar character : text) {
    QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character), Qt::NoModifier);
  }
}

void SavePicture(QWidget* form, const QString& name) {
  const QString folder = qEnvironmentVariable("BROVANTA_PICTURES");
  if (folder.isEmpty() || !QDir().mkpath(folder)) return;
  QCoreApplication::processEvents();  // scroll bars come and go by events
  const QString file =
      QStringLiteral("%1/%2_%3x%4.png").arg(folder, name).arg(form->width()).arg(form->height());
  if (!form->grab().save(file)) qWarning("%s was not saved", qPrintable(file));
}

}  // namespace brovanta::test

#include "tests/support/message_answers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QTest>

namespace brovanta::test {

MessageAnswers::MessageAnswers(QList<QMessageBox::StandardButton> answers)
    : answers_(std::move(answers)) {
  qApp->installEventFilter(this);
}

MessageAnswers::~MessageAnswers() { qApp->removeEventFilter(this); }

bool MessageAnswers::eventFilter(QObject* watched, QEvent* event) {
  auto* box = qobject_cast<QMessageBox*>(watched);
  if (box != nullptr && event->type() == QEvent::Show) {
    // Queued: the box's own loop has to be running before it can be left.
    QMetaObject::invokeMethod(
        this,
        [this, guarded = QPointer<QMessageBox>(box)] {
          if (guarded) AnswerBox(guarded);
        },
        Qt::QueuedConnection);
  }
  return false;
}

void MessageAnswers::AnswerBox(QMessageBox* box) {
  texts_.append(box->text());
  captions_.append(box->windowTitle());
  const auto answer = answers_.isEmpty() ? QMessageBox::NoButton : answers_.takeFirst();
  QAbstractButton* button = box->button(answer);
  if (button == nullptr) {
    QTest::keyClick(box, Qt::Key_Escape);
  } else {
    QTest::mouseClick(button, Qt::LeftButton);
  }
}

}  // namespace brovanta::test

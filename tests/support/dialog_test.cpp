#include "tests/support/dialog_test.h"

#include <QApplication>
#include <QTest>

namespace brovanta::test {

DialogTest::DialogTest() { qApp->installEventFilter(this); }

DialogTest::~DialogTest() {
  qApp->removeEventFilter(this);
  EXPECT_TRUE(acts_.empty()) << "a dialog did not open";
}

int DialogTest::RunDialog(QDialog& dialog, const Act& act) {
  InNextDialog(act);
  return dialog.exec();
}

bool DialogTest::eventFilter(QObject* watched, QEvent* event) {
  auto* dialog = qobject_cast<QDialog*>(watched);
  if (dialog != nullptr && event->type() == QEvent::Show &&
      qobject_cast<QMessageBox*>(dialog) == nullptr) {
    // Queued: the dialog's own loop has to be running before it can be left.
    QMetaObject::invokeMethod(
        this,
        [this, guarded = QPointer<QDialog>(dialog)] {
          if (guarded) Play(guarded);
        },
        Qt::QueuedConnection);
  }
  return false;
}

void DialogTest::Play(QDialog* dialog) {
  const QPointer<QDialog> before = dialog_;
  dialog_ = dialog;
  EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
  if (acts_.empty()) {
    ADD_FAILURE() << "a dialog opened that nobody waits for";
  } else {
    const Act act = acts_.front();
    acts_.erase(acts_.begin());
    act();
  }
  if (dialog->isVisible()) dialog->reject();
  dialog_ = before;
}

void DialogTest::Press(const char* name) { QTest::mouseClick(Find(name), Qt::LeftButton); }

std::string DialogTest::Messages() const {
  return answers_.texts().join(QLatin1Char('\n')).toStdString();
}

}  // namespace brovanta::test

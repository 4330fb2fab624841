// The on-screen keyboard takes the lower half of the screen.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "tests/ui/reach/fit_check.h"
#include "tests/ui/reach/large_print.h"
#include "tests/ui/reach/screens.h"
#include "ui/base/modal_dialog.h"

namespace brovanta::test {
namespace {

constexpr int kOneLine = 30;  // of a field for several

/// What a person types into, the notes included.
QList<QWidget*> TypedFields(const QWidget& window) {
  QList<QWidget*> fields;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const auto* list = qobject_cast<const QComboBox*>(widget);
    const bool typed = qobject_cast<QPlainTextEdit*>(widget) != nullptr ||
                       (list != nullptr && list->isEditable()) ||
                       (qobject_cast<QLineEdit*>(widget) != nullptr &&
                        qobject_cast<QComboBox*>(widget->parentWidget()) == nullptr &&
                        !widget->parentWidget()->inherits("QAbstractSpinBox"));
    if (typed && widget->isVisible() && widget->isEnabled()) fields << widget;
  }
  return fields;
}

/// What has found its place may give another control a new one.
void Settle() {
  for (int i = 0; i < 8; ++i) QCoreApplication::processEvents();
}

/// Whether the field is still seen when the keyboard has come; the keyboard goes again.
bool IsSeenAboveTheKeyboard(QWidget& window, QWidget& field) {
  const QSize whole = window.size();
  field.setFocus(Qt::MouseFocusReason);
  window.resize(whole.width(), whole.height() / 2);
  Settle();
  const bool seen = qobject_cast<QPlainTextEdit*>(&field) != nullptr
                        ? field.visibleRegion().boundingRect().height() >= kOneLine
                        : IsWhollyVisible(field);
  const bool fits = window.height() == whole.height() / 2;
  window.resize(whole);
  Settle();
  return seen && fits;
}

int CheckAllFields(const char* print) {
  Screens screens;
  int fields = 0;
  screens.ForEachWindow([&fields, print](const OpenScreen& open) {
    for (const QSize size : {QSize(360, 640), QSize(640, 360), QSize(320, 480), QSize(240, 320)}) {
      open.window->resize(size);
      Settle();
      for (QWidget* field : TypedFields(*open.window)) {
        EXPECT_TRUE(IsSeenAboveTheKeyboard(*open.window, *field))
            << open.name << ", " << print << ", " << size.width() << " x " << size.height() << ": "
            << field->objectName().toStdString();
        ++fields;
      }
    }
  });
  return fields;
}

TEST(PanelTest, TheFieldWithTheFocusStaysVisible) { EXPECT_GT(CheckAllFields("usual print"), 150); }

TEST(PanelTest, InLargePrintAsWell) {
  const LargePrint large;
  EXPECT_GT(CheckAllFields("large print"), 150);
}

/// The keyboard is there all the time, and the forms put their labels elsewhere.
int TurnWithAllFields(const char* print) {
  Screens screens;
  int fields = 0;
  screens.ForEachWindow([&fields, print](const OpenScreen& open) {
    for (QWidget* field : TypedFields(*open.window)) {
      if (qobject_cast<QPlainTextEdit*>(field) != nullptr) continue;
      for (const QSize size : {QSize(640, 180), QSize(240, 160), QSize(360, 320)}) {
        field->setFocus(Qt::MouseFocusReason);
        open.window->resize(size);
        Settle();
        EXPECT_TRUE(IsWhollyVisible(*field))
            << open.name << ", " << print << ", " << size.width() << " x " << size.height() << ": "
            << field->objectName().toStdString();
        ++fields;
      }
    }
  });
  return fields;
}

TEST(PanelTest, TheFieldWithTheFocusStaysVisibleWhenTheScreenIsTurned) {
  EXPECT_GT(TurnWithAllFields("usual print"), 100);
}

TEST(PanelTest, WhenItIsTurnedInLargePrintAsWell) {
  const LargePrint large;
  EXPECT_GT(TurnWithAllFields("large print"), 100);
}

TEST(PanelTest, AFieldThatIsCoveredIsSeen) {
  QDialog form;
  auto* layout = new QVBoxLayout(&form);
  layout->addStretch();
  auto* field = new QLineEdit;
  layout->addWidget(field);
  form.setMinimumHeight(400);
  form.show();
  form.resize(300, 400);
  EXPECT_FALSE(IsSeenAboveTheKeyboard(form, *field));
}

}  // namespace
}  // namespace brovanta::test

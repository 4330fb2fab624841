#include "ui/base/wheel_guard.h"

#include <gtest/gtest.h>

#include <QtTest/qtestspontaneevent.h>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace brovanta {
namespace {

/// A form that is higher than its window, with one field of each kind.
class WheelGuardTest : public testing::Test {
 protected:
  WheelGuardTest() {
    auto* content = new QWidget;
    auto* fields = new QVBoxLayout(content);
    first_ = new QLineEdit(content);
    list_ = new QComboBox(content);
    names_ = new QComboBox(content);
    names_->setEditable(true);
    date_ = new QDateEdit(QDate(2026, 11, 21), content);
    for (QComboBox* box : {list_, names_}) {
      box->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
      box->setCurrentIndex(1);
    }
    for (QWidget* field : {static_cast<QWidget*>(first_), static_cast<QWidget*>(list_),
                           static_cast<QWidget*>(names_), static_cast<QWidget*>(date_)}) {
      fields->addWidget(field);
    }
    content->setMinimumHeight(2000);
    area_.setWidget(content);
    area_.setWidgetResizable(true);
    area_.resize(300, 300);
    KeepFromTheWheel(area_);
    area_.show();
    first_->setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&area_));
  }

  /// One notch of the wheel downwards over the middle of the widget.
  void Turn(QWidget* field) {
    const QPoint place = field->rect().center();
    QWheelEvent event(place, field->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);  // only such a one goes on to what is around
    qApp->notify(field, &event);
  }

  [[nodiscard]] int Scrolled() const { return area_.verticalScrollBar()->value(); }

  QScrollArea area_;
  QLineEdit* first_ = nullptr;
  QComboBox* list_ = nullptr;
  QComboBox* names_ = nullptr;
  QDateEdit* date_ = nullptr;
};

TEST_F(WheelGuardTest, TheFormScrollsAndTheFieldsUnderThePointerStay) {
  for (QWidget* field : {static_cast<QWidget*>(list_), static_cast<QWidget*>(names_),
                         static_cast<QWidget*>(names_->lineEdit()), static_cast<QWidget*>(date_),
                         date_->findChild<QWidget*>(QStringLiteral("qt_spinbox_lineedit"))}) {
    ASSERT_NE(field, nullptr);
    const int before = Scrolled();
    Turn(field);
    EXPECT_GT(Scrolled(), before) << field->metaObject()->className();
  }
  EXPECT_EQ(list_->currentIndex(), 1);
  EXPECT_EQ(names_->currentIndex(), 1);
  EXPECT_EQ(date_->date(), QDate(2026, 11, 21));
  EXPECT_TRUE(first_->hasFocus()) << "nor does the wheel move the focus";
}

TEST_F(WheelGuardTest, AFieldWithTheFocusTakesTheWheel) {
  list_->setFocus();
  Turn(list_);
  EXPECT_EQ(list_->currentIndex(), 2);
  names_->setFocus();
  Turn(names_->lineEdit());
  EXPECT_EQ(names_->currentIndex(), 2);
  date_->setFocus();
  Turn(date_);
  EXPECT_NE(date_->date(), QDate(2026, 11, 21));
  EXPECT_EQ(Scrolled(), 0);
}

}  // namespace
}  // namespace brovanta

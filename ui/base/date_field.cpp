#include "ui/base/date_field.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QDateEdit>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleOptionComboBox>

#include "ui/base/calendar_looks.h"
#include "ui/base/language.h"
#include "ui/base/period.h"

namespace brovanta {
namespace {
constexpr QSize kFingerSize{300, 280};  // dates a finger wide where there is room
constexpr QSize kAroundCalendar{8, 8};

/// Alt+Down and F4 drop the calendar down, as they do with a list; Escape closes it, and the date
/// stays. The toolkit has no key for the one and takes the other for a choice.
class CalendarKeys : public QObject {
 public:
  explicit CalendarKeys(QDateEdit& field) : QObject(&field), field_(field) {
    field.installEventFilter(this);
    days_ = field.calendarWidget()->findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
    if (days_ != nullptr) days_->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == days_ && event->type() == QEvent::FocusIn) before_ = field_.date();
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (watched == days_) return key.key() == Qt::Key_Escape && Close();
    const bool down = key.key() == Qt::Key_Down && key.modifiers() == Qt::AltModifier;
    if (!down && key.key() != Qt::Key_F4) return false;
    PressArrow();
    return true;
  }

 private:
  bool Close() {
    days_->window()->close();
    field_.setDate(before_);
    return true;
  }

  /// The calendar opens by a press on the arrow only.
  void PressArrow() {
    QStyleOptionComboBox option;
    option.initFrom(&field_);
    const QPointF arrow =
        field_.style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &field_)
            .center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      const bool press = type == QEvent::MouseButtonPress;
      QMouseEvent event(type, arrow, field_.mapToGlobal(arrow), Qt::LeftButton,
                        press ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(&field_, &event);
    }
  }

  QDateEdit& field_;
  QWidget* days_;  // of the calendar
  QDate before_;   // the calendar opened
};
}  // namespace

DateStamp StampOfPickedDay(QDate date) {
  CalendarTime time = CalendarOfDate(date);
  time.hour = 1;
  return StampFromCalendar(time);
}

void SetUpDateField(QDateEdit& field) {
  // Digits and names of the program, whatever the user's locale.
  field.setLocale(SpokenLocale());
  field.setCalendarPopup(true);
  field.setDateRange(FirstPickableDate(), LastPickableDate());
  field.setDisplayFormat(DateEntryForm());
  field.setDate(TodayDate());
  DressCalendar(*field.calendarWidget());
  const QSize room = field.screen()->size() - kAroundCalendar;
  field.calendarWidget()->setFixedSize(kFingerSize.boundedTo(room));
  FitCalendar(*field.calendarWidget(), field.calendarWidget()->width());
  new CalendarKeys(field);  // the field's from now on
}

void ShowStamp(QDateEdit& field, DateStamp stamp) { field.setDate(DateOfStamp(stamp)); }

}  // namespace brovanta

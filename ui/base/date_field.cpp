#include "ui/base/date_field.h"

#include <QCalendarWidget>
#include <QDateEdit>

#include "ui/base/calendar_looks.h"
#include "ui/base/period.h"

namespace brovanta {

namespace {
constexpr QSize kFingerSize{308, 296};  // every day a finger wide and high
}  // namespace

DateStamp StampOfPickedDay(QDate date) {
  CalendarTime time = CalendarOfDate(date);
  time.hour = 1;
  return StampFromCalendar(time);
}

void SetUpDateField(QDateEdit& field) {
  field.setCalendarPopup(true);
  field.setDateRange(FirstPickableDate(), LastPickableDate());
  field.setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
  field.setDate(TodayDate());
  SetUpCalendarLooks(*field.calendarWidget());
  field.calendarWidget()->setMinimumSize(kFingerSize);
}

void ShowStamp(QDateEdit& field, DateStamp stamp) { field.setDate(DateOfStamp(stamp)); }

}  // namespace brovanta

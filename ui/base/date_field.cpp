#include "ui/base/date_field.h"

#include <QCalendarWidget>
#include <QDateEdit>

#include "ui/base/period.h"

namespace brovanta {

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
  field.calendarWidget()->setFirstDayOfWeek(Qt::Sunday);
}

void ShowStamp(QDateEdit& field, DateStamp stamp) { field.setDate(DateOfStamp(stamp)); }

}  // namespace brovanta

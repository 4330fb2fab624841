#include "ui/base/date_field.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QDateEdit>

#include "ui/base/calendar_looks.h"
#include "ui/base/language.h"
#include "ui/base/period.h"

namespace brovanta {
namespace {
constexpr QSize kFingerSize{300, 280};  // dates a finger wide, on the narrowest screen as well
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
  field.setDisplayFormat(QCoreApplication::translate("DateField", "MM/dd/yyyy"));
  field.setDate(TodayDate());
  DressCalendar(*field.calendarWidget());
  field.calendarWidget()->setMinimumSize(kFingerSize);
}

void ShowStamp(QDateEdit& field, DateStamp stamp) { field.setDate(DateOfStamp(stamp)); }

}  // namespace brovanta

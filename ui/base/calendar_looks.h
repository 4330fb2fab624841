// The looks that every month calendar of the program has.
#pragma once

class QCalendarWidget;

namespace brovanta {

/// English names and digits whatever the user's locale, as in the rest of the program; week from
/// Sunday, dates that a stamp can hold, weekends like other days, own arrows.
void DressCalendar(QCalendarWidget& calendar);

/// Gives a calendar of this width letters of a size with which it can name months and days.
void FitCalendar(QCalendarWidget& calendar, int width);

}  // namespace brovanta

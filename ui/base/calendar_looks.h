// The looks that every calendar of the program shares, dropped down or not.
#pragma once

class QCalendarWidget;

namespace brovanta {

/// English names, weeks from Sunday without numbers, week-ends in the colour of other days and
/// the program's own arrows, with names for a screen reader.
void SetUpCalendarLooks(QCalendarWidget& calendar);

}  // namespace brovanta

// Date pickers over stamps: a picked day is stored at 01:00 of that day.
#pragma once

#include <QDate>

#include "util/date_stamp.h"

class QDateEdit;

namespace brovanta {

/// The stamp of a picked day: 01:00:00 local time, the hour that TodayStamp uses as well.
[[nodiscard]] DateStamp StampOfPickedDay(QDate date);

/// Bounds the picker to the days that a stamp can hold, gives it a calendar to drop down (by
/// Alt+Down and F4 as well), and shows today.
void SetUpDateField(QDateEdit& field);

/// Shows the local day of the stamp.
void ShowStamp(QDateEdit& field, DateStamp stamp);

}  // namespace brovanta

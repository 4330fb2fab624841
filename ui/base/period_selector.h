// The controls that choose a period: view-mode button, heading button and calendar.
#pragma once

#include <QDate>
#include <QMenu>
#include <QObject>

#include "ui/base/period.h"

namespace brovanta {

class CalendarPopup;
class ColorButton;

/// Drives the controls of a screen, which stay the screen's. Starts in the daily view on today,
/// without a period: the screen calls UpdatePeriod when it is ready.
class PeriodSelector : public QObject {
  Q_OBJECT

 public:
  /// `calendar_id` is the control number of the calendar, which heading_button opens.
  PeriodSelector(ColorButton& view_button, ColorButton& heading_button, QWidget& screen,
                 int calendar_id = 0);

  /// Computes the period from the calendar's date and the view mode and shows its heading. 0, or -1
  /// for an unknown view mode: period and heading stay then.
  int UpdatePeriod();

  [[nodiscard]] const Period& period() const { return period_; }
  [[nodiscard]] int view_mode() const { return view_mode_; }
  /// Stores the mode, checked or not by UpdatePeriod, and shows it in menu and button.
  void SetViewMode(int view_mode);

  [[nodiscard]] QDate date() const;
  void SetDate(QDate date);

 Q_SIGNALS:
  /// The user chose a view mode (the same one included) or a date; period() is up to date.
  void PeriodChosen();

 private:
  ColorButton& view_button_;
  ColorButton& heading_button_;
  CalendarPopup* calendar_;
  QMenu view_menu_;
  int view_mode_ = kDailyView;
  Period period_;
};

}  // namespace brovanta

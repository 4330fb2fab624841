// The month calendar as it lies over a screen while a date is picked.
#pragma once

#include <QDate>
#include <QPointer>
#include <QWidget>

class QCalendarWidget;

namespace brovanta {

/// Covers the whole screen while it is open, so that all input is the calendar's: a tap or click on
/// a date (or Enter) chooses it; Escape or a tap beside the calendar closes without a change. No
/// shortcut of the screen works meanwhile.
class CalendarPopup : public QWidget {
  Q_OBJECT

 public:
  /// Starts with today as the chosen date. The screen owns this object. The calendar itself, named
  /// "calendar", is made when it is opened for the first time: it takes as long as the rest of a
  /// screen, and most starts of the program never show it. `control_id` is its control's number.
  explicit CalendarPopup(QWidget& screen, int control_id = 0);

  /// Opens with the calendar below the anchor, as far as there is room.
  void Open(const QWidget& anchor);

  /// The chosen date. While the calendar is open it is the one from before, wherever the arrow keys
  /// have gone.
  [[nodiscard]] QDate date() const { return date_; }
  /// Sets the chosen date without Chosen(); in an open calendar nothing moves. One that has no
  /// stamp becomes the nearest that has.
  void SetDate(QDate date);

 Q_SIGNALS:
  void Chosen();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void MakeCalendar();
  void Place();
  void Choose(QDate date);
  void Close();

  QWidget& screen_;
  const int control_id_;
  QCalendarWidget* calendar_ = nullptr;  // until it is opened
  QWidget* frame_;
  QPointer<QWidget> focus_before_;
  QDate date_;
  int anchor_bottom_ = 0;
};

}  // namespace brovanta

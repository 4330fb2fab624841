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
  /// Takes the calendar out of the screen's layout and sets it up: week from Sunday, pickable dates
  /// only, today selected. The screen owns this object.
  CalendarPopup(QCalendarWidget& calendar, QWidget& screen);

  /// Opens with the calendar below the anchor, as far as there is room.
  void Open(const QWidget& anchor);

  /// The chosen date. While the calendar is open it is the one from before, wherever the arrow keys
  /// have gone.
  [[nodiscard]] QDate date() const;
  /// Sets the chosen date without Chosen(); in an open calendar nothing moves.
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
  void Place();
  void Choose(QDate date);
  void Dismiss();
  void Close();

  QCalendarWidget& calendar_;
  QWidget& screen_;
  QWidget* frame_;
  QPointer<QWidget> focus_before_;
  QDate date_before_;
  int anchor_bottom_ = 0;
};

}  // namespace brovanta

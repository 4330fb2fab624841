// A date picker that may be empty.
#pragma once

#include <QDate>
#include <QWidget>

#include "util/date_stamp.h"

class QCheckBox;
class QDateEdit;

namespace brovanta {

/// A check box with a date picker beside it; without the check mark there is no date and the picker
/// says "none". Ticking the box, or pressing the empty picker, offers today or the date that was
/// there before.
class OptionalDateEdit : public QWidget {
  Q_OBJECT

 public:
  explicit OptionalDateEdit(QWidget* parent = nullptr);

  /// Shows the local day of a stamp of 1 or more; any other leaves the field empty.
  void ShowStamp(DateStamp stamp);

  /// 01:00 of the picked day, kNoDate when the field is empty.
  [[nodiscard]] DateStamp Stamp() const;

  /// What a screen reader calls the field ("Start date") and its box ("Has a start date").
  void SetName(const QString& name, const QString& check_name);

  [[nodiscard]] QCheckBox& check_box() const { return *check_box_; }
  [[nodiscard]] QDateEdit& date_edit() const { return *date_edit_; }

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void FitDate();
  void OnToggled(bool dated);

  QCheckBox* check_box_;
  QDateEdit* date_edit_;
  QDate date_;
};

}  // namespace brovanta

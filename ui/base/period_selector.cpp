#include "ui/base/period_selector.h"

#include <QAction>
#include <array>

#include "ui/base/calendar_popup.h"
#include "ui/base/color_button.h"

namespace brovanta {
namespace {

struct ViewMode {
  int command;
  int picture;
  const char* text;
};

constexpr std::array kViewModes{
    ViewMode{kDailyView, 136, QT_TRANSLATE_NOOP("brovanta::PeriodSelector", "Daily")},
    ViewMode{kWeeklyView, 137, QT_TRANSLATE_NOOP("brovanta::PeriodSelector", "Weekly")},
    ViewMode{kMonthlyView, 138, QT_TRANSLATE_NOOP("brovanta::PeriodSelector", "Monthly")}};
constexpr QSize kPictureSize{20, 20};
constexpr QSize kThirdPictureSize{32, 32};

}  // namespace

PeriodSelector::PeriodSelector(ColorButton& view_button, ColorButton& heading_button,
                               QWidget& screen, int calendar_id)
    : QObject(&screen),
      view_button_(view_button),
      heading_button_(heading_button),
      calendar_(new CalendarPopup(screen, calendar_id)) {
  view_menu_.setObjectName(QStringLiteral("viewMenu"));
  view_menu_.setAccessibleName(tr("View"));
  for (const ViewMode& mode : kViewModes) {
    QAction* action = view_menu_.addAction(tr(mode.text));
    action->setData(mode.command);
    action->setCheckable(true);
  }
  view_button.AttachMenu(&view_menu_, false);
  SetViewMode(kDailyView);
  connect(&view_menu_, &QMenu::triggered, this, [this](const QAction* action) {
    SetViewMode(action->data().toInt());
    UpdatePeriod();
    Q_EMIT PeriodChosen();
  });
  connect(&heading_button, &ColorButton::clicked, this,
          [this] { calendar_->Open(heading_button_); });
  connect(calendar_, &CalendarPopup::Chosen, this, [this] {
    UpdatePeriod();
    Q_EMIT PeriodChosen();
  });
}

void PeriodSelector::SetViewMode(int view_mode) {
  view_mode_ = view_mode;
  for (const ViewMode& mode : kViewModes) {
    if (mode.command != view_mode) continue;
    view_button_.SetPictures(mode.picture, kPictureSize, mode.picture, kPictureSize, 0,
                             kThirdPictureSize);
    const QString words = tr("View: %1").arg(tr(mode.text));
    view_button_.setAccessibleName(words);
    view_button_.setToolTip(words);
  }
  for (QAction* action : view_menu_.actions()) {
    action->setChecked(action->data().toInt() == view_mode);
  }
}

int PeriodSelector::UpdatePeriod() {
  const auto period = PeriodOf(calendar_->date(), view_mode_);
  if (!period) return -1;
  period_ = *period;
  heading_button_.setText(period_.heading);
  return 0;
}

QDate PeriodSelector::date() const { return calendar_->date(); }

void PeriodSelector::SetDate(QDate date) { calendar_->SetDate(date); }

}  // namespace brovanta

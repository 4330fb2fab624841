#include "ui/shell/main_dialog.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QStyle>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "ui/base/icons.h"
#include "ui/base/message_box.h"
#include "ui/base/modal_dialog.h"
#include "ui/base/narrow_form.h"
#include "ui/base/period_selector.h"
#include "ui/base/row_layout.h"
#include "ui/base/theme.h"
#include "ui/base/wide_text.h"
#include "ui/shell/day_watch.h"
#include "ui/shell/first_rows.h"
#include "ui/shell/list_filters.h"
#include "ui/shell/main_commands.h"
#include "ui/shell/tree_fillers.h"
#include "ui_102_main.h"

namespace brovanta {
namespace {

constexpr QSize kWindowSize{360, 640};
constexpr QSize kSmallestWindow{240, 280};
constexpr int kProgramIcon = 128;
constexpr int kLowestList = 96;  // two rows
constexpr int kLeastLines = 5;   // of large print in the list
constexpr int kTabSide = 8;      // the form's margin, which a narrow screen has no room for
constexpr int kLeastTabSide = 2;
constexpr int kUpdatePicture = 156;
constexpr QSize kUpdatePictureSize{20, 20};
constexpr QSize kThirdPictureSize{32, 32};
constexpr int kCalendarId = 1040;

}  // namespace

MainDialog::MainDialog(AppOptions& options, std::unique_ptr<ShoppingDatabase> database,
                       std::unique_ptr<SearchManager> searches, const std::string& data_folder,
                       QWidget* parent)
    : MainDialog(options, std::make_unique<FirstRows>(std::move(database), data_folder),
                 std::move(searches), data_folder, parent) {}

MainDialog::MainDialog(AppOptions& options, std::unique_ptr<FirstRows> first_rows,
                       std::unique_ptr<SearchManager> searches, const std::string& data_folder,
                       QWidget* parent)
    : QDialog(parent),
      state_{.options = options,
             .database = first_rows->TakeDatabase(),
             .searches = std::move(searches),
             .filter = {}},
      first_rows_(std::move(first_rows)),
      form_(std::make_unique<Ui::MainForm>()) {
  static_cast<void>(state_.searches->SetSearchFolder(data_folder));
  form_->setupUi(this);
  SetUpWindow();
  commands_ =
      std::make_unique<MainCommands>(*this, *form_->recordTree, state_,
                                     [this](bool reset_filters) { RefreshList(reset_filters); });
  OnCaretChanged();  // greys what needs a record
  form_->updateButton->SetPictures(kUpdatePicture, kUpdatePictureSize, kUpdatePicture,
                                   kUpdatePictureSize, 0, kThirdPictureSize);
  form_->updateButton->SetAlignment(ColorButton::kPictureRight, false);
  period_ =
      new PeriodSelector(*form_->viewModeButton, *form_->periodHeadingButton, *this, kCalendarId);
  filters_ = new ListFilters(*form_->storeFilterButton, *form_->categoryFilterButton, state_, this);
  day_watch_ = new DayWatch(*this);
  InsertTabs();
  Connect();
  AddShortcuts();
  UpdatePeriod();
  RefreshList(true);
  ScrollWhole(*this);
  form_->recordTree->parentWidget()->installEventFilter(this);
  form_->recordTree->setFocus();
}

MainDialog::~MainDialog() {
  disconnect(qApp, nullptr, this, nullptr);  // the focus still moves while the parts go
  DestroyWindow();
}

void MainDialog::SetUpWindow() {
  form_->headingFrame->SetLines(LinedFrame::Lines::kAround);
  form_->periodHeadingButton->SetAlignment(ColorButton::kPictureCentered, false);
  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint |
                 Qt::WindowCloseButtonHint);
  form_->tabBar->TakeTapsOf(*form_->tabStrip);
  connect(qApp, &QApplication::focusChanged, this, [this] { ShowFocus(*this); });
  setMinimumSize(kSmallestWindow);
  resize(kWindowSize);
  if (IsSmallScreen(screen())) setWindowState(Qt::WindowFullScreen);
}

void MainDialog::InsertTabs() {
  for (std::size_t i = 0; i < kListTabs.size(); ++i) {
    const int index = static_cast<int>(i);
    const QString name = tr(kListTabs[i].name);
    form_->tabBar->addTab(TabIcon(index), QString());
    form_->tabBar->setTabToolTip(index, name);
    form_->tabBar->setAccessibleTabName(index, name);
  }
}

void MainDialog::Connect() {
  // Only now: inserting the first tab sends a change of its own.
  connect(form_->tabBar, &QTabBar::currentChanged, this, &MainDialog::OnTabChanged);
  connect(period_, &PeriodSelector::PeriodChosen, this, [this] {
    UpdatePeriod();
    RefreshList(true);
  });
  connect(filters_, &ListFilters::Changed, this, &MainDialog::OnFilterChanged);
  connect(form_->recordTree, &RecordTree::CaretChanged, this, &MainDialog::OnCaretChanged);
  connect(form_->recordTree, &RecordTree::RecordChosen, this,
          [this] { commands_->Run(kMenuEdit); });
  connect(form_->commandBar, &CommandBar::CommandChosen, this,
          [this](int command) { commands_->Run(command); });
  connect(form_->updateButton, &ColorButton::clicked, this,
          [this] { commands_->Run(kMenuUpdate); });
  connect(day_watch_, &DayWatch::DayChanged, this, &MainDialog::OnDayChanged);
}

void MainDialog::AddShortcuts() {
  for (int index = 0; index < form_->tabBar->count(); ++index) {
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | (Qt::Key_1 + index)), this);
    connect(shortcut, &QShortcut::activated, this,
            [this, index] { form_->tabBar->setCurrentIndex(index); });
  }
  auto* quit = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this);
  connect(quit, &QShortcut::activated, this, &QWidget::close);
}

int MainDialog::view_mode() const { return period_->view_mode(); }

int MainDialog::UpdatePeriod() {
  const int code = period_->UpdatePeriod();
  if (code != 0) return code;
  state_.filter.period_start = period_->period().start;
  state_.filter.period_end = period_->period().end;
  return 0;
}

int MainDialog::RefreshList(bool reset_filters) {
  const int index = form_->tabBar->currentIndex();
  if (index < 0 || index >= static_cast<int>(kListTabs.size()) || !state_.database) return 0;
  if (reset_filters) filters_->Reset();
  const ListTab& tab = kListTabs[static_cast<std::size_t>(index)];
  state_.list_id = tab.list_id;
  form_->recordTree->setAccessibleName(form_->tabBar->accessibleTabName(index));
  state_.filter.kind = tab.record_kind;
  const int code = Fill();
  if (tab.list_id == kWebSearchesList) {
    filters_->Enable(false);
  } else if (reset_filters) {
    filters_->BuildStoreMenu();
    filters_->BuildCategoryMenu();
  }
  return code;
}

int MainDialog::ShowFirstRows() {
  const std::unique_ptr<FirstRows> rows = std::move(first_rows_);
  const int code = rows->Wait();
  const bool same_day = rows->query().from == state_.filter.period_start;
  if (!same_day) return FillProducts(*form_->recordTree, state_);  // midnight came in between
  if (code == 0) form_->recordTree->SetRows(rows->Take());
  return code;
}

int MainDialog::Fill() {
  int code = 0;
  switch (state_.list_id) {
    case kCouponsList:
      code = FillCoupons(*form_->recordTree, state_);
      break;
    case kWebSearchesList:
      code = FillWebSearches(*form_->recordTree, state_);
      break;
    default:
      code = first_rows_ ? ShowFirstRows() : FillProducts(*form_->recordTree, state_);
      break;
  }
  form_->recordTree->SetEmptyText(EmptyListWords(state_, view_mode(), code));
  form_->commandBar->ShowFindText(WideText(state_.filter.find_text.value_or(std::string())));
  OnCaretChanged();  // a rebuilt tree has no caret, and an empty one sends no signal
  return code;
}

void MainDialog::OnTabChanged() {
  const bool records = form_->tabBar->currentIndex() < 3;
  filters_->Enable(records);
  form_->commandBar->Enable(kToolFind, records);
  form_->commandBar->Enable(kMenuFind, records);
  RefreshList(true);
}

void MainDialog::OnFilterChanged(int command) {
  const int code = state_.list_id == kWebSearchesList ? -1 : Fill();
  if (code < 0) {
    ShowMessage(this, tr("There was an error while reading the database."));
    return;
  }
  filters_->ShowChoice(command);
}

void MainDialog::OnCaretChanged() {
  const bool record = form_->recordTree->CaretInfo().has_value();
  const bool product = record && state_.list_id == kProductsList;
  form_->commandBar->Enable(kToolEdit, record);
  form_->commandBar->Enable(kToolDelete, record);
  form_->commandBar->Enable(kMenuEdit, record);
  form_->commandBar->Enable(kMenuDelete, record);
  form_->commandBar->Enable(kToolPurchase, product);
  form_->commandBar->Enable(kMenuPurchase, product);
}

void MainDialog::OnDayChanged(QDate before) {
  const bool today_shown = period_->date() == before;
  if (today_shown) period_->SetDate(TodayDate());
  const DateStamp start = state_.filter.period_start;
  UpdatePeriod();
  // Another date is the same moments as before, unless it was the zone that changed.
  if (today_shown || state_.filter.period_start != start) {
    RefreshList(false);
  } else {
    form_->recordTree->viewport()->update();  // the rows count days from today
  }
}

void MainDialog::reject() {}

void MainDialog::done(int result) {
  QDialog::done(result);
  DestroyWindow();
}

void MainDialog::closeEvent(QCloseEvent* event) {
  event->accept();
  done(QDialog::Rejected);
}

void MainDialog::keyPressEvent(QKeyEvent* event) {
  if (EnterPressesFocusedButton(*this, *event)) return;
  // QDialog would press a default button on Enter and reject on Escape.
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
    event->accept();
    return;
  }
  QDialog::keyPressEvent(event);
}

bool MainDialog::event(QEvent* event) {
  if (event->type() == QEvent::ThemeChange) FollowDesktop();
  if (event->type() == QEvent::Paint && QApplication::windowIcon().isNull()) {
    // Drawn in every size for the window system, which can wait until the first picture stands.
    QTimer::singleShot(0, this, [] { QApplication::setWindowIcon(NumberedIcon(kProgramIcon)); });
  }
  return QDialog::event(event);
}

void MainDialog::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  ArrangeSelectors();
}

bool MainDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) ArrangeSelectors();
  return QDialog::eventFilter(watched, event);
}

/// How high period and filters get where they have so much room.
int MainDialog::SelectorHeight(int room) const {
  const QBoxLayout& selectors = *form_->selectorLayout;
  const QGridLayout& lines = *form_->periodLayout;
  const int buttons = std::max(form_->viewModeButton->sizeHint().height(),
                               form_->updateButton->sizeHint().height());
  const int heading = form_->headingFrame->sizeHint().height();
  const int wanted = WidthInARow(lines);
  const int period =
      wanted <= room ? std::max(buttons, heading) : buttons + lines.verticalSpacing() + heading;
  const FilterPlan filters = PlanFilters(*form_->filterLayout, room);
  const QMargins around = selectors.contentsMargins();
  return around.top() + around.bottom() +
         (ShareALine(wanted + filters.wanted, room) ? std::max(period, filters.height)
                                                    : period + filters.height);
}

/// On a wide and low screen period and filters share one line, so that the list gets the height.
bool MainDialog::ShareALine(int wanted, int room) const {
  return wanted <= room && height() < width();
}

int MainDialog::RoomForSelectors() const {
  // Reckoned for what they would be in the whole width: the bar would change that.
  const int rest = form_->recordTree->parentWidget()->minimumSizeHint().height() -
                   form_->selectorLayout->minimumSize().height();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  return rest + SelectorHeight(width()) > height() ? width() - bar : width();
}

void MainDialog::ArrangeSelectors() {
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  form_->recordTree->setMinimumHeight(form_->recordTree->LeastHeight(
      std::max(kLowestList, kLeastLines * fontMetrics().height()), width() - bar));
  const int room = RoomForSelectors();
  const int tabs = form_->tabBar->sizeHint().width();
  SetSides(*form_->tabLayout, tabs + 2 * kTabSide <= room ? kTabSide : kLeastTabSide);

  const int period = WidthInARow(*form_->periodLayout);
  PlaceHeading(period <= room);
  const int filters = ArrangeFilters(*form_->filterLayout, room);
  SetInARow(*form_->selectorLayout, ShareALine(period + filters, room));
}

void MainDialog::PlaceHeading(bool between_the_buttons) {
  QGridLayout& grid = *form_->periodLayout;
  if ((grid.itemAtPosition(0, 1) != nullptr) == between_the_buttons) return;
  grid.removeWidget(form_->headingFrame);
  if (between_the_buttons) {
    grid.addWidget(form_->headingFrame, 0, 1);
  } else {
    grid.addWidget(form_->headingFrame, 1, 0, 1, 3);
  }
  // Tab follows the eye.
  QWidget* second = form_->periodHeadingButton;
  QWidget* third = form_->updateButton;
  if (!between_the_buttons) std::swap(second, third);
  setTabOrder(form_->viewModeButton, second);
  setTabOrder(second, third);
  setTabOrder(third, form_->storeFilterButton);
}

void MainDialog::DestroyWindow() {
  if (day_watch_ != nullptr) day_watch_->Stop();
  EndDialogsOf(*this);  // before what they work on goes
  state_.database.reset();
  state_.searches.reset();
}

}  // namespace brovanta

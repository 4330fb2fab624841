#include "ui/shell/update_dialog.h"

#include <QCoreApplication>
#include <array>
#include <utility>

#include "ui/base/icons.h"
#include "ui/base/narrow_form.h"
#include "ui/base/theme.h"
#include "ui_145_update.h"

namespace brovanta {
namespace {

constexpr int kPicture = 156;
constexpr QSize kPictureSize{32, 32};
constexpr int kWindowWidth = 360;

// What the update says of itself, for the translations: it knows nothing of languages.
[[maybe_unused]] constexpr std::array kSentences{
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Initializing update...."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Aborting update...."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Updating search agents..."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Updating search agents: done."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Failed to download search agents."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Failed to update search agents."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Updating stores..."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Updating stores: done."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Failed to update stores."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Updating categories..."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Updating categories: done."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Failed to update categories."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Updating coupons..."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Updating coupons: done."),
    QT_TRANSLATE_NOOP("brovanta::UpdateDialog", "Failed to update coupons.")};

}  // namespace

UpdateDialog::UpdateDialog(ShoppingDatabase& database, UpdateJob job, QWidget* parent)
    : ModalDialog(parent), form_(std::make_unique<Ui::UpdateForm>()) {
  form_->setupUi(this);
  ShowPicture(NumberedIcon(kPicture));
  form_->progressBar->setRange(0, kUpdateSteps);
  form_->okButton->setEnabled(false);
  form_->cancelButton->setEnabled(false);
  connect(form_->okButton, &QPushButton::clicked, this, [this] { done(kCancelled); });
  connect(form_->cancelButton, &QPushButton::clicked, this, &UpdateDialog::Cancel);
  close_timer_.setSingleShot(true);
  close_timer_.setTimerType(Qt::PreciseTimer);
  close_timer_.setInterval(kUpdateCloseDelay);
  close_timer_.callOnTimeout(
      this, [this] { done(worker_->view().result == 0 ? kCompleted : kCancelled); });
  // Queued: the update's thread must never wait for the screen.
  worker_ =
      std::make_unique<UpdateWorker>(database, std::move(job), [this](const UpdateView& view) {
        QMetaObject::invokeMethod(
            this, [this, view] { Show(view); }, Qt::QueuedConnection);
      });
  resize(kWindowWidth, minimumSizeHint().height());
}

UpdateDialog::~UpdateDialog() {
  close_timer_.stop();
  worker_->Leave();
}

void UpdateDialog::showEvent(QShowEvent* event) {
  ModalDialog::showEvent(event);
  if (std::exchange(started_, true)) return;
  worker_->Start();
  ShowWhatIsQueued();
}

void UpdateDialog::reject() {
  if (form_->cancelButton->isEnabled()) Cancel();
}

void UpdateDialog::done(int result) {
  closed_ = true;
  close_timer_.stop();
  worker_result_ = worker_->Leave();
  ModalDialog::done(result);
}

void UpdateDialog::Cancel() {
  worker_->Cancel();
  ShowWhatIsQueued();
}

void UpdateDialog::ShowPicture(const QIcon& picture) {
  ShowIcon(*form_->iconLabel, picture, kPictureSize);
}

void UpdateDialog::ShowWhatIsQueued() {
  QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void UpdateDialog::Show(const UpdateView& view) {
  if (closed_) return;
  form_->statusLabel->setText(tr(view.text.c_str()));
  FitLabels(*this);
  form_->progressBar->setValue(view.steps_finished);
  form_->okButton->setEnabled(view.ok_enabled);
  form_->cancelButton->setEnabled(view.cancel_enabled);
  if (view.ok_enabled) {
    ShowPicture(NamedIcon(QStringLiteral("warning"), theme::kWarm));
    form_->iconLabel->setAccessibleName(tr("Warning"));
    form_->okButton->setFocus();
  }
  if (view.closes) close_timer_.start();
}

}  // namespace brovanta

// The online update: what it is doing, and how to stop it.
#pragma once

#include <QTimer>
#include <cstdint>
#include <memory>

#include "net/update/update_worker.h"
#include "ui/base/modal_dialog.h"

namespace Ui {
class UpdateForm;
}

namespace brovanta {

/// Runs one update from its first appearance on. Ends by itself with kCompleted shortly after the
/// last step, with kCancelled after an abort, and with kCancelled by "OK" after a failure. What
/// the steps before an abort or a failure brought stays. Escape and the close box are "Cancel"
/// while that is enabled, and nothing otherwise.
class UpdateDialog : public ModalDialog {
  Q_OBJECT

 public:
  /// The database is borrowed: nobody else may use it while the dialog is open.
  UpdateDialog(ShoppingDatabase& database, UpdateJob job, QWidget* parent);
  ~UpdateDialog() override;

  void reject() override;

  /// Also ends an update that is still running: stops it and waits for it, at most half a second.
  /// One that does not stop in time is left behind without the database and the dialog.
  void done(int result) override;

  /// What the update ended with once the dialog is closed: 0, a code, or kUpdateLeftBehind.
  [[nodiscard]] std::int32_t worker_result() const { return worker_result_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Cancel();
  void Show(const UpdateView& view);
  void ShowWhatIsQueued();
  void ShowPicture(const QIcon& picture);

  std::unique_ptr<Ui::UpdateForm> form_;
  QTimer close_timer_;
  bool started_ = false;
  bool closed_ = false;
  std::int32_t worker_result_ = kUpdateLeftBehind;
  std::unique_ptr<UpdateWorker> worker_;
};

}  // namespace brovanta

#include "app/backup_at_start.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <utility>

namespace brovanta {

BackupAtStart::BackupAtStart(const std::string& data_folder, QWidget& window)
    : backup_(data_folder.empty() ? "." : data_folder) {
  window.installEventFilter(this);
}

BackupAtStart::~BackupAtStart() = default;  // the thread is asked to stop and waited for

bool BackupAtStart::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Paint && !painted_) {
    painted_ = true;
    watched->removeEventFilter(this);
    // Not before this paint has reached the screen.
    QTimer::singleShot(0, this, [this] { Begin(); });
  }
  return false;
}

void BackupAtStart::Begin() {
  std::optional<DataSnapshot> snapshot = backup_.Read();
  if (!snapshot) return;
  writer_ = std::jthread([this, data = *std::move(snapshot)](const std::stop_token& stop) {
    // Without a copy the program goes on as before; brovanta-data tells which copies there are.
    static_cast<void>(backup_.Keep(data, stop));
  });
}

}  // namespace brovanta

#include "app/backup_at_start.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <system_error>
#include <utility>

namespace brovanta {

BackupAtStart::BackupAtStart(const std::string& data_folder, QWidget& window)
    : BackupAtStart(data_folder, window, [](Work work) { return std::jthread(std::move(work)); }) {}

BackupAtStart::BackupAtStart(const std::string& data_folder, QWidget& window, StartThread start)
    : backup_(data_folder.empty() ? "." : data_folder), start_(std::move(start)) {
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
  // Without a copy the program goes on as before; brovanta-data tells which copies there are.
  try {
    writer_ = start_([this, data = *std::move(snapshot)](const std::stop_token& stop) {
      static_cast<void>(backup_.Keep(data, stop));
    });
  } catch (const std::system_error&) {
    return;  // no thread can be had just now
  }
}

}  // namespace brovanta

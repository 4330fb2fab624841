// Keeps the daily copy of the data without anybody noticing.
#pragma once

#include <QObject>
#include <optional>
#include <string>
#include <thread>

#include "data/daily_backup.h"

class QWidget;

namespace brovanta {

/// Waits until the window has been painted for the first time, then reads the data files on the
/// user-interface thread, between two events: no save can be under way, and none can begin before
/// the files are closed again. What was read is written on a thread of its own, which touches no
/// data file. When this ends first, the thread stops at the next file and nothing of the copy is
/// left. Once, for one window.
class BackupAtStart : public QObject {
 public:
  /// `data_folder` is a native path, "" the working folder. `window` outlives this.
  BackupAtStart(const std::string& data_folder, QWidget& window);
  ~BackupAtStart() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Begin();

  DailyBackup backup_;
  bool painted_ = false;
  std::jthread writer_;
};

}  // namespace brovanta

// Keeps the daily copy of the data without anybody noticing.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <stop_token>
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
  using Work = std::function<void(const std::stop_token&)>;
  /// Starts the work on a thread of its own; throws std::system_error when none can be had.
  using StartThread = std::function<std::jthread(Work)>;

  /// `data_folder` is a native path, "" the working folder. `window` outlives this.
  BackupAtStart(const std::string& data_folder, QWidget& window);
  /// With another way to start threads.
  BackupAtStart(const std::string& data_folder, QWidget& window, StartThread start);
  ~BackupAtStart() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Begin();

  DailyBackup backup_;
  StartThread start_;
  bool painted_ = false;
  std::jthread writer_;
};

}  // namespace brovanta

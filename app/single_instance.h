// One running program per data folder: two would overwrite each other's name lists.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "platform/folder.h"
#include "platform/local_socket.h"

class QSocketNotifier;

namespace brovanta {

/// The first holds a lock on the data folder, which ends with its process however that ends, and
/// listens on a local socket. Whoever comes later asks it to show its window.
class SingleInstance {
 public:
  enum class Outcome {
    kFirst,   ///< this process has the data folder to itself
    kRaised,  ///< another one has it and has shown its window
    kSilent,  ///< another one has it and does not answer
  };

  /// `data_folder` is a native path, "" the working folder. `lock` is the folder's, where the
  /// caller could take it already.
  explicit SingleInstance(const std::string& data_folder, platform::FolderLock lock = {});
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;
  ~SingleInstance();

  /// Becomes the first or finds the first. Waits no longer than `patience` milliseconds for it. A
  /// folder that cannot be locked (none there) is free unless somebody listens under its name.
  [[nodiscard]] Outcome Claim(int patience);

  /// Called in the event loop of the first whenever another start asks for the window.
  void SetRaiseHandler(std::function<void()> handler) { raise_handler_ = std::move(handler); }

  [[nodiscard]] const QString& socket_path() const { return socket_path_; }

 private:
  class Asker;
  enum class Answer { kRaised, kNobodyThere, kNone };

  [[nodiscard]] bool Lock();
  void Listen();
  void AcceptAskers();
  [[nodiscard]] Answer AskForWindow(int patience) const;

  std::string folder_;
  QString socket_path_;
  platform::FolderLock lock_;
  platform::LocalSocket listener_;
  std::unique_ptr<QSocketNotifier> connected_;  // the askers' parent
  std::function<void()> raise_handler_;
};

}  // namespace brovanta

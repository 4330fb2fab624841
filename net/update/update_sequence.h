// The update itself: agents, stores, categories, coupons, one after the other.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

#include "db/shopping_database.h"
#include "net/update/update_requests.h"

namespace brovanta {

/// Steps of an update, for a progress bar.
inline constexpr int kUpdateSteps = 4;

/// Results of an update besides 0, the codes of a download and those of the database.
inline constexpr std::int32_t kUpdateFailed = -1;      ///< no agents, or ids that make no request
inline constexpr std::int32_t kUpdateLeftBehind = -2;  ///< nobody waits for it any more

/// What to update from where.
struct UpdateJob {
  UpdateServer server;
  std::string configuration_path;           ///< of "webspider.xml", documented path
  std::string scratch_path = "update.dat";  ///< overwritten at each step, never deleted

  /// Fetches an address into a file, as DownloadUrlToFile does. Tests put another one here.
  using Download = std::function<std::int32_t(const std::string& url, const std::string& path,
                                              const std::atomic<std::int32_t>& cancel_flag)>;
  Download download = DownloadFromServer;

  /// DownloadUrlToFile.
  static std::int32_t DownloadFromServer(const std::string& url, const std::string& path,
                                         const std::atomic<std::int32_t>& cancel_flag);
};

/// Who runs an update. Every operation is called on the update's thread.
class UpdateHost {
 public:
  UpdateHost() = default;
  UpdateHost(const UpdateHost&) = delete;
  UpdateHost& operator=(const UpdateHost&) = delete;
  virtual ~UpdateHost() = default;

  /// Replaces the status line.
  virtual void Show(const std::string& text) = 0;

  /// One more of the steps is done.
  virtual void FinishStep() = 0;

  /// Runs `work` on the database, alone; that is also when other data files may be changed. False,
  /// without running it, when the update may not touch them any more.
  [[nodiscard]] virtual bool WithDatabase(
      const std::function<void(ShoppingDatabase& database)>& work) = 0;

  [[nodiscard]] virtual const std::atomic<std::int32_t>& cancel_flag() const = 0;
};

/// Runs the four steps. A step that fails ends the update; what the steps before it brought stays.
/// The last line shown says what happened, except after HTTP_ERR_CANCELLED and kUpdateLeftBehind,
/// which say nothing. 0 or the code of what failed. A configuration is taken only when it loads and
/// holds at least one agent; a list is kept in memory only when its file could be written.
[[nodiscard]] std::int32_t RunUpdate(const UpdateJob& job, UpdateHost& host);

}  // namespace brovanta

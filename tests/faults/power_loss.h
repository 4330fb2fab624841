// What a storage device may hold when the power goes: everything that was synced, and of the rest
// any part.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "platform/system_calls.h"
#include "tests/faults/scenario.h"

namespace brovanta::test {

/// One change that a program asked for, or a sync.
struct DiskEvent {
  enum class Kind { kMake, kWrite, kTruncate, kSyncFile, kSyncFolder, kRename, kRemove };
  Kind kind = Kind::kWrite;
  int file = 0;             // of kMake, kWrite, kTruncate, kSyncFile
  std::string name;         // of kMake, kRename, kRemove; the folder of kSyncFolder
  std::string new_name;     // of kRename
  std::int64_t offset = 0;  // of kWrite; the size of kTruncate
  Bytes bytes;
};

/// Carries the calls out and writes down what reaches the disk, names relative to a folder. Files
/// are numbered: first those that are there, in the order of their names, then the new ones.
class RecordingCalls : public platform::SystemCalls {
 public:
  explicit RecordingCalls(std::string folder);

  /// Only so many more calls that change or sync something, or open a file, are carried out: then
  /// the program is as good as killed, until Resurrect.
  void DieAtCall(int call) { lives_ = call; }
  /// Another program begins. Whether the one before had died.
  bool Resurrect() {
    const bool had_died = is_dead_;
    is_dead_ = false;
    lives_ = 0;
    return had_died;
  }

  [[nodiscard]] const std::vector<DiskEvent>& events() const { return events_; }
  [[nodiscard]] const std::map<std::string, int>& first_names() const { return first_names_; }

  int Open(const char* path, int flags, mode_t mode) override;
  int MakeTemporary(char* pattern) override;
  int Close(int descriptor) override;
  ssize_t WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset) override;
  int Truncate(int descriptor, off_t size) override;
  int Sync(int descriptor) override;
  int Rename(const char* from, const char* to) override;
  int Remove(const char* path) override;

 private:
  bool IsDead();
  [[nodiscard]] std::string Relative(const std::string& path) const;
  void Made(const std::string& name, int descriptor);

  std::string folder_;
  std::map<std::string, int> names_;
  std::map<std::string, int> first_names_;
  std::map<int, int> files_by_descriptor_;
  std::map<int, std::string> folders_by_descriptor_;
  int next_file_ = 0;
  int lives_ = 0;  // 0: no end of them
  bool is_dead_ = false;
  std::vector<DiskEvent> events_;
};

/// Which part of what was not synced is on the disk.
enum class Survivors {
  kAll,        ///< as when only the program ends
  kNone,       ///< nothing but what was synced
  kNamesOnly,  ///< files were made, renamed and removed; their bytes are missing
  kBytesOnly,
  kSizesOnly,  ///< files have grown; behind their old ends stands what the device held there before
  kNoTails,    ///< the same, and the bytes in front of their old ends are there
  kSome,       ///< any sectors of the writes, any of the sizes; names up to any one
};

inline constexpr std::array kWholeSurvivors{Survivors::kAll,       Survivors::kNone,
                                            Survivors::kNamesOnly, Survivors::kBytesOnly,
                                            Survivors::kSizesOnly, Survivors::kNoTails};

/// The files on the disk after the first `count` events.
[[nodiscard]] Snapshot DiskAfter(const Snapshot& before, const RecordingCalls& recording,
                                 std::size_t count, Survivors survivors, std::mt19937& random);

}  // namespace brovanta::test

// What stands in a file at the moment when it is cut.
#pragma once

#include <string>
#include <utility>

#include "platform/system_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// Reads the file whenever a file is cut to this size, and counts the syncs. The folder is
/// borrowed.
class TruncationWatch : public platform::SystemCalls {
 public:
  TruncationWatch(const TempFolder& folder, std::string name, off_t size)
      : folder_(folder), name_(std::move(name)), size_(size) {}

  int Truncate(int descriptor, off_t size) override {
    if (size == size_) {
      cut = folder_.Read(name_).value_or(Bytes());
      synced = last_synced_;
    }
    return SystemCalls::Truncate(descriptor, size);
  }
  int Sync(int descriptor) override {
    ++syncs;
    last_synced_ = folder_.Read(name_).value_or(Bytes());
    return SystemCalls::Sync(descriptor);
  }

  Bytes cut;     ///< before the last such cut
  Bytes synced;  ///< at the last sync before it: what the device is sure to have
  int syncs = 0;

 private:
  const TempFolder& folder_;
  std::string name_;
  off_t size_;
  Bytes last_synced_;
};

}  // namespace brovanta::test

// A download that does not notice when it is cancelled.
#pragma once

#include <atomic>
#include <cstdint>
#include <latch>
#include <string>
#include <utility>

#include "net/http/http_codes.h"
#include "net/update/update_sequence.h"

namespace brovanta::test {

/// Waits until it is let go, whatever the flag says; then HTTP_ERR_CANCELLED, or what `inner` does.
class StuckDownload {
 public:
  [[nodiscard]] UpdateJob::Download download(UpdateJob::Download inner = {}) {
    return [this, inner = std::move(inner)](const std::string& url, const std::string& path,
                                            const std::atomic<std::int32_t>& flag) {
      started_.count_down();
      released_.wait();
      return inner ? inner(url, path, flag) : HTTP_ERR_CANCELLED;
    };
  }
  void AwaitStart() const { started_.wait(); }
  void Release() { released_.count_down(); }

 private:
  std::latch started_{1};
  std::latch released_{1};
};

}  // namespace brovanta::test

// A disk that is full from a given file size on.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstdint>

namespace brovanta::test {

/// While it lives, no file of this process can be written beyond `bytes`: writing across the limit
/// stops there, writing behind it fails.
class WriteLimit {
 public:
  explicit WriteLimit(std::int64_t bytes) {
    previous_handler_ = std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &previous_);
    rlimit limited = previous_;
    limited.rlim_cur = static_cast<rlim_t>(bytes);
    setrlimit(RLIMIT_FSIZE, &limited);
  }
  WriteLimit(const WriteLimit&) = delete;
  WriteLimit& operator=(const WriteLimit&) = delete;
  ~WriteLimit() {
    setrlimit(RLIMIT_FSIZE, &previous_);
    std::signal(SIGXFSZ, previous_handler_);
  }

 private:
  rlimit previous_{};
  void (*previous_handler_)(int) = nullptr;
};

}  // namespace brovanta::test

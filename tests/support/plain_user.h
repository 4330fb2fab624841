// File permissions that count, for a test run by the superuser too.
#pragma once

#include <unistd.h>

namespace brovanta::test {

/// While it lives, the process has no more rights than an ordinary user.
class PlainUser {
 public:
  PlainUser() {
    if (was_root_ && seteuid(kNobody) != 0) failed_ = true;
  }
  PlainUser(const PlainUser&) = delete;
  PlainUser& operator=(const PlainUser&) = delete;
  ~PlainUser() {
    if (was_root_ && !failed_ && seteuid(0) != 0) _exit(1);
  }

  /// Whether permissions are obeyed now.
  [[nodiscard]] bool active() const { return !failed_; }

 private:
  static constexpr uid_t kNobody = 65534;

  bool was_root_ = geteuid() == 0;
  bool failed_ = false;
};

}  // namespace brovanta::test

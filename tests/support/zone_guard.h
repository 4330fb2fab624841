// A time zone for the length of a test.
#pragma once

#include <optional>
#include <string>

namespace brovanta::test {

/// Sets TZ (for example "Europe/London") and brings the old value back at the end.
class ZoneGuard {
 public:
  explicit ZoneGuard(const char* zone);
  ZoneGuard(const ZoneGuard&) = delete;
  ZoneGuard& operator=(const ZoneGuard&) = delete;
  ~ZoneGuard();

 private:
  std::optional<std::string> previous_;
};

}  // namespace brovanta::test

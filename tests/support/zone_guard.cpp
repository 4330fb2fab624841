#include "tests/support/zone_guard.h"

#include <cstdlib>
#include <ctime>

namespace brovanta::test {

ZoneGuard::ZoneGuard(const char* zone) {
  if (const char* old = std::getenv("TZ")) previous_ = old;
  setenv("TZ", zone, 1);
  tzset();
}

ZoneGuard::~ZoneGuard() {
  if (previous_) {
    setenv("TZ", previous_->c_str(), 1);
  } else {
    unsetenv("TZ");
  }
  tzset();
}

}  // namespace brovanta::test

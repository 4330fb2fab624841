#include "ui/base/warm_up.h"

#include <fontconfig/fontconfig.h>

#include "util/local_zone.h"

namespace brovanta {

WarmUp::WarmUp()
    : done_(std::async(std::launch::async | std::launch::deferred, [] {
              FcInit();
              static_cast<void>(LocalZone::Current());
            }).share()) {}

WarmUp::~WarmUp() { Wait(); }

void WarmUp::Wait() const { done_.wait(); }

}  // namespace brovanta

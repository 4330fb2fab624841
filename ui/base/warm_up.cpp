#include "ui/base/warm_up.h"

#include <fontconfig/fontconfig.h>

#include "util/local_zone.h"
#include "util/thread_priority.h"

namespace brovanta {

WarmUp::WarmUp()
    : done_(std::async(std::launch::async | std::launch::deferred, [] {
        StepBehindOtherThreads();
        FcInit();
        static_cast<void>(LocalZone::Current());
      })) {}

WarmUp::~WarmUp() { Wait(); }

void WarmUp::Wait() const { done_.wait(); }

}  // namespace brovanta

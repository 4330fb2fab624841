#include "util/thread_priority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace brovanta {

void StepBehindOtherThreads() {
  constexpr int kNiceness = 5;
  const pid_t thread = gettid();
  if (thread == getpid()) return;
  // A thread has a niceness of its own here, whatever the standard says about processes.
  static_cast<void>(setpriority(PRIO_PROCESS, static_cast<id_t>(thread), kNiceness));
}

}  // namespace brovanta

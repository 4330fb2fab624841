#include "util/thread_priority.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <thread>

namespace brovanta {
namespace {

int OwnNiceness() { return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid())); }

TEST(ThreadPriorityTest, AThreadStepsBehindTheOneThatStartedIt) {
  const int before = OwnNiceness();
  int inside = before;
  std::thread([&inside] {
    StepBehindOtherThreads();
    inside = OwnNiceness();
  }).join();
  EXPECT_GT(inside, before);
  EXPECT_EQ(OwnNiceness(), before);
}

TEST(ThreadPriorityTest, TheMainThreadStays) {
  const int before = OwnNiceness();
  StepBehindOtherThreads();
  EXPECT_EQ(OwnNiceness(), before);
}

}  // namespace
}  // namespace brovanta

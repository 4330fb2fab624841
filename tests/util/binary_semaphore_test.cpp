#include "util/binary_semaphore.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

namespace brovanta {
namespace {

TEST(BinarySemaphoreTest, StartsWithOneUnit) {
  BinarySemaphore semaphore;
  EXPECT_EQ(semaphore.Wait(0), 0);
  EXPECT_EQ(semaphore.Wait(0), -1);
}

TEST(BinarySemaphoreTest, ReleaseAtTheMaximumIsRefused) {
  BinarySemaphore semaphore;
  EXPECT_EQ(semaphore.Release(), -1);
  ASSERT_EQ(semaphore.Wait(BinarySemaphore::kInfinite), 0);
  EXPECT_EQ(semaphore.Release(), 0);
  EXPECT_EQ(semaphore.Release(), -1);
  // The refused releases added nothing.
  EXPECT_EQ(semaphore.Wait(0), 0);
  EXPECT_EQ(semaphore.Wait(0), -1);
}

TEST(BinarySemaphoreTest, AFiniteWaitRunsOut) {
  BinarySemaphore semaphore;
  ASSERT_EQ(semaphore.Wait(0), 0);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(semaphore.Wait(20), -1);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
}

TEST(BinarySemaphoreTest, AnotherThreadMayRelease) {
  BinarySemaphore semaphore;
  ASSERT_EQ(semaphore.Wait(0), 0);
  int released = -1;
  std::thread([&] { released = semaphore.Release(); }).join();
  EXPECT_EQ(released, 0);
  EXPECT_EQ(semaphore.Wait(0), 0);
}

TEST(BinarySemaphoreTest, AnInfiniteWaitEndsWithTheRelease) {
  BinarySemaphore semaphore;
  ASSERT_EQ(semaphore.Wait(0), 0);
  auto waiter =
      std::async(std::launch::async, [&] { return semaphore.Wait(BinarySemaphore::kInfinite); });
  EXPECT_EQ(semaphore.Release(), 0);
  EXPECT_EQ(waiter.get(), 0);
  EXPECT_EQ(semaphore.Wait(0), -1);
}

TEST(BinarySemaphoreTest, AFiniteWaitEndsWithTheRelease) {
  BinarySemaphore semaphore;
  ASSERT_EQ(semaphore.Wait(0), 0);
  auto waiter = std::async(std::launch::async, [&] { return semaphore.Wait(60000); });
  EXPECT_EQ(semaphore.Release(), 0);
  EXPECT_EQ(waiter.get(), 0);
}

TEST(BinarySemaphoreTest, OnlyOneThreadIsInsideAtATime) {
  BinarySemaphore semaphore;
  std::atomic<int> failures = 0;
  int inside = 0;  // guarded by the semaphore alone
  int total = 0;
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 500; ++round) {
        if (semaphore.Wait(BinarySemaphore::kInfinite) != 0) ++failures;
        if (++inside != 1) ++failures;
        ++total;
        --inside;
        if (semaphore.Release() != 0) ++failures;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(total, 2000);
}

}  // namespace
}  // namespace brovanta

#include "net/update/database_gate.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <thread>

namespace brovanta {
namespace {

TEST(DatabaseGateTest, LetsWorkThroughUntilItIsClosed) {
  ShoppingDatabase database;
  DatabaseGate gate(database);
  const ShoppingDatabase* seen = nullptr;
  const auto look = [&](ShoppingDatabase& given) { seen = &given; };
  EXPECT_TRUE(gate.Run(look));
  EXPECT_EQ(seen, &database);
  seen = nullptr;
  gate.Close();
  EXPECT_FALSE(gate.Run(look));
  EXPECT_EQ(seen, nullptr);
  gate.Close();
}

TEST(DatabaseGateTest, ClosingWaitsForTheWorkThatIsUnderWay) {
  ShoppingDatabase database;
  DatabaseGate gate(database);
  std::latch inside(1);
  std::atomic<bool> closing{false};
  std::atomic<bool> finished{false};
  std::thread worker([&] {
    EXPECT_TRUE(gate.Run([&](ShoppingDatabase&) {
      inside.count_down();
      while (!closing) std::this_thread::yield();
      for (int i = 0; i < 1000; ++i) std::this_thread::yield();
      finished = true;
    }));
  });
  inside.wait();
  closing = true;
  gate.Close();
  EXPECT_TRUE(finished);
  EXPECT_FALSE(gate.Run([](ShoppingDatabase&) { FAIL(); }));
  worker.join();
}

}  // namespace
}  // namespace brovanta

#include "util/console.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace brovanta {
namespace {

TEST(ConsoleTest, ReportsArriveAsTheyAre) {
  testing::internal::CaptureStdout();
  EXPECT_TRUE(Print("two\nlines"));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "two\nlines");
}

TEST(ConsoleTest, ComplaintsAreLinesOfStandardError) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Complain("brovanta-agent: no such file");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "brovanta-agent: no such file\n");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(ConsoleTest, AReportThatDoesNotArriveIsNoticed) {
  const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
  if (full < 0) GTEST_SKIP() << "the system has no /dev/full";
  static_cast<void>(std::fflush(stdout));
  const int kept = dup(STDOUT_FILENO);
  ASSERT_GE(kept, 0);
  ASSERT_GE(dup2(full, STDOUT_FILENO), 0);
  const bool printed = Print("a report");
  // What could not be written is dropped with the buffer, not printed later.
  std::clearerr(stdout);
  ASSERT_GE(dup2(kept, STDOUT_FILENO), 0);
  close(kept);
  close(full);
  EXPECT_FALSE(printed);
}

}  // namespace
}  // namespace brovanta

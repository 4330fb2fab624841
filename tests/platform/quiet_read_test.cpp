#include "platform/quiet_read.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "platform/file.h"
#include "platform/text_file.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta::platform {
namespace {

namespace fs = std::filesystem;

TEST(ReadQuietlyTest, ReadsEveryByteOfADocumentedPath) {
  const test::TempFolder folder;
  folder.Write("file", test::Hex("00 01 ff 00"));
  std::string bytes;
  EXPECT_EQ(ReadQuietly(folder.path() + "\\file", bytes), QuietResult::kRead);
  EXPECT_EQ(bytes, std::string("\x00\x01\xff\x00", 4));
  folder.WriteText("file", "");
  EXPECT_EQ(ReadQuietly(folder.File("file"), bytes), QuietResult::kRead);
  EXPECT_EQ(bytes, "");
}

TEST(ReadQuietlyTest, TellsWhyThereIsNothing) {
  const test::TempFolder folder;
  folder.WriteText("file", "x");
  std::string bytes = "before";
  EXPECT_EQ(ReadQuietly(folder.File("missing"), bytes), QuietResult::kMissing);
  EXPECT_EQ(bytes, "");
  EXPECT_EQ(ReadQuietly(folder.File("file/below"), bytes), QuietResult::kMissing);
  EXPECT_EQ(ReadQuietly(folder.path(), bytes), QuietResult::kRefused);
  fs::resize_file(folder.File("file"), static_cast<std::uintmax_t>(kLargestWholeFile) + 1);
  EXPECT_EQ(ReadQuietly(folder.File("file"), bytes), QuietResult::kTooLarge);
}

TEST(ReadQuietlyTest, AHeldFileIsNotRead) {
  const test::TempFolder folder;
  folder.WriteText("file", "x");
  File holder;
  ASSERT_TRUE(holder.Open(folder.File("file"), File::Mode::kRead));
  std::string bytes;
  EXPECT_EQ(ReadQuietly(folder.File("file"), bytes), QuietResult::kHeld);
  holder.Close();
  EXPECT_EQ(ReadQuietly(folder.File("file"), bytes), QuietResult::kRead);
}

/// Someone opens the file for himself while it is read, as a save would.
class OpeningCalls : public SystemCalls {
 public:
  explicit OpeningCalls(std::string path) : path_(std::move(path)) {}
  ssize_t ReadAt(int descriptor, void* buffer, std::size_t size, off_t offset) override {
    if (!opened_) {
      opened_ = true;
      File file;
      could_open_ = file.Open(path_, File::Mode::kReadWrite);
    }
    return SystemCalls::ReadAt(descriptor, buffer, size, offset);
  }
  [[nodiscard]] bool could_open() const { return could_open_; }

 private:
  std::string path_;
  bool opened_ = false;
  bool could_open_ = false;
};

TEST(ReadQuietlyTest, NobodyIsKeptFromTheFileWhileItIsRead) {
  const test::TempFolder folder;
  folder.WriteText("file", "x");
  OpeningCalls calls(folder.File("file"));
  const SystemCallsInUse in_use(calls);
  std::string bytes;
  EXPECT_EQ(ReadQuietly(folder.File("file"), bytes), QuietResult::kRead);
  EXPECT_TRUE(calls.could_open());
}

/// Writes into the file behind the back of whoever reads it.
class WritingCalls : public SystemCalls {
 public:
  WritingCalls(std::string path, int times) : path_(std::move(path)), times_(times) {}
  ssize_t ReadAt(int descriptor, void* buffer, std::size_t size, off_t offset) override {
    const ssize_t count = SystemCalls::ReadAt(descriptor, buffer, size, offset);
    if (times_-- > 0) std::ofstream(path_, std::ios::app) << "more";
    return count;
  }

 private:
  std::string path_;
  int times_;
};

TEST(ReadQuietlyTest, WhatChangedMeanwhileIsReadAnew) {
  const test::TempFolder folder;
  folder.WriteText("file", "old");
  WritingCalls calls(folder.File("file"), 2);
  const SystemCallsInUse in_use(calls);
  std::string bytes;
  EXPECT_EQ(ReadQuietly(folder.File("file"), bytes), QuietResult::kRead);
  EXPECT_EQ(bytes, "oldmoremore");
}

TEST(ReadQuietlyTest, WhatNeverStandsStillIsGivenUpOn) {
  const test::TempFolder folder;
  folder.WriteText("file", "old");
  WritingCalls calls(folder.File("file"), 1000);
  const SystemCallsInUse in_use(calls);
  std::string bytes;
  EXPECT_EQ(ReadQuietly(folder.File("file"), bytes), QuietResult::kChanging);
  EXPECT_EQ(bytes, "");
}

TEST(ReadQuietlyTest, AFailingDeviceNeverGivesOtherBytes) {
  const test::TempFolder folder;
  folder.WriteText("file", "four");
  for (const test::Fault fault :
       {test::Fault::kIo, test::Fault::kInterrupted, test::Fault::kShort}) {
    for (int at = 1; at < 20; ++at) {
      test::FaultyCalls calls(fault, at);
      const SystemCallsInUse in_use(calls);
      std::string bytes;
      const QuietResult result = ReadQuietly(folder.File("file"), bytes);
      EXPECT_EQ(bytes, result == QuietResult::kRead ? "four" : "") << at;
    }
  }
}

}  // namespace
}  // namespace brovanta::platform

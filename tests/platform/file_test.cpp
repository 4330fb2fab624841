#include "platform/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <thread>
#include <utility>

#include "platform/system_calls.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta::platform {
namespace {

using test::Bytes;
using test::Hex;
using test::TempFolder;
using Mode = File::Mode;

class FileTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Path(std::string_view name = "data") const {
    return folder_.File(name);
  }

  [[nodiscard]] bool Opens(Mode mode, std::string_view name = "data") const {
    File file;
    return file.Open(Path(name), mode);
  }

  TempFolder folder_;
};

TEST_F(FileTest, BackslashesOfADocumentedPathBecomeSlashes) {
  EXPECT_EQ(NativePath("/home/me\\WebSearch\\7.dat"), "/home/me/WebSearch/7.dat");
  EXPECT_EQ(NativePath(""), "");
}

TEST_F(FileTest, ADocumentedPathOpens) {
  folder_.WriteText("data", "x");
  File file;
  EXPECT_TRUE(file.Open(folder_.path() + "\\data", Mode::kRead));
  EXPECT_TRUE(file.is_open());
}

TEST_F(FileTest, AMissingFileDoesNotOpenAndIsNotMade) {
  EXPECT_FALSE(Opens(Mode::kRead));
  EXPECT_FALSE(Opens(Mode::kReadWrite));
  EXPECT_FALSE(FileExists(Path()));
  EXPECT_FALSE(Opens(Mode::kRead, ""));
}

TEST_F(FileTest, ANewFileMustNotExistYet) {
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kCreateNew));
  struct stat status {};
  ASSERT_EQ(stat(Path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
  file.Close();
  EXPECT_FALSE(file.Open(Path(), Mode::kCreateNew));
  EXPECT_FALSE(file.is_open());
  EXPECT_FALSE(file.Open(Path("none/data"), Mode::kCreateNew));
}

TEST_F(FileTest, ASecondOpenIsRefusedUntilTheFirstIsClosed) {
  folder_.WriteText("data", "x");
  File first;
  ASSERT_TRUE(first.Open(Path(), Mode::kRead));
  EXPECT_FALSE(Opens(Mode::kRead));
  EXPECT_FALSE(Opens(Mode::kReadWrite));
  bool opened = true;
  std::thread([&] { opened = Opens(Mode::kRead); }).join();
  EXPECT_FALSE(opened);
  first.Close();
  EXPECT_TRUE(Opens(Mode::kReadWrite));
}

TEST_F(FileTest, ANewFileIsHeldAsWell) {
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kCreateNew));
  EXPECT_FALSE(Opens(Mode::kRead));
}

TEST_F(FileTest, AFileHeldByAnotherOpenFileOfTheSystemIsRefused) {
  folder_.WriteText("data", "x");
  const int other = open(Path().c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_GE(other, 0);
  ASSERT_EQ(flock(other, LOCK_SH), 0);
  EXPECT_FALSE(Opens(Mode::kRead));
  close(other);
  EXPECT_TRUE(Opens(Mode::kRead));
}

TEST_F(FileTest, OpeningAgainLetsTheFormerFileGo) {
  folder_.WriteText("data", "x");
  folder_.WriteText("other", "y");
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kRead));
  ASSERT_TRUE(file.Open(Path("other"), Mode::kRead));
  EXPECT_TRUE(Opens(Mode::kRead));
  EXPECT_FALSE(Opens(Mode::kRead, "other"));
}

TEST_F(FileTest, MovingHandsTheLockOver) {
  folder_.WriteText("data", "x");
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kRead));
  File moved(std::move(file));
  EXPECT_FALSE(file.is_open());  // NOLINT(*-use-after-move,clang-analyzer-cplusplus.Move)
  EXPECT_FALSE(Opens(Mode::kRead));
  folder_.WriteText("other", "y");
  File target;
  ASSERT_TRUE(target.Open(Path("other"), Mode::kRead));
  target = std::move(moved);
  EXPECT_TRUE(Opens(Mode::kRead, "other"));
  EXPECT_FALSE(Opens(Mode::kRead));
  target = File();
  EXPECT_TRUE(Opens(Mode::kRead));
}

TEST_F(FileTest, OnlyRegularFilesOpenAndNothingBlocks) {
  std::filesystem::create_directory(Path("folder"));
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  for (const Mode mode : {Mode::kRead, Mode::kReadWrite}) {
    EXPECT_FALSE(Opens(mode, "folder"));
    EXPECT_FALSE(Opens(mode, "pipe"));
    File file;
    EXPECT_FALSE(file.Open("/dev/null", mode));
  }
}

TEST_F(FileTest, AFileWithoutAnyWritePermissionOpensForReadingOnly) {
  folder_.WriteText("data", "x");
  ASSERT_EQ(chmod(Path().c_str(), 0444), 0);
  EXPECT_FALSE(Opens(Mode::kReadWrite));
  EXPECT_TRUE(Opens(Mode::kRead));
}

TEST_F(FileTest, AnOpenFileKnowsWhetherItStandsWhereItDid) {
  folder_.WriteText("a.dat", "a");
  folder_.WriteText("b.dat", "b");
  File file;
  EXPECT_EQ(file.PlaceAt(folder_.path() + "\\a.dat"), File::Place::kUnknown) << "not open";
  ASSERT_TRUE(file.Open(folder_.File("a.dat"), File::Mode::kReadWrite));
  EXPECT_EQ(file.PlaceAt(folder_.path() + "\\a.dat"), File::Place::kThere);
  EXPECT_EQ(file.PlaceAt(folder_.File("b.dat")), File::Place::kElsewhere);
  EXPECT_EQ(file.PlaceAt(folder_.File("none.dat")), File::Place::kElsewhere);
  std::filesystem::rename(folder_.File("b.dat"), folder_.File("a.dat"));
  EXPECT_EQ(file.PlaceAt(folder_.File("a.dat")), File::Place::kElsewhere);
}

TEST_F(FileTest, TheStateTellsTheFileItsSizeAndWhetherItWasWritten) {
  folder_.Write("data", Hex("01 02"));
  folder_.Write("other", Hex("01 02"));
  File file;
  File other;
  ASSERT_TRUE(file.Open(Path(), Mode::kReadWrite));
  ASSERT_TRUE(other.Open(Path("other"), Mode::kRead));
  const auto before = file.State();
  ASSERT_TRUE(before.has_value());
  EXPECT_EQ(before->size, 2);
  EXPECT_NE(before->number, other.State()->number);
  Bytes buffer(2);
  ASSERT_EQ(file.Read(buffer), 2);
  EXPECT_EQ(file.State(), before);
  // The system counts the time of a change in steps of some milliseconds.
  while (file.State() == before) ASSERT_TRUE(file.WriteAt(0, Hex("03")));
  EXPECT_EQ(file.State()->size, 2);
  file.Close();
  EXPECT_FALSE(file.State().has_value());
}

TEST_F(FileTest, ReadingGoesOnWhereItStoppedAndIsShortOnlyAtTheEnd) {
  folder_.Write("data", Hex("01 02 03 04 05"));
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kRead));
  EXPECT_EQ(file.Size(), 5);
  Bytes buffer(3);
  EXPECT_EQ(file.Read(buffer), 3);
  EXPECT_EQ(buffer, Hex("01 02 03"));
  EXPECT_EQ(file.Read(buffer), 2);
  EXPECT_EQ(buffer, Hex("04 05 03"));
  EXPECT_EQ(file.Read(buffer), 0);
}

TEST_F(FileTest, ReadingAtAnOffsetLeavesThePosition) {
  folder_.Write("data", Hex("01 02 03 04 05"));
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kRead));
  Bytes buffer(2);
  EXPECT_EQ(file.ReadAt(3, buffer), 2);
  EXPECT_EQ(buffer, Hex("04 05"));
  EXPECT_EQ(file.ReadAt(4, buffer), 1);
  EXPECT_EQ(file.ReadAt(5, buffer), 0);
  EXPECT_EQ(file.ReadAt(-1, buffer), -1);
  EXPECT_EQ(file.Read(buffer), 2);
  EXPECT_EQ(buffer, Hex("01 02"));
}

TEST_F(FileTest, WritingOverwritesAndExtends) {
  folder_.Write("data", Hex("01 02 03"));
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kReadWrite));
  EXPECT_TRUE(file.WriteAt(2, Hex("AA BB")));
  EXPECT_EQ(folder_.Read("data"), Hex("01 02 AA BB"));
  EXPECT_TRUE(file.WriteAt(6, Hex("CC")));
  EXPECT_TRUE(file.Sync());
  EXPECT_EQ(folder_.Read("data"), Hex("01 02 AA BB 00 00 CC"));
  EXPECT_TRUE(file.Truncate(3));
  EXPECT_EQ(folder_.Read("data"), Hex("01 02 AA"));
}

TEST_F(FileTest, AFileOpenedForReadingIsNotWritten) {
  folder_.Write("data", Hex("01 02 03"));
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kRead));
  EXPECT_FALSE(file.WriteAt(0, Hex("AA")));
  EXPECT_FALSE(file.Truncate(0));
  EXPECT_EQ(folder_.Read("data"), Hex("01 02 03"));
}

TEST_F(FileTest, AClosedFileFails) {
  File file;
  Bytes buffer(1);
  EXPECT_EQ(file.Read(buffer), -1);
  EXPECT_EQ(file.ReadAt(0, buffer), -1);
  EXPECT_FALSE(file.WriteAt(0, buffer));
  EXPECT_EQ(file.Size(), -1);
  EXPECT_FALSE(file.Truncate(0));
  EXPECT_FALSE(file.Sync());
}

// While it lives, this process can write no file beyond the given size, as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t size) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &previous_);
    const rlimit limit{size, previous_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &previous_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit previous_{};
  void (*handler_)(int);
};

TEST_F(FileTest, AWriteThatDoesNotFitFails) {
  folder_.Write("data", Hex("01 02 03"));
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kReadWrite));
  const FileSizeLimit limit(8);
  EXPECT_TRUE(file.WriteAt(3, Bytes(5)));
  EXPECT_FALSE(file.WriteAt(4, Bytes(5)));
  EXPECT_FALSE(file.WriteAt(8, Bytes(1)));
}

TEST_F(FileTest, ADescriptorIsNotInheritedByOtherPrograms) {
  folder_.WriteText("data", "x");
  File file;
  ASSERT_TRUE(file.Open(Path(), Mode::kRead));
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code ignored;
    if (std::filesystem::read_symlink(entry, ignored) != Path()) continue;
    EXPECT_NE(fcntl(std::stoi(entry.path().filename()), F_GETFD) & FD_CLOEXEC, 0);
    return;
  }
  FAIL() << "the open file is not among the descriptors";
}

TEST_F(FileTest, WhatIsHeldIsTheFileThatStandsThereHoweverOftenItIsReplaced) {
  folder_.WriteText("data", "0");
  std::atomic<bool> enough = false;
  std::thread writer([&] {
    while (!enough) static_cast<void>(ReplaceFile(Path(), Hex("31")));
  });
  int stale = 0;
  for (int opened = 0; opened < 100;) {
    File file;
    if (!file.Open(Path(), Mode::kRead)) continue;  // held by the writer
    ++opened;
    // Neither may a file that was replaced be held, nor the one that is held be replaced.
    if (ReplaceFile(Path(), Hex("32"))) ++stale;
  }
  enough = true;
  writer.join();
  EXPECT_EQ(stale, 0);
  EXPECT_NE(folder_.ReadText("data"), "2");
}

TEST_F(FileTest, ExistsTellsOfAnythingThatStandsThere) {
  EXPECT_FALSE(FileExists(Path()));
  folder_.WriteText("data", "");
  EXPECT_TRUE(FileExists(folder_.path() + "\\data"));
  EXPECT_TRUE(FileExists(folder_.path()));
  EXPECT_FALSE(FileExists(""));
}

TEST_F(FileTest, AFileThatNobodyMayWriteIsReadOnly) {
  EXPECT_FALSE(IsReadOnlyFile(Path()));
  folder_.WriteText("data", "x");
  EXPECT_FALSE(IsReadOnlyFile(Path()));
  std::filesystem::permissions(folder_.File("data"), std::filesystem::perms::owner_read);
  EXPECT_TRUE(IsReadOnlyFile(Path()));
  EXPECT_FALSE(IsReadOnlyFile(folder_.path())) << "no file";
}

TEST_F(FileTest, SizeAndKindAreToldWithoutOpening) {
  EXPECT_EQ(SizeOfFile(Path()), 0);
  EXPECT_FALSE(IsOtherThanFile(Path()));
  folder_.WriteText("data", "123");
  EXPECT_EQ(SizeOfFile(folder_.path() + "\\data"), 3);
  EXPECT_FALSE(IsOtherThanFile(folder_.path() + "\\data"));
  EXPECT_TRUE(IsOtherThanFile(folder_.path()));
  EXPECT_EQ(SizeOfFile(folder_.path() + "\\data\\in a file"), 0);
  test::FaultyCalls calls(test::Fault::kIo, 1, true);
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(SizeOfFile(Path()), -1);
  EXPECT_FALSE(IsOtherThanFile(Path()));
}

}  // namespace
}  // namespace brovanta::platform

#include "app/backup_at_start.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>
#include <filesystem>
#include <system_error>
#include <thread>

#include "data/backup_folder.h"
#include "data/backup_names.h"
#include "platform/file.h"
#include "tests/support/temp_folder.h"
#include "tests/support/working_folder.h"

namespace brovanta {
namespace {

namespace fs = std::filesystem;
constexpr int kPatience = 20000;

class BackupAtStartTest : public testing::Test {
 protected:
  BackupAtStartTest() {
    fs::create_directory(data_);
    folder_.WriteText("data/product.dat", "entries");
  }

  [[nodiscard]] bool HasCopy() const { return BackupFolder(data_).Has(TodaysCopyName()); }

  test::TempFolder folder_;
  std::string data_ = folder_.File("data");
  QWidget window_;
};

TEST_F(BackupAtStartTest, ACopyIsThereAfterTheFirstPaint) {
  const BackupAtStart backup(data_, window_);
  QCoreApplication::processEvents();
  EXPECT_FALSE(fs::exists(BackupFolder(data_).path()));  // nothing before the window is seen
  window_.show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return HasCopy(); }, kPatience));
  EXPECT_EQ(folder_.ReadText("data.backups/" + TodaysCopyName() + "/product.dat"), "entries");
}

TEST_F(BackupAtStartTest, TheWorkingFolderIsMeantWithoutAName) {
  const test::WorkingFolder working(data_);
  const BackupAtStart backup("", window_);
  window_.show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return HasCopy(); }, kPatience));
}

TEST_F(BackupAtStartTest, AFileIsFreeAsSoonAsAnEventCanArrive) {
  const BackupAtStart backup(data_, window_);
  window_.show();
  // Whatever runs in the event loop, a save say, finds no file held.
  const auto saved = [this] {
    platform::File file;
    EXPECT_TRUE(file.Open(data_ + "/product.dat", platform::File::Mode::kReadWrite));
    return HasCopy();
  };
  EXPECT_TRUE(QTest::qWaitFor(saved, kPatience));
}

TEST_F(BackupAtStartTest, AHeldFileOrAnUnwritablePlaceDoesNoHarm) {
  folder_.WriteText("data.backups", "in the way");
  {
    const BackupAtStart backup(data_, window_);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(folder_.ReadText("data.backups"), "in the way");
  EXPECT_EQ(folder_.ReadText("data/product.dat"), "entries");
}

TEST_F(BackupAtStartTest, WithoutAThreadTheProgramGoesOnAndTheNextStartTriesAgain) {
  int asked = 0;
  {
    const BackupAtStart backup(data_, window_, [&asked](const BackupAtStart::Work&) {
      ++asked;
      throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
      return std::jthread();
    });
    window_.show();
    EXPECT_TRUE(QTest::qWaitFor([&asked] { return asked == 1; }, kPatience));
    platform::File file;
    EXPECT_TRUE(file.Open(data_ + "/product.dat", platform::File::Mode::kReadWrite));
  }
  EXPECT_FALSE(HasCopy());
  const BackupAtStart next(data_, window_);
  window_.repaint();
  EXPECT_TRUE(QTest::qWaitFor([this] { return HasCopy(); }, kPatience));
}

TEST_F(BackupAtStartTest, EndingAtOnceLeavesAWholeCopyOrNone) {
  for (int i = 0; i < 20; ++i) folder_.WriteText("data/product.dat", std::string(100000, 'x'));
  {
    const BackupAtStart backup(data_, window_);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
    QCoreApplication::processEvents();
  }
  for (const BackupCopy& copy : BackupFolder(data_).Copies()) {
    EXPECT_EQ(copy.bytes, 100000);
  }
}

}  // namespace
}  // namespace brovanta

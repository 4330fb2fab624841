// docs/data.md shows what the program really writes.
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "data/backup_reports.h"
#include "data/check_folder.h"
#include "data/data_snapshot.h"
#include "data/reports.h"
#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

using testing::HasSubstr;

std::string Page() {
  std::ifstream in(BROVANTA_SOURCE_FOLDER "/docs/data.md", std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(DataPageTest, ShowsTheReportOfAWholeFolder) {
  const test::TempFolder folder;
  test::MakeHousehold(folder.path());
  std::string error;
  const auto report = CheckFolder(folder.path(), error);
  ASSERT_TRUE(report) << error;
  EXPECT_THAT(Page(), HasSubstr("$ brovanta-data check ~/.local/share/brovanta\n" +
                                CheckAsText(*report, "/home/ann/.local/share/brovanta") + "```"));
}

TEST(DataPageTest, ShowsTheListOfCopies) {
  const test::TempFolder folder;
  test::MakeHousehold(folder.path());
  DataSnapshot snapshot;
  ASSERT_EQ(TakeDataSnapshot(folder.path(), snapshot), SnapshotResult::kTaken);
  const test::TempFolder place;
  const BackupFolder backups(place.File("data"));
  for (const char* const name : {"2026-11-20", "2026-11-21", "2026-11-21.before-restore"}) {
    ASSERT_TRUE(backups.Keep(name, snapshot));
  }
  EXPECT_THAT(Page(), HasSubstr("$ brovanta-data backups ~/.local/share/brovanta\n" +
                                BackupsAsText(ReportBackups(place.File("data"))) + "```"));
}

}  // namespace
}  // namespace brovanta::data_tool

#include "data/backup_reports.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "tests/support/json_reader.h"
#include "tests/support/temp_folder.h"

namespace brovanta::data_tool {
namespace {

using testing::IsSupersetOf;
using testing::Pair;

ListedCopy Listed(const char* name, bool is_daily, std::size_t files, std::uint64_t bytes) {
  ListedCopy listed;
  listed.copy.name = name;
  listed.copy.is_daily = is_daily;
  listed.copy.files = files;
  listed.copy.bytes = bytes;
  return listed;
}

BackupsReport Sample() {
  BackupsReport report;
  report.folder = "/data";
  report.place = "/data.backups";
  report.copies = {Listed("2026-11-20", true, 9, 5120),
                   Listed("2026-11-21.before-restore", false, 1, 12)};
  return report;
}

TEST(BackupsReportTest, ListsCopiesForAPerson) {
  EXPECT_EQ(BackupsAsText(Sample()),
            "2026-11-20: daily, 9 files, 5120 bytes\n"
            "2026-11-21.before-restore: before restore, 1 file, 12 bytes\n");
  BackupsReport none = Sample();
  none.copies.clear();
  none.obstacle = "the folder may not be written";
  EXPECT_EQ(BackupsAsText(none),
            "There are no copies in \"/data.backups\".\n"
            "NO COPY CAN BE KEPT in \"/data.backups\": the folder may not be written.\n");
}

TEST(BackupsReportTest, ListsCopiesForAScript) {
  const auto json = test::ReadJson(BackupsAsJson(Sample()));
  ASSERT_TRUE(json);
  EXPECT_THAT(*json,
              IsSupersetOf({Pair("folder", "/data"), Pair("place", "/data.backups"),
                            Pair("obstacle", "null"), Pair("copies[0].name", "2026-11-20"),
                            Pair("copies[0].kind", "daily"), Pair("copies[0].files", "9"),
                            Pair("copies[0].bytes", "5120"), Pair("copies[0].unreadable", "null"),
                            Pair("copies[1].kind", "before restore")}));
  BackupsReport none = Sample();
  none.obstacle = std::string("the place is full");
  EXPECT_EQ(test::ReadJson(BackupsAsJson(none))->at("obstacle"), "the place is full");
}

TEST(BackupsReportTest, NamesTheFileThatCannotBeRead) {
  BackupsReport report = Sample();
  report.copies[0].unreadable = "WebSearch/2.dat";
  report.copies[1].unreadable = ".";
  EXPECT_EQ(BackupsAsText(report),
            "2026-11-20: daily, 9 files, 5120 bytes; CANNOT BE READ: \"WebSearch/2.dat\"\n"
            "2026-11-21.before-restore: before restore, 1 file, 12 bytes; CANNOT BE READ\n");
  const auto json = test::ReadJson(BackupsAsJson(report));
  ASSERT_TRUE(json);
  EXPECT_EQ(json->at("copies[0].unreadable"), "WebSearch/2.dat");
  EXPECT_EQ(json->at("copies[1].unreadable"), ".");
}

TEST(BackupsReportTest, ReadsEveryCopy) {
  const test::TempFolder folder;
  const BackupFolder backups(folder.File("data"));
  for (const char* name : {"2026-11-20", "2026-11-21"}) {
    ASSERT_TRUE(backups.Keep(name, {{"store.lst", "a"}, {"WebSearch/2.dat", "b"}}));
  }
  std::filesystem::remove(backups.PathOf("2026-11-20") + "/WebSearch/2.dat");
  std::filesystem::create_directory(backups.PathOf("2026-11-20") + "/WebSearch/2.dat");
  const BackupsReport report = ReportBackups(folder.File("data"));
  ASSERT_EQ(report.copies.size(), 2U);
  EXPECT_EQ(report.copies[0].unreadable, "WebSearch/2.dat");
  EXPECT_EQ(report.copies[1].unreadable, "");
}

TEST(RestoreReportTest, TellsWhatWasDone) {
  RestoreEnd end{{RestoreEnd::Outcome::kDone, "2026-11-21.before-restore", 4, 1, ""}, "2026-11-20"};
  EXPECT_EQ(RestoreAsText(end, "/data"),
            "\"/data\" holds the files of 2026-11-20 again: 4 files written, 1 removed.\n"
            "What stood there before is kept as 2026-11-21.before-restore.\n");
  const auto json = test::ReadJson(RestoreAsJson(end, "/data"));
  ASSERT_TRUE(json);
  EXPECT_THAT(*json, testing::UnorderedElementsAre(
                         Pair("folder", "/data"), Pair("copy", "2026-11-20"),
                         Pair("changed", "true"), Pair("written", "4"), Pair("removed", "1"),
                         Pair("kept_as", "2026-11-21.before-restore")));
}

TEST(RestoreReportTest, TellsThatThereWasNothingToDo) {
  const RestoreEnd end{{RestoreEnd::Outcome::kSame, "", 0, 0, ""}, "2026-11-20"};
  EXPECT_EQ(RestoreAsText(end, "d"), "\"d\" holds the very files of 2026-11-20 already.\n");
  EXPECT_EQ(test::ReadJson(RestoreAsJson(end, "d"))->at("kept_as"), "null");
  EXPECT_EQ(test::ReadJson(RestoreAsJson(end, "d"))->at("changed"), "false");
}

}  // namespace
}  // namespace brovanta::data_tool

#include "data/reports.h"

#include <gmock/gmock.h>

#include "tests/support/json_reader.h"

namespace brovanta::data_tool {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::Pair;

FolderReport Sample() {
  FolderReport report;
  report.files = {{"store.lst", FileState::kRead, 76, 1, std::nullopt},
                  {"product.dat", FileState::kRead, 1392, 3, 2},
                  {"purchase.dat", FileState::kMissing, 0, std::nullopt, std::nullopt},
                  {"discount.dat", FileState::kNotRead, 0, std::nullopt, std::nullopt}};
  report.findings = {{Severity::kError, "product.dat", 20, 7, "the id is bad"},
                     {Severity::kWarning, "discount.dat", std::nullopt, std::nullopt, "held"},
                     {Severity::kNote, "store.lst.bad", std::nullopt, std::nullopt, "set aside"}};
  return report;
}

TEST(CheckAsTextTest, SaysEverythingLineByLine) {
  EXPECT_EQ(CheckAsText(Sample(), "/data"),
            "/data\n"
            "store.lst: 76 bytes, 1 entry\n"
            "product.dat: 1392 bytes, 3 entries, 2 deleted\n"
            "purchase.dat: none\n"
            "discount.dat: not looked at\n"
            "error: product.dat, byte 20, record 7: the id is bad\n"
            "warning: discount.dat: held\n"
            "note: store.lst.bad: set aside\n"
            "The folder is NOT whole: 1 error and 1 warning.\n");
}

TEST(CheckAsTextTest, NotesLeaveAFolderWhole) {
  FolderReport report = Sample();
  report.findings.erase(report.findings.begin(), report.findings.begin() + 2);
  EXPECT_THAT(CheckAsText(report, "d"), HasSubstr("The folder is whole.\n"));
  EXPECT_THAT(CheckAsText(report, "d"), Not(HasSubstr("works in this folder")));
  report.in_use = true;
  EXPECT_THAT(CheckAsText(report, "d"), HasSubstr("The program works in this folder just now"));
}

TEST(CheckAsTextTest, NamesDoNotSteerATerminal) {
  EXPECT_THAT(CheckAsText({}, "a\x1B[2Jb"), HasSubstr("a\\x1B[2Jb\n"));
}

TEST(CheckAsJsonTest, HasEverythingUnderTheDocumentedKeys) {
  const auto json = test::ReadJson(CheckAsJson(Sample(), "/da\"ta"));
  ASSERT_TRUE(json);
  EXPECT_THAT(*json, testing::IsSupersetOf({Pair("folder", "/da\"ta"),
                                            Pair("whole", "false"),
                                            Pair("in_use", "false"),
                                            Pair("errors", "1"),
                                            Pair("warnings", "1"),
                                            Pair("notes", "1"),
                                            Pair("files[0].file", "store.lst"),
                                            Pair("files[0].state", "read"),
                                            Pair("files[0].bytes", "76"),
                                            Pair("files[0].entries", "1"),
                                            Pair("files[0].deleted", "null"),
                                            Pair("files[1].deleted", "2"),
                                            Pair("files[2].state", "missing"),
                                            Pair("files[2].bytes", "null"),
                                            Pair("files[3].state", "not read"),
                                            Pair("findings[0].severity", "error"),
                                            Pair("findings[0].file", "product.dat"),
                                            Pair("findings[0].byte", "20"),
                                            Pair("findings[0].record", "7"),
                                            Pair("findings[0].words", "the id is bad"),
                                            Pair("findings[1].severity", "warning"),
                                            Pair("findings[1].byte", "null"),
                                            Pair("findings[2].severity", "note")}));
}

}  // namespace
}  // namespace brovanta::data_tool

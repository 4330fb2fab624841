// docs/data.md shows what the program really writes.
#include <gmock/gmock.h>

#include "data/check_folder.h"
#include "data/reports.h"
#include "tests/data/sample_folder.h"

#include <fstream>
#include <iterator>

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

}  // namespace
}  // namespace brovanta::data_tool

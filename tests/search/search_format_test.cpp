// The pages in docs/formats/ say what search_format.h says, and their examples can be read.
#include "search/search_format.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "db/record_format.h"
#include "search/results_file.h"
#include "search/saved_searches.h"
#include "tests/support/format_page.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::ExampleOf;
using test::ExpectWithoutGap;
using test::Rows;
using test::TableOf;
using testing::ElementsAre;

TEST(SearchFormatTest, IndexPageAgrees) {
  namespace layout = saved_search_layout;
  EXPECT_EQ(TableOf("search_index.md", "File"),
            (Rows{{"FILE_MAGIC", 0, kWordSize, "uint32"},
                  {"LastId", kLastIdOffset, 4, "int32"},
                  {"first mark", kFirstRecordMark, 4, "uint32"}}));
  const Rows rows = TableOf("search_index.md", "Record");
  EXPECT_EQ(rows, (Rows{{"reserved", layout::kReserved, 4, "-"},
                        {"Number", layout::kNumber, 4, "int32"},
                        {"CategoryId", layout::kCategoryId, 4, "int32"},
                        {"Date", layout::kDate, 4, "date"},
                        {"Words", layout::kWords, layout::kWordsSize, "text"},
                        {"Deleted", layout::kDeleted, 1, "uint8"},
                        {"reserved", 67, 1, "-"}}));
  ExpectWithoutGap(rows, layout::kSize);
  EXPECT_EQ(layout::kSize, 68U);
}

TEST(SearchFormatTest, ResultsPageAgrees) {
  namespace layout = result_layout;
  EXPECT_EQ(TableOf("search_results.md", "File"),
            (Rows{{"FILE_MAGIC", 0, kWordSize, "uint32"},
                  {"first mark", kFirstResultMark, kWordSize, "uint32"}}));
  const Rows rows = TableOf("search_results.md", "Numbers");
  EXPECT_EQ(rows, (Rows{{"Id", layout::kId, 4, "int32"},
                        {"Price", layout::kPrice, 8, "double"},
                        {"Status", layout::kStatus, 2, "int16"}}));
  ExpectWithoutGap(rows, layout::kSize);
}

TEST(SearchFormatTest, ExampleOfTheIndexLoads) {
  const test::TempFolder folder;
  folder.Write("websearch.dat", ExampleOf("search_index.md"));
  SavedSearches saved;
  saved.SetPaths(folder.File("websearch.dat"), folder.path());
  EXPECT_EQ(saved.LoadSavedSearches({}), 0);
  EXPECT_THAT(saved.searches(), ElementsAre(SavedSearch{2, 3, 1112749200, "soap"}));
}

TEST(SearchFormatTest, ExampleOfTheResultsLoadsAndIsWrittenAlike) {
  const test::TempFolder folder;
  const test::Bytes example = ExampleOf("search_results.md");
  EXPECT_EQ(example.size(), 79U);
  folder.Write("2.dat", example);
  SearchResultList list;
  EXPECT_EQ(ReadSearchResults(list, folder.File("2.dat")), 0);
  EXPECT_THAT(list.items(),
              ElementsAre(SearchResultItem{1, "Soap", std::nullopt, "http://shop.ex/s",
                                           "Corner shop ab", 2.5, 0}));
  EXPECT_EQ(WriteSearchResults(list, folder.File("3.dat")), 0);
  EXPECT_EQ(folder.Read("3.dat"), example);
}

}  // namespace
}  // namespace brovanta

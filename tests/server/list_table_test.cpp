#include "server/list_table.h"

#include <gmock/gmock.h>

namespace brovanta::server {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<ListEntry> EntriesOf(const Table<ListEntry>& table) {
  std::vector<ListEntry> entries;
  for (const auto& row : table.rows) entries.push_back(row.entry);
  return entries;
}

TEST(ReadListTable, ReadsEntriesWithTheirLines) {
  const auto table = ReadListTable("id,name\n7,Corner Shop\n\n3,\"Fish, Fresh\"\n");
  EXPECT_THAT(table.problems, IsEmpty());
  EXPECT_THAT(EntriesOf(table),
              ElementsAre(ListEntry{7, "Corner Shop"}, ListEntry{3, "Fish, Fresh"}));
  EXPECT_EQ(table.rows[1].line, 4u);
}

TEST(ReadListTable, TakesTheIdsThatHandheldsAskFor) {
  EXPECT_THAT(ReadListTable("id,name\n1,One\n4998,Last\n").problems, IsEmpty());
  EXPECT_THAT(ReadListTable("id,name\n4999,Beyond\n").problems,
              ElementsAre(Problem{2, "id \"4999\" is not a whole number from 1 to 4998"}));
}

TEST(ReadListTable, RefusesAnIdThatComesTwice) {
  EXPECT_THAT(ReadListTable("id,name\n5,One\n6,Two\n5,Three\n").problems,
              ElementsAre(Problem{4, "id stands in line 2 already"}));
}

TEST(ReadListTable, RefusesATextThatWouldBreakTheFeed) {
  EXPECT_THAT(ReadListTable("id,name\n5,A</NM>B\n").problems,
              ElementsAre(Problem{2, "name holds </NM>, which would end it in the feed"}));
}

TEST(ReadListTable, TellsAllFaultsOfOneLine) {
  EXPECT_THAT(ReadListTable("id,name\nx,\n").problems,
              ElementsAre(Problem{2, "id \"x\" is not a whole number from 1 to 4998"},
                          Problem{2, "name is empty"}));
}

TEST(WriteListTable, WritesWhatReadListTableReads) {
  const std::vector<ListEntry> entries = {{1, "Corner Shop"}, {2, "Fish, \"Fresh\""}};
  const std::string text = WriteListTable(entries);
  EXPECT_EQ(text, "id,name\n1,Corner Shop\n2,\"Fish, \"\"Fresh\"\"\"\n");
  EXPECT_EQ(EntriesOf(ReadListTable(text)), entries);
}

}  // namespace
}  // namespace brovanta::server

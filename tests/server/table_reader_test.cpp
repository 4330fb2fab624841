#include "server/table_reader.h"

#include <gmock/gmock.h>

#include <array>

namespace brovanta::server {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::array<std::string_view, 2> kColumns = {"id", "name"};

auto ProblemIn(std::size_t line, const std::string& words) {
  return AllOf(Field(&Problem::line, line), Field(&Problem::message, HasSubstr(words)));
}

std::vector<Problem> ProblemsOf(std::string_view text) {
  TableReader reader(text, kColumns);
  while (reader.Next()) {
  }
  return reader.TakeProblems();
}

TEST(TableReader, FindsColumnsByTheirNamesInAnyOrder) {
  TableReader reader("name,id\nShop,7\n", kColumns);
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(reader.line(), 2u);
  EXPECT_EQ(reader.Field(0), "7");
  EXPECT_EQ(reader.Field(1), "Shop");
  EXPECT_FALSE(reader.Next());
  EXPECT_THAT(reader.TakeProblems(), IsEmpty());
}

TEST(TableReader, ATableOfNamesOnlyHasNoRecords) {
  EXPECT_THAT(ProblemsOf("id,name\n"), IsEmpty());
}

TEST(TableReader, AsksForTheLineOfNames) {
  EXPECT_THAT(ProblemsOf(""), ElementsAre(ProblemIn(0, "id,name")));
}

TEST(TableReader, TellsEveryFaultOfTheNames) {
  EXPECT_THAT(ProblemsOf("Id,name,name\n1,a,b\n"),
              ElementsAre(ProblemIn(1, "no column is named \"Id\""), ProblemIn(1, "name twice"),
                          ProblemIn(1, "column id is missing")));
}

TEST(TableReader, DoesNotGoOnBehindFaultyNames) {
  TableReader reader("id\n1\n", kColumns);
  EXPECT_FALSE(reader.Next());
}

TEST(TableReader, PassesOverRecordsOfAnotherLength) {
  TableReader reader("id,name\n1\n2,b\n3,c,d\n", kColumns);
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(reader.Field(0), "2");
  EXPECT_FALSE(reader.Next());
  EXPECT_THAT(reader.TakeProblems(),
              ElementsAre(ProblemIn(2, "1 fields instead of 2"), ProblemIn(4, "3 fields")));
}

TEST(TableReader, HandsOnWhatTheReaderOfRecordsFinds) {
  EXPECT_THAT(ProblemsOf("id,name\n1,\"a\n"), ElementsAre(ProblemIn(2, "never closed")));
  EXPECT_THAT(ProblemsOf("\"id\n"), ElementsAre(ProblemIn(1, "never closed")));
}

TEST(TableReader, NamesColumnAndLineOfAnUnsuitableText) {
  TableReader reader("id,name\n1,A\n", kColumns);
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(reader.Text(1, kListNameLength), "");
  EXPECT_THAT(reader.TakeProblems(), ElementsAre(ProblemIn(2, "name is shorter than 2")));
}

TEST(TableReader, NamesColumnAndLineOfAnUnsuitableNumber) {
  TableReader reader("id,name\n0,A\n-1,B\n9,C\n8,D\n", kColumns);
  for (const int expected : {0, 0, 0, 8}) {
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.Number(0, 8), expected);
  }
  EXPECT_THAT(reader.TakeProblems(),
              ElementsAre(ProblemIn(2, "id \"0\" is not a whole number from 1 to 8"),
                          ProblemIn(3, "\"-1\""), ProblemIn(4, "\"9\"")));
}

TEST(TableReader, StopsWhenItKnowsEnoughProblems) {
  std::string text = "id,name\n";
  for (int i = 0; i < 1000; ++i) text += "x\n";
  EXPECT_THAT(ProblemsOf(text), SizeIs(kMaxProblems));
}

}  // namespace
}  // namespace brovanta::server

#include "server/csv.h"

#include <gmock/gmock.h>

namespace brovanta::server {
namespace {

using testing::ElementsAre;

struct Parsed {
  std::vector<std::vector<std::string>> records;
  std::vector<std::size_t> lines;
  std::optional<Problem> problem;
};

Parsed Parse(std::string_view text) {
  Parsed parsed;
  CsvReader reader(text);
  CsvRecord record;
  while (reader.Next(record)) {
    parsed.records.push_back(record.fields);
    parsed.lines.push_back(record.line);
  }
  parsed.problem = reader.problem();
  return parsed;
}

TEST(CsvReader, SplitsFieldsAndLines) {
  const Parsed parsed = Parse("id,name\n1,Corner Shop\n2,\n");
  EXPECT_THAT(parsed.records, ElementsAre(ElementsAre("id", "name"),
                                          ElementsAre("1", "Corner Shop"), ElementsAre("2", "")));
  EXPECT_THAT(parsed.lines, ElementsAre(1, 2, 3));
  EXPECT_FALSE(parsed.problem);
}

TEST(CsvReader, TakesALastLineWithoutItsEnd) {
  EXPECT_THAT(Parse("a,b").records, ElementsAre(ElementsAre("a", "b")));
  EXPECT_THAT(Parse("a,").records, ElementsAre(ElementsAre("a", "")));
  EXPECT_THAT(Parse("a,\"\"").records, ElementsAre(ElementsAre("a", "")));
}

TEST(CsvReader, AcceptsCarriageReturnsBeforeLineFeeds) {
  EXPECT_THAT(Parse("a,b\r\n\"c\",d\r\n").records,
              ElementsAre(ElementsAre("a", "b"), ElementsAre("c", "d")));
}

TEST(CsvReader, KeepsACarriageReturnThatEndsNoLine) {
  EXPECT_THAT(Parse("a\rb\n").records, ElementsAre(ElementsAre("a\rb")));
}

TEST(CsvReader, UndoesQuotationMarks) {
  EXPECT_THAT(Parse("\"a,b\",\"say \"\"hi\"\"\",\"\"\n").records,
              ElementsAre(ElementsAre("a,b", "say \"hi\"", "")));
}

TEST(CsvReader, CountsTheLinesInsideQuotedFields) {
  const Parsed parsed = Parse("\"one\ntwo\r\nthree\",x\nlast\n");
  EXPECT_THAT(parsed.records,
              ElementsAre(ElementsAre("one\ntwo\r\nthree", "x"), ElementsAre("last")));
  EXPECT_THAT(parsed.lines, ElementsAre(1, 4));
}

TEST(CsvReader, PassesOverEmptyLinesAndCountsThem) {
  const Parsed parsed = Parse("\n\r\na\n\n\nb\n\n");
  EXPECT_THAT(parsed.records, ElementsAre(ElementsAre("a"), ElementsAre("b")));
  EXPECT_THAT(parsed.lines, ElementsAre(3, 6));
}

TEST(CsvReader, PassesOverAByteOrderMark) {
  EXPECT_THAT(Parse("\xEF\xBB\xBFid\n").records, ElementsAre(ElementsAre("id")));
}

TEST(CsvReader, GivesNothingForAnEmptyText) {
  EXPECT_TRUE(Parse("").records.empty());
  EXPECT_FALSE(Parse("").problem);
}

TEST(CsvReader, RefusesAQuotationMarkInsideAPlainField) {
  const Parsed parsed = Parse("a\nb\"c\nd\n");
  EXPECT_THAT(parsed.records, ElementsAre(ElementsAre("a")));
  ASSERT_TRUE(parsed.problem);
  EXPECT_EQ(parsed.problem->line, 2u);
}

TEST(CsvReader, RefusesTextBehindAClosingQuotationMark) {
  ASSERT_TRUE(Parse("\"a\"b\n").problem);
  EXPECT_EQ(Parse("x\n\"a\nb\" ,c\n").problem->line, 3u);
}

TEST(CsvReader, NamesTheLineWhereAnUnclosedFieldStarts) {
  const Parsed parsed = Parse("a\n\"b\nc\nd\n");
  ASSERT_TRUE(parsed.problem);
  EXPECT_EQ(parsed.problem->line, 2u);
  EXPECT_THAT(parsed.problem->message, testing::HasSubstr("never closed"));
}

TEST(CsvReader, StaysAtItsProblem) {
  CsvReader reader("a\"\nb\n");
  CsvRecord record;
  EXPECT_FALSE(reader.Next(record));
  EXPECT_FALSE(reader.Next(record));
}

TEST(CsvReader, RefusesARecordOfTooManyFields) {
  EXPECT_FALSE(Parse(std::string(kMaxCsvFields - 1, ',')).problem);
  const Parsed parsed = Parse("a\n" + std::string(kMaxCsvFields, ','));
  EXPECT_THAT(parsed.records, ElementsAre(ElementsAre("a")));
  ASSERT_TRUE(parsed.problem);
  EXPECT_EQ(parsed.problem->line, 2u);
}

TEST(CsvReader, EndsAtEveryCutOfATable) {
  const std::string table = "id,name\r\n1,\"Fish, \"\"fresh\"\"\"\r\n2,\"two\nlines\"\n";
  for (std::size_t length = 0; length <= table.size(); ++length) {
    const Parsed parsed = Parse(table.substr(0, length));
    EXPECT_LE(parsed.records.size(), 3u) << length;
  }
}

TEST(AppendCsvRecord, QuotesOnlyWhatNeedsIt) {
  std::string text;
  AppendCsvRecord(text, {"1", "plain text", "a,b", "say \"hi\"", "two\nlines", ""});
  EXPECT_EQ(text, "1,plain text,\"a,b\",\"say \"\"hi\"\"\",\"two\nlines\",\n");
}

TEST(AppendCsvRecord, DoesNotWriteAnEmptyLine) {
  std::string text;
  AppendCsvRecord(text, {""});
  EXPECT_EQ(text, "\"\"\n");
}

}  // namespace
}  // namespace brovanta::server

#include "data/framed_file.h"

#include <gmock/gmock.h>

#include "tests/support/temp_folder.h"

namespace brovanta::data_tool {
namespace {

using test::Hex;
using test::Join;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::string Text(const test::Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

const test::Bytes kMagic = Hex("81 38 01 00");
const test::Bytes kMark = Hex("82 38 01 00");
const test::Bytes kEnd = Hex("83 38 01 00");

std::string TwoItems() {
  return Text(Join({kMagic, kMark, test::Run(64, 1), kMark, test::Run(64, 2), kEnd}));
}

TEST(FramedFileTest, ListsHaveRecordsOnly) {
  const std::string bytes = TwoItems();
  const FramedFile file = TakeApart(bytes, kListFrame);
  ASSERT_THAT(file.records, SizeIs(2));
  EXPECT_EQ(file.records[1], Text(test::Run(64, 2)));
  EXPECT_EQ(file.damage, std::nullopt);
  EXPECT_THAT(file.behind_end, IsEmpty());
  EXPECT_EQ(PutTogether(file, kListFrame), bytes);
}

TEST(FramedFileTest, RecordFilesHaveALastId) {
  const std::string bytes =
      Text(Join({kMagic, Hex("ff ff ff ff"), kMark, test::Run(400, 7), kEnd}));
  const FramedFile file = TakeApart(bytes, kDiscountFrame);
  EXPECT_EQ(file.last_id, -1);
  ASSERT_THAT(file.records, SizeIs(1));
  EXPECT_EQ(PutTogether(file, kDiscountFrame), bytes);
  const std::string empty = Text(Join({kMagic, Hex("00 00 00 00"), kEnd}));
  EXPECT_EQ(PutTogether(TakeApart(empty, kProductFrame), kProductFrame), empty);
}

TEST(FramedFileTest, ResultsTellTheirOwnSize) {
  const test::Bytes result = Join({test::Run(14), Hex("03 00 00 00 41 42 00"), test::Run(12)});
  const std::string bytes = Text(Join({kMagic, kMark, result, kMark, test::Run(30), kEnd}));
  const FramedFile file = TakeApart(bytes, kResultsFrame);
  ASSERT_THAT(file.records, SizeIs(2));
  EXPECT_EQ(file.records[0], Text(result));
  EXPECT_EQ(PutTogether(file, kResultsFrame), bytes);
}

TEST(FramedFileTest, BytesBehindTheEndAreKept) {
  const std::string bytes = TwoItems() + "more";
  const FramedFile file = TakeApart(bytes, kListFrame);
  EXPECT_EQ(file.damage, std::nullopt);
  EXPECT_EQ(file.behind_end, "more");
  EXPECT_EQ(PutTogether(file, kListFrame), bytes);
}

TEST(FramedFileTest, OfADamagedFileItHasWhatStandsInFront) {
  const std::string bytes = TwoItems();
  const FramedFile cut = TakeApart(std::string_view(bytes).substr(0, 100), kListFrame);
  ASSERT_THAT(cut.records, SizeIs(1));
  EXPECT_EQ(cut.damage, "the file is cut off: it ends within a record (byte 76)");
  const FramedFile foreign = TakeApart("no file of ours", kListFrame);
  EXPECT_THAT(foreign.records, IsEmpty());
  EXPECT_THAT(foreign.damage.value(), HasSubstr("this is no file of the program (byte 0)"));
  const std::string results = Text(Join({kMagic, kMark, test::Run(14)}));
  EXPECT_THAT(TakeApart(results, kResultsFrame).damage.value(), HasSubstr("within a result"));
}

TEST(FramedFileTest, CutAnywhereItIsDamagedAndNothingIsReadBeyondItsEnd) {
  const std::string bytes = TwoItems();
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const std::string cut = bytes.substr(0, size);
    EXPECT_TRUE(TakeApart(cut, kListFrame).damage) << size;
    EXPECT_TRUE(TakeApart(cut, kProductFrame).damage) << size;
    EXPECT_TRUE(TakeApart(cut, kResultsFrame).damage) << size;
  }
}

}  // namespace
}  // namespace brovanta::data_tool

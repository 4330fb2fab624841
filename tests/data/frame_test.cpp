#include "data/frame.h"

#include <gmock/gmock.h>

#include "db/record_format.h"
#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

using test::Hex;
using test::Join;
using testing::ElementsAre;
using testing::IsEmpty;

const test::Bytes kMagic = Hex("81 38 01 00");
const test::Bytes kRecord = Hex("82 38 01 00");
const test::Bytes kEnd = Hex("83 38 01 00");
const test::Bytes kLastId = Hex("07 00 00 00");

struct Walk {
  bool whole = false;
  std::vector<std::size_t> places;
  std::vector<std::string> lines;
};

/// Records of four bytes behind a LastId.
Walk WalkOver(const test::Bytes& bytes, Frame frame = {4, kFirstRecordMark}) {
  Walk walk;
  std::vector<Finding> findings;
  FileNotes notes("f", findings);
  walk.whole = WalkFrame(bytes, frame, notes, [&](std::size_t byte, FileBytes rest) {
    walk.places.push_back(byte);
    return rest.size() >= 6 ? std::optional<std::size_t>(6) : std::nullopt;
  });
  walk.lines = test::Lines(findings);
  return walk;
}

TEST(WalkFrameTest, TakesEveryRecordOfAWholeFile) {
  const Walk walk =
      WalkOver(Join({kMagic, kLastId, kRecord, test::Run(4), kRecord, test::Run(4), kEnd}));
  EXPECT_TRUE(walk.whole);
  EXPECT_THAT(walk.places, ElementsAre(12, 20));
  EXPECT_THAT(walk.lines, IsEmpty());
}

TEST(WalkFrameTest, AnEmptyFileOfTheProgramIsWhole) {
  EXPECT_TRUE(WalkOver(Join({kMagic, kLastId, kEnd})).whole);
  EXPECT_TRUE(WalkOver(Join({kMagic, kEnd}), {64, kFirstListMark}).whole);
}

TEST(WalkFrameTest, TellsTheSizeOfAFileThatIsTooShort) {
  const Walk walk = WalkOver(Hex("81 38"));
  EXPECT_FALSE(walk.whole);
  EXPECT_THAT(walk.lines, ElementsAre("error f 0 #-: the file has 2 bytes, too few for any"));
  EXPECT_THAT(WalkOver(Join({kMagic, test::Run(3)})).lines,
              ElementsAre("error f 4 #-: the file ends within LastId"));
}

TEST(WalkFrameTest, TellsAForeignFile) {
  EXPECT_THAT(
      WalkOver(Join({kEnd, kLastId, kEnd})).lines,
      ElementsAre("error f 0 #-: the first word is 80003 and not 80001: this is no file of the "
                  "program"));
}

TEST(WalkFrameTest, TellsWhereAMarkIsWrong) {
  const Walk walk = WalkOver(Join({kMagic, kLastId, kRecord, test::Run(4), test::Run(4, 1), kEnd}));
  EXPECT_FALSE(walk.whole);
  EXPECT_THAT(walk.places, ElementsAre(12));
  EXPECT_THAT(walk.lines, ElementsAre("error f 16 #-: the word 16843009 stands where a mark should "
                                      "be; nothing behind it can be read"));
}

TEST(WalkFrameTest, TellsWhereAFileIsCutOff) {
  EXPECT_THAT(WalkOver(Join({kMagic, kLastId})).lines,
              ElementsAre("error f 8 #-: the file is cut off: it ends where a mark should stand"));
  EXPECT_THAT(WalkOver(Join({kMagic, kLastId, kRecord, test::Run(3)})).lines,
              ElementsAre("error f 12 #-: the file is cut off: it ends within a record"));
}

TEST(WalkFrameTest, TellsWhatStandsBehindTheEnd) {
  const test::Bytes bytes = Join({kMagic, kLastId, kEnd, test::Run(5)});
  EXPECT_TRUE(WalkOver(bytes).whole);
  EXPECT_THAT(WalkOver(bytes).lines,
              ElementsAre("error f 12 #-: 5 bytes stand behind the end mark: nothing can be added "
                          "to the file"));
  EXPECT_THAT(WalkOver(bytes, {4, kFirstRecordMark, Severity::kWarning}).lines,
              ElementsAre("warning f 12 #-: 5 bytes stand behind the end mark"));
}

TEST(WalkFrameTest, RecordsMayTellTheirOwnSize) {
  const Frame own{0, kFirstListMark};
  const Walk walk =
      WalkOver(Join({kMagic, kRecord, test::Run(6), kRecord, test::Run(6), kEnd}), own);
  EXPECT_TRUE(walk.whole);
  EXPECT_THAT(walk.places, ElementsAre(8, 18));
  EXPECT_FALSE(WalkOver(Join({kMagic, kRecord, test::Run(5)}), own).whole);
}

}  // namespace
}  // namespace brovanta::data_tool

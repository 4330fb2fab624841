#include "data/check_journal.h"

#include <gmock/gmock.h>

#include "db/journal_format.h"
#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> LookAt(const test::Bytes& bytes, std::size_t product_bytes = 12) {
  std::vector<Finding> findings;
  FileNotes notes("backup.dat", findings);
  const auto read = [&](const std::string& name, std::string& text) {
    if (name == "held.dat") return platform::QuietResult::kHeld;
    if (name != "product.dat") return platform::QuietResult::kMissing;
    text.assign(product_bytes, 'x');
    return platform::QuietResult::kRead;
  };
  CheckJournal(bytes, read, notes);
  return test::Lines(findings);
}

const UndoRecord kChange{UndoKind::kOverwritten, "product.dat", 12, 4, test::Run(4)};

TEST(CheckJournalTest, AnEmptyJournalIsAsItShouldBe) {
  EXPECT_THAT(LookAt({}), IsEmpty());
  EXPECT_THAT(LookAt(EncodeEmptyJournal()), IsEmpty());
  EXPECT_THAT(LookAt(test::Join({EncodeEmptyJournal(), test::Bytes(40)})), IsEmpty())
      << "emptied, and to be cut";
}

TEST(CheckJournalTest, TellsOfAChangeThatWaitsToBeUndone) {
  const UndoRecord made{UndoKind::kMade, "purchase.dat", 0, 0, {}};
  EXPECT_THAT(LookAt(EncodeJournal(std::vector{kChange, made})),
              ElementsAre("warning backup.dat 0 #-: a change was left in the middle; the program "
                          "undoes it at its next start, in product.dat, purchase.dat"));
}

TEST(CheckJournalTest, TellsWhenTheFilesAreOthers) {
  EXPECT_THAT(LookAt(EncodeJournal(std::vector{kChange}), 11),
              ElementsAre(HasSubstr("but not in these files (product.dat)")));
}

TEST(CheckJournalTest, TellsWhenAFileHasGrownSinceTheChange) {
  UndoRecord change = kChange;
  change.old_bytes = test::Bytes(4, std::byte{'x'});
  // The CRC-32 of "xxxx", four zeros and "xxxx".
  change.after = AfterChange{15, 0xFEC69D19, test::Bytes(4, std::byte{'x'})};
  EXPECT_THAT(LookAt(EncodeJournal(std::vector{change}), 15),
              ElementsAre(HasSubstr("undoes it at its next start")));
  EXPECT_THAT(LookAt(EncodeJournal(std::vector{change}), 16),
              ElementsAre(HasSubstr("but not in these files (product.dat)")));
}

TEST(CheckJournalTest, WhatMayBeSomebodyElsesIsUndone) {
  const UndoRecord made{UndoKind::kMade, "product.dat", 0, 0, {}, AfterChange{20, 0, {}}};
  UndoRecord written = made;
  written.offset = 8;
  written.after->bytes = test::Bytes(12, std::byte{'n'});
  EXPECT_THAT(LookAt(EncodeJournal(std::vector{made, written})),
              ElementsAre(HasSubstr("undoes it at its next start")));
}

TEST(CheckJournalTest, OfAFileThatIsHeldOrMissingItSaysWhatTheProgramWillDo) {
  UndoRecord change = kChange;
  change.name = "held.dat";
  EXPECT_THAT(LookAt(EncodeJournal(std::vector{change})), ElementsAre(HasSubstr("undoes it")));
  change.name = "none.dat";
  EXPECT_THAT(LookAt(EncodeJournal(std::vector{change})), ElementsAre(HasSubstr("sets the")));
}

TEST(CheckJournalTest, TellsOfAForeignOrTornJournal) {
  const test::Bytes whole = EncodeJournal(std::vector{kChange});
  for (std::size_t size = 1; size < whole.size(); ++size) {
    if (size == journal_layout::kEmptySize) continue;
    const test::Bytes torn(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_THAT(LookAt(torn), ElementsAre(HasSubstr("sets it aside"))) << size;
  }
}

TEST(CheckLeftOversTest, NotesWhatWasSetAsideAndWhatWasLeftBehind) {
  std::vector<Finding> findings;
  CheckLeftOvers({"backup.dat.bad", "mine.txt", "product.dat", "store.lst.aB3dE6", "store.lst.bad2",
                  "store.lst.old", "unit.lst.longer-name"},
                 findings);
  EXPECT_THAT(
      test::Lines(findings),
      ElementsAre(
          "note backup.dat.bad - #-: a journal that the program did not follow: not written "
          "to its end, none of its own, or of other files than those that stood there; it "
          "may hold what files held",
          "note store.lst.aB3dE6 - #-: left behind by a program that ended while it wrote; "
          "nothing reads it",
          "note store.lst.bad2 - #-: kept by the program: it could not be read, or a change undone "
          "in it may have been somebody's"));
}

TEST(CheckLeftOversTest, LooksIntoTheFolderOfTheResultsAsWell) {
  std::vector<Finding> findings;
  CheckResultLeftOvers({"2.dat", "2.dat.aB3dE6", "12.dat.bad", "02.dat.aB3dE6", "2.dat.longer-name",
                        "mine.dat.aB3dE6", "mine.txt"},
                       findings);
  EXPECT_THAT(test::Lines(findings),
              ElementsAre("note WebSearch/2.dat.aB3dE6 - #-: left behind by a program that ended "
                          "while it wrote; nothing reads it",
                          "note WebSearch/12.dat.bad - #-: kept by the program: it could not be "
                          "read, or a change undone in it may have been somebody's"));
}

}  // namespace
}  // namespace brovanta::data_tool

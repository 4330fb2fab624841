// A folder with a journal in it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/journal.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

inline constexpr char kJournal[] = "backup.dat";

class JournalFixture : public testing::Test {
 protected:
  std::string Path(const char* name = kJournal) const { return folder_.path() + "\\" + name; }

  void WriteJournal(const std::vector<UndoRecord>& records) const {
    folder_.Write(kJournal, EncodeJournal(records));
  }
  void ExpectEmptyJournal() const { EXPECT_EQ(folder_.Read(kJournal), EncodeEmptyJournal()); }

  TempFolder folder_;
};

}  // namespace brovanta::test

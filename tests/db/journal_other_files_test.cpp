// A journal beside files that are not those of its change any more.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "db/error_codes.h"
#include "db/journal.h"
#include "db/record_format.h"
#include "db/shopping_database.h"
#include "db/unit_of_work.h"
#include "platform/text_file.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"
#include "util/crc32.h"
#include "util/little_endian.h"

namespace brovanta {
namespace {

using platform::SystemCallsInUse;
using test::Bytes;
using test::Fault;
using test::FaultyCalls;
using test::Hex;
using test::Join;
using test::TempFolder;

class JournalOtherFilesTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      folder_.Write(list, NameList().Encode());
    }
  }

  std::string Path(const char* name) const { return folder_.path() + "\\" + name; }

  bool AddProduct() const {
    ShoppingDatabase database;
    ProductFields fields;
    fields.name = "Milk";
    return database.Open(folder_.path()) == 0 &&
           database.products().Add(kProductKind, fields).has_value();
  }

  /// Whether there is a journal to be followed, or one that was not written to its end.
  bool HasRecords() const {
    const auto journal = folder_.Read("backup.dat");
    return journal && journal->size() > journal_layout::kEmptySize && !IsEmptiedJournal(*journal);
  }

  /// Does the work in a program of its own that ends before its k-th call. False when it ran
  /// through.
  bool EndAt(int k, const std::function<void()>& work) const {
    FaultyCalls calls(Fault::kStop, k);
    const pid_t child = fork();
    EXPECT_GE(child, 0);
    if (child == 0) {
      const SystemCallsInUse in_use(calls);
      work();
      _exit(1);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return status == 0;
  }

  /// Ends an addition at every call, lets someone else change the file whenever there is something
  /// to undo, and expects that his file stands. So often there was: how often depends on the hour,
  /// since files that are older than three seconds are read once less.
  int ChangeTheFileBehindTheJournal(const std::function<Bytes(const Bytes&)>& change) {
    int times = 0;
    EXPECT_TRUE(AddProduct());
    const Bytes product = *folder_.Read("product.dat");
    for (int k = 1;; ++k) {
      folder_.Write("product.dat", product);
      std::filesystem::remove(folder_.File("backup.dat"));
      const bool ended = EndAt(k, [this] { (void)AddProduct(); });
      if (!ended) return times;
      if (!HasRecords()) continue;
      const auto journal = folder_.Read("backup.dat");
      const Bytes theirs = change(*folder_.Read("product.dat"));
      folder_.Write("product.dat", theirs);
      EXPECT_EQ(RollBackJournal(Path("backup.dat")), 0) << k;
      EXPECT_EQ(folder_.Read("product.dat"), theirs) << k;
      EXPECT_FALSE(folder_.Read("backup.dat")) << k;
      EXPECT_EQ(folder_.Read("backup.dat.bad"), journal) << k;
      std::filesystem::remove(folder_.File("backup.dat.bad"));
      ++times;
    }
  }

  TempFolder folder_;
};

TEST_F(JournalOtherFilesTest, AFileThatWasMadeLongerIsLeftAlone) {
  const auto longer = [](const Bytes& file) { return Join({file, Bytes(1000)}); };
  EXPECT_GE(ChangeTheFileBehindTheJournal(longer), 1);
}

TEST_F(JournalOtherFilesTest, AnotherFileOfAFittingSizeIsLeftAlone) {
  const auto another = [](const Bytes& file) {
    Bytes bytes = file;
    bytes[100] = std::byte{'?'};  // in the record that the change leaves alone
    return bytes;
  };
  EXPECT_GE(ChangeTheFileBehindTheJournal(another), 1);
}

TEST_F(JournalOtherFilesTest, ARecordThatAnotherProgramAddedIsLeftAlone) {
  // 472 bytes have become 932, as here, but they are others.
  const auto added = [](const Bytes& file) {
    Bytes bytes = file;
    bytes.resize(932);
    std::fill(bytes.begin() + 472, bytes.end(), std::byte{'m'});
    StoreLittle(bytes.data() + 468, RECORD_MARK);
    StoreLittle(bytes.data() + 928, END_MARK);
    return bytes;
  };
  EXPECT_GE(ChangeTheFileBehindTheJournal(added), 1);
}

// Some file systems publish a new size before its bytes.
TEST_F(JournalOtherFilesTest, WhatADeviceLeftBehindTheOldEndIsRolledBack) {
  ASSERT_TRUE(AddProduct());
  const Bytes product = *folder_.Read("product.dat");
  Bytes journal;  // of the whole change: the last one that there was
  for (int k = 1;; ++k) {
    folder_.Write("product.dat", product);
    std::filesystem::remove(folder_.File("backup.dat"));
    if (!EndAt(k, [this] { (void)AddProduct(); })) break;
    if (HasRecords()) journal = *folder_.Read("backup.dat");
  }
  ASSERT_FALSE(journal.empty());
  for (const std::uint32_t mark : {END_MARK, RECORD_MARK}) {
    Bytes torn = product;
    StoreLittle(torn.data() + 468, mark);
    torn.resize(932, std::byte{'Z'});
    folder_.Write("product.dat", torn);
    folder_.Write("backup.dat", journal);
    EXPECT_EQ(RollBackJournal(Path("backup.dat")), 0);
    EXPECT_EQ(folder_.Read("product.dat"), product);
    EXPECT_FALSE(folder_.Read("backup.dat.bad"));
  }
}

TEST_F(JournalOtherFilesTest, WithoutAnotherHandTheSameStatesAreRolledBack) {
  ASSERT_TRUE(AddProduct());
  const auto product = folder_.Read("product.dat");
  int times = 0;
  for (int k = 1;; ++k) {
    folder_.Write("product.dat", *product);
    std::filesystem::remove(folder_.File("backup.dat"));
    if (!EndAt(k, [this] { (void)AddProduct(); })) break;
    if (!HasRecords()) continue;
    EXPECT_EQ(RollBackJournal(Path("backup.dat")), 0) << k;
    // Ended within the records of the journal, nothing was to be put back.
    EXPECT_EQ(folder_.Read("product.dat"), product) << k;
    EXPECT_FALSE(folder_.Read("backup.dat.bad")) << k;
    ++times;
  }
  EXPECT_GE(times, 1);
}

TEST_F(JournalOtherFilesTest, AListThatWasReplacedSinceIsLeftAlone) {
  folder_.WriteText("a.lst", "old");
  folder_.WriteText("b.lst", "old");
  int times = 0;
  for (int k = 1;; ++k) {
    folder_.WriteText("a.lst", "old");
    std::filesystem::remove(folder_.File("c.lst"));
    const auto work = [this] {
      UnitOfWork unit(Path("backup.dat"));
      unit.Replace(Path("a.lst"), Hex("41"));
      unit.Replace(Path("c.lst"), Hex("42"));
      unit.Remove(Path("b.lst"));
      (void)unit.Commit();
    };
    if (!EndAt(k, work)) break;
    if (!HasRecords()) continue;
    for (const char* theirs : {"a.lst", "c.lst", "b.lst"}) {
      const auto journal = folder_.Read("backup.dat");
      const auto before = folder_.Read(theirs);
      folder_.WriteText(theirs, "theirs");
      EXPECT_EQ(RollBackJournal(Path("backup.dat")), 0) << k;
      EXPECT_EQ(folder_.ReadText(theirs), "theirs") << k;
      EXPECT_EQ(folder_.Read("backup.dat.bad"), journal) << k;
      std::filesystem::remove(folder_.File("backup.dat.bad"));
      if (before) {
        folder_.Write(theirs, *before);
      } else {
        std::filesystem::remove(folder_.File(theirs));
      }
      folder_.Write("backup.dat", *journal);
      ++times;
    }
    EXPECT_EQ(RollBackJournal(Path("backup.dat")), 0) << k;
    EXPECT_EQ(folder_.ReadText("a.lst"), "old") << k;
    EXPECT_EQ(folder_.ReadText("b.lst"), "old") << k;
    EXPECT_FALSE(folder_.ReadText("c.lst")) << k;
  }
  EXPECT_GE(times, 9);
}

/// A new file that is made and written to, and one that has grown from 512 bytes; of both the
/// device shows what the change did not write.
struct DoubtfulFiles {
  DoubtfulFiles() {
    const Bytes mark = Hex("82 38 01 00");
    const Bytes end = Hex("83 38 01 00");
    old = Join({Bytes(508, std::byte{'o'}), end});
    torn = Join({Bytes(508, std::byte{'o'}), mark, Bytes(84, std::byte{'?'}), end});
    UndoRecord grown{UndoKind::kOverwritten, "old.dat", 512, 508, end};
    grown.after = AfterChange{600, 0, Join({mark, Bytes(84, std::byte{'n'}), end})};
    grown.after->sum = Crc32(Join({Bytes(508, std::byte{'o'}), Bytes(4)}));
    UndoRecord made{UndoKind::kMade, "made.dat", 0, 0, {}};
    made.after = AfterChange{20, 0, Hex("81 38 01 00 00 00 00 00 83 38 01 00")};
    UndoRecord written{UndoKind::kMade, "made.dat", 0, 8, {}};
    written.after = AfterChange{20, 0, Join({mark, Hex("6e 6e 6e 6e"), end})};
    journal = EncodeJournal(std::vector{grown, made, written});
  }
  void Write(const TempFolder& folder) const {
    folder.Write("old.dat", torn);
    folder.WriteText("made.dat", "zzzz");
    folder.Write("backup.dat", journal);
  }
  Bytes old, torn, journal;
};

TEST_F(JournalOtherFilesTest, WhatMayBeSomebodyElsesIsKeptBeforeItIsUndone) {
  const DoubtfulFiles files;
  for (int k = 1;; ++k) {
    files.Write(folder_);
    for (const char* name : {"old.dat", "made.dat"}) {
      std::filesystem::remove(folder_.File(std::string(name) + ".bad"));
      std::filesystem::remove(folder_.File(std::string(name) + ".bad2"));
    }
    FaultyCalls calls(Fault::kIo, k);
    int code = 0;
    {
      const SystemCallsInUse in_use(calls);
      code = RollBackJournal(Path("backup.dat"));
    }
    if (code != 0) {
      ASSERT_EQ(RollBackJournal(Path("backup.dat")), 0) << k;
    }
    EXPECT_EQ(folder_.Read("old.dat"), files.old) << k;
    EXPECT_FALSE(folder_.Read("made.dat")) << k;
    // Where it could not be seen that the first name is free, the next one was taken.
    const auto kept_once = [this](const std::string& name) {
      const auto first = folder_.Read(name + ".bad");
      const auto second = folder_.Read(name + ".bad2");
      EXPECT_NE(first.has_value(), second.has_value()) << name;
      return first ? first : second;
    };
    EXPECT_EQ(kept_once("old.dat"), files.torn) << k;
    EXPECT_EQ(kept_once("made.dat"), Bytes(4, std::byte{'z'})) << k;
    EXPECT_FALSE(MayHoldRecords(Path("backup.dat"))) << k;
    if (!calls.has_struck()) break;
  }
}

TEST_F(JournalOtherFilesTest, WhatIsTooLargeToBeKeptIsSomebodyElses) {
  const DoubtfulFiles files;
  files.Write(folder_);
  constexpr std::int64_t kSize = platform::kLargestWholeFile + 1;
  UndoRecord made{UndoKind::kMade, "made.dat", 0, 0, {}};
  made.after = AfterChange{kSize, 0, Hex("81 38 01 00")};
  UndoRecord written{UndoKind::kMade, "made.dat", 0, 8, {}};
  written.after = AfterChange{kSize, 0, Hex("82 38 01 00")};
  folder_.Write("backup.dat", EncodeJournal(std::vector{made, written}));
  std::filesystem::resize_file(folder_.File("made.dat"), kSize);
  EXPECT_EQ(RollBackJournal(Path("backup.dat")), 0);
  EXPECT_EQ(std::filesystem::file_size(folder_.File("made.dat")), kSize);
  EXPECT_TRUE(folder_.Read("backup.dat.bad"));
}

// Its name is in two records; after the first of them somebody else may make one.
TEST_F(JournalOtherFilesTest, AFileThatSomebodyMakesBehindTheRemovalStays) {
  class Faster : public platform::SystemCalls {
   public:
    explicit Faster(const TempFolder& folder) : folder_(folder) {}
    int Remove(const char* path) override {
      const int result = SystemCalls::Remove(path);
      if (result == 0) folder_.WriteText("made.dat", "somebody's");
      return result;
    }

   private:
    const TempFolder& folder_;
  };
  const DoubtfulFiles files;
  files.Write(folder_);
  Faster calls(folder_);
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(RollBackJournal(Path("backup.dat")), 0);
  EXPECT_EQ(folder_.ReadText("made.dat"), "somebody's");
}

TEST_F(JournalOtherFilesTest, WhatCannotBeKeptIsNotUndone) {
  const DoubtfulFiles files;
  files.Write(folder_);
  FaultyCalls calls(Fault::kFull, 1);
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(RollBackJournal(Path("backup.dat")), ERR_IO);
  EXPECT_EQ(folder_.Read("old.dat"), files.torn);
  EXPECT_EQ(folder_.ReadText("made.dat"), "zzzz");
  EXPECT_EQ(folder_.Read("backup.dat"), files.journal);
}

// Its blocks may be those of the next file that is made.
TEST_F(JournalOtherFilesTest, AFileThatWasMadeAndWrittenToIsWipedBeforeItIsRemoved) {
  class Watch : public platform::SystemCalls {
   public:
    explicit Watch(const TempFolder& folder) : folder_(folder) {}
    int Sync(int /*descriptor*/) override {
      synced = folder_.Read("made.dat").value_or(synced);
      return 0;
    }
    Bytes synced;

   private:
    const TempFolder& folder_;
  };
  const DoubtfulFiles files;
  files.Write(folder_);
  Watch calls(folder_);
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(RollBackJournal(Path("backup.dat")), 0);
  EXPECT_EQ(calls.synced, Bytes(4));
}

TEST_F(JournalOtherFilesTest, WhatNobodyCouldPutBackIsNotBegun) {
  std::filesystem::create_directory(folder_.File("WebSearch"));
  folder_.WriteText("WebSearch/notes.txt", "old");
  UnitOfWork work(Path("backup.dat"));
  work.Replace(Path("WebSearch\\notes.txt"), Hex("41"));
  work.Replace(Path("a.lst"), Hex("41"));
  EXPECT_NE(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("WebSearch/notes.txt"), "old");
  EXPECT_FALSE(folder_.ReadText("a.lst"));
}

}  // namespace
}  // namespace brovanta

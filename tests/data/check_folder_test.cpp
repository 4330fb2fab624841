#include "data/check_folder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>

#include "db/journal_format.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "platform/text_file.h"
#include "search/agent_configuration.h"
#include "search/results_file.h"
#include "tests/data/sample_folder.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/framed_file.h"
#include "tests/support/plain_user.h"

namespace brovanta::data_tool {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class CheckFolderTest : public testing::Test {
 protected:
  CheckFolderTest() { test::MakeHousehold(folder_.path()); }

  FolderReport Check() {
    std::string error;
    auto report = CheckFolder(folder_.path(), error);
    EXPECT_TRUE(report) << error;
    return report.value_or(FolderReport{});
  }
  std::vector<std::string> Findings() { return test::Lines(Check().findings); }
  std::string ErrorOf(const std::string& folder) {
    std::string error;
    EXPECT_FALSE(CheckFolder(folder, error));
    return error;
  }

  /// Whether an eye of the tests' own, or the program's reader, finds the file broken.
  bool IsBroken(const std::string& name) const {
    const std::string path = folder_.File(name);
    if (name.ends_with(".lst")) return !test::ReadFramedFile(path, false, 64);
    if (name == "product.dat" || name == "purchase.dat") {
      return !test::ReadFramedFile(path, true, 456);
    }
    if (name == "discount.dat") return !test::ReadFramedFile(path, true, 400);
    if (name == "websearch.dat") return !test::ReadFramedFile(path, true, 68);
    if (name == "webspider.xml") {
      AgentConfiguration configuration;
      return LoadAgentConfiguration(path, configuration) != 0;
    }
    SearchResultList results;
    return ReadSearchResults(results, path) != 0;
  }

  test::TempFolder folder_;
};

const std::vector<std::string> kAllFiles = {"store.lst",     "category.lst",    "unit.lst",
                                            "discount.dat",  "product.dat",     "purchase.dat",
                                            "websearch.dat", "WebSearch/2.dat", "webspider.xml"};

/// Every byte of the small files; of the others every byte is tried in every_byte_test.cpp.
std::size_t StepFor(const test::Bytes& bytes) { return bytes.size() < 300 ? 1 : 11; }

TEST_F(CheckFolderTest, AFolderThatTheProgramMadeIsWhole) {
  const FolderReport report = Check();
  EXPECT_THAT(test::Lines(report.findings), IsEmpty());
  EXPECT_TRUE(report.IsWhole());
  EXPECT_FALSE(report.in_use);
  std::vector<std::string> seen;
  for (const FileReport& file : report.files) {
    seen.push_back(file.name + " " + std::to_string(file.bytes) + " " +
                   std::to_string(file.records.value_or(0)) + " " +
                   std::to_string(file.deleted.value_or(0)));
  }
  // Frame and records: 12 + n * 404, 12 + n * 460, 12 + n * 72, 8 + n * 68.
  EXPECT_THAT(seen, Contains("store.lst 76 1 0"));
  EXPECT_THAT(seen, Contains("discount.dat 1628 4 1"));
  EXPECT_THAT(seen, Contains("product.dat 1392 3 1"));
  EXPECT_THAT(seen, Contains("purchase.dat 472 1 0"));
  EXPECT_THAT(seen, Contains("websearch.dat 228 3 1"));
  EXPECT_THAT(seen, Contains(HasSubstr("WebSearch/4.dat")));
  EXPECT_THAT(seen, Contains("backup.dat 8 0 0"));
}

TEST_F(CheckFolderTest, ChangesNothing) {
  folder_.Write("backup.dat", EncodeJournal(std::vector<UndoRecord>{
                                  {UndoKind::kOverwritten, "product.dat", 1392, 4, test::Run(4)}}));
  folder_.WriteText("store.lst", "damaged");
  fs::remove(folder_.File("unit.lst"));
  const auto before = test::PictureOf(folder_.path());
  EXPECT_FALSE(Check().IsWhole());
  EXPECT_EQ(test::PictureOf(folder_.path()), before);
}

TEST_F(CheckFolderTest, OnlyReadingCallsAreMade) {
  /// Refuses whatever could change something.
  class ReadingCalls : public platform::SystemCalls {
   public:
    int Open(const char* path, int flags, mode_t mode) override {
      EXPECT_EQ(flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC), 0) << path;
      return SystemCalls::Open(path, flags, mode);
    }
    int MakeTemporary(char* /*pattern*/) override { return Refuse(); }
    ssize_t WriteAt(int, const void*, std::size_t, off_t) override { return Refuse(); }
    int Truncate(int, off_t) override { return Refuse(); }
    int Rename(const char*, const char*) override { return Refuse(); }
    int Remove(const char*) override { return Refuse(); }
    int MakeFolder(const char*, mode_t) override { return Refuse(); }
    int RemoveFolder(const char*) override { return Refuse(); }

   private:
    static int Refuse() {
      ADD_FAILURE() << "a call that changes something";
      return -1;
    }
  };
  ReadingCalls calls;
  const platform::SystemCallsInUse in_use(calls);
  EXPECT_TRUE(Check().IsWhole());
}

TEST_F(CheckFolderTest, AFileCutAnywhereIsNeverWholeAndNeverChanged) {
  for (const std::string& name : kAllFiles) {
    const test::Bytes whole = folder_.Read(name).value();
    for (std::size_t size = 0; size < whole.size(); size += StepFor(whole)) {
      const test::Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
      folder_.Write(name, cut);
      const bool broken = IsBroken(name);
      ASSERT_TRUE(broken || name == "webspider.xml") << name << " " << size;
      ASSERT_FALSE(broken && Check().IsWhole()) << name << " cut to " << size;
      ASSERT_EQ(folder_.Read(name), cut);
    }
    folder_.Write(name, whole);
  }
  EXPECT_TRUE(Check().IsWhole());
}

TEST_F(CheckFolderTest, AByteChangedInTheFrameIsNeverWhole) {
  std::size_t broken_ones = 0;
  for (const std::string& name : kAllFiles) {
    const test::Bytes whole = folder_.Read(name).value();
    for (std::size_t at = 0; at < whole.size(); at += StepFor(whole)) {
      constexpr std::array kChanges{std::byte{0x01}, std::byte{0x80}, std::byte{0xFF}};
      test::Bytes bytes = whole;
      bytes[at] ^= kChanges[at % kChanges.size()];
      folder_.Write(name, bytes);
      const FolderReport report = Check();
      if (!IsBroken(name)) continue;
      ++broken_ones;
      ASSERT_FALSE(report.IsWhole()) << name << " byte " << at;
      ASSERT_EQ(folder_.Read(name), bytes);
    }
    folder_.Write(name, whole);
  }
  // Magic, marks of the records and end marks of the five small files alone.
  EXPECT_GE(broken_ones, 4U * (5U + 1U + 1U + 1U + 3U + 2U + 5U));
}

TEST_F(CheckFolderTest, BytesBehindTheEndAreFound) {
  for (const std::string& name : kAllFiles) {
    if (name == "webspider.xml") continue;
    const test::Bytes whole = folder_.Read(name).value();
    folder_.Write(name, test::Join({whole, test::Run(1)}));
    EXPECT_FALSE(Check().IsWhole()) << name;
    folder_.Write(name, whole);
  }
}

TEST_F(CheckFolderTest, NoCallThatFailsMakesItCrashOrChangeAnything) {
  const auto before = test::PictureOf(folder_.path());
  test::FaultyCalls counting;
  {
    const platform::SystemCallsInUse in_use(counting);
    EXPECT_TRUE(Check().IsWhole());
  }
  for (int at = 1; at <= counting.count(); ++at) {
    test::FaultyCalls calls(test::Fault::kIo, at);
    const platform::SystemCallsInUse in_use(calls);
    std::string error;
    (void)CheckFolder(folder_.path(), error);
  }
  EXPECT_EQ(test::PictureOf(folder_.path()), before);
}

TEST_F(CheckFolderTest, BadFoldersHaveNoReport) {
  EXPECT_EQ(ErrorOf(folder_.File("missing")), "No such file or directory");
  EXPECT_EQ(ErrorOf(folder_.File("product.dat")), "Not a directory");
  const test::TempFolder empty;
  EXPECT_EQ(ErrorOf(empty.path()), "there is no data file of the program in it");
  empty.WriteText("letter.txt", "Dear");
  EXPECT_EQ(ErrorOf(empty.path()), "there is no data file of the program in it");
}

TEST_F(CheckFolderTest, AFolderThatMayNotBeReadHasNoReport) {
  test::FaultyCalls calls(test::Fault::kIo, 4);  // the look into the folder
  const platform::SystemCallsInUse in_use(calls);
  EXPECT_EQ(ErrorOf(folder_.path()), "Input/output error");
}

TEST_F(CheckFolderTest, TheFolderOfAFirstStartIsWhole) {
  const test::TempFolder fresh;
  test::MakeEmptyLists(fresh.path());
  std::string error;
  EXPECT_TRUE(CheckFolder(fresh.path(), error).value().IsWhole());
}

TEST_F(CheckFolderTest, AMissingListIsNotedAndWhatRefersToItIsAWarning) {
  fs::remove(folder_.File("unit.lst"));
  EXPECT_THAT(Findings(),
              ElementsAre("note unit.lst - #-: the list is missing; the program makes it at its "
                          "next start",
                          "warning product.dat 344 #1: the unit 5000 is not in its list",
                          "warning purchase.dat 344 #1: the unit 5000 is not in its list"));
}

TEST_F(CheckFolderTest, WithoutDiscountsLinksLeadNowhere) {
  fs::remove(folder_.File("discount.dat"));
  EXPECT_THAT(Findings(), testing::SizeIs(2));
  folder_.WriteText("discount.dat", "damaged");
  EXPECT_THAT(Findings(), ElementsAre(HasSubstr("error discount.dat 0 #-: the first word")));
}

TEST_F(CheckFolderTest, IndexAndResultsAreCompared) {
  fs::rename(folder_.File("WebSearch/4.dat"), folder_.File("WebSearch/7.dat"));
  EXPECT_THAT(
      Findings(),
      ElementsAre("warning WebSearch/7.dat - #7: the index has no search of this number",
                  "warning websearch.dat - #4: its results file WebSearch/4.dat is missing"));
}

TEST_F(CheckFolderTest, ResultsWithoutAFolderAreMissing) {
  fs::remove_all(folder_.File("WebSearch"));
  EXPECT_THAT(Findings(), testing::SizeIs(2));
}

TEST_F(CheckFolderTest, AFileInThePlaceOfTheResultsFolderIsToldOfAndLeftAlone) {
  fs::remove_all(folder_.File("WebSearch"));
  folder_.WriteText("WebSearch", "no folder");
  EXPECT_THAT(Findings(),
              ElementsAre("error WebSearch - #-: a file stands where the folder of the web "
                          "searches should be: no search can be saved"));
  EXPECT_EQ(folder_.ReadText("WebSearch"), "no folder");
}

TEST_F(CheckFolderTest, AResultsFolderThatCannotBeLookedIntoIsAnotherError) {
  /// Refuses to tell what is in the folder of the results.
  class ClosedResults : public platform::SystemCalls {
   public:
    int ListFolder(const char* path, std::vector<std::string>& names) override {
      if (!std::string_view(path).ends_with("/WebSearch")) {
        return SystemCalls::ListFolder(path, names);
      }
      errno = EACCES;
      return -1;
    }
  };
  ClosedResults calls;
  const platform::SystemCallsInUse in_use(calls);
  EXPECT_THAT(Findings(), ElementsAre("error WebSearch - #-: the folder of the results cannot be "
                                      "looked into"));
}

TEST_F(CheckFolderTest, AgentsAreReadAsTheProgramReadsThem) {
  folder_.WriteText("webspider.xml", "<WebAgent></WebAgent>");
  EXPECT_THAT(Findings(), ElementsAre(HasSubstr("error webspider.xml - #-: the program refuses")));
  folder_.WriteText("webspider.xml", "");
  EXPECT_THAT(Findings(), ElementsAre(HasSubstr("warning webspider.xml - #-: there is no agent")));
}

TEST_F(CheckFolderTest, AWaitingJournalIsToldAndNotFollowed) {
  folder_.Write("backup.dat", EncodeJournal(std::vector<UndoRecord>{
                                  {UndoKind::kOverwritten, "product.dat", 1392, 4, test::Run(4)}}));
  EXPECT_THAT(Findings(), ElementsAre(HasSubstr("warning backup.dat 0 #-: a change was left in "
                                                "the middle; the program undoes it")));
  EXPECT_EQ(folder_.Read("product.dat")->at(4), std::byte{3});
}

TEST_F(CheckFolderTest, AHeldFileIsReportedAndTheRestIsLookedAt) {
  platform::File holder;
  ASSERT_TRUE(holder.Open(folder_.File("product.dat"), platform::File::Mode::kReadWrite));
  EXPECT_THAT(Findings(), ElementsAre("warning product.dat - #-: someone else has the file open "
                                      "just now: not looked at"));
}

TEST_F(CheckFolderTest, TellsThatTheProgramRuns) {
  platform::FolderLock program;
  ASSERT_EQ(program.Take(folder_.path()), platform::FolderLock::Outcome::kTaken);
  const FolderReport report = Check();
  EXPECT_TRUE(report.in_use);
  EXPECT_TRUE(report.IsWhole());
}

TEST_F(CheckFolderTest, WhileItReadsTheProgramMayStart) {
  /// Starts the program at each look at a file.
  class StartingCalls : public platform::SystemCalls {
   public:
    explicit StartingCalls(std::string folder) : folder_(std::move(folder)) {}
    ssize_t ReadAt(int descriptor, void* buffer, std::size_t size, off_t offset) override {
      platform::FolderLock program;
      EXPECT_EQ(program.Take(folder_), platform::FolderLock::Outcome::kTaken);
      ++starts;
      return SystemCalls::ReadAt(descriptor, buffer, size, offset);
    }
    int starts = 0;

   private:
    std::string folder_;
  };
  StartingCalls calls(folder_.path());
  const platform::SystemCallsInUse in_use(calls);
  EXPECT_TRUE(Check().IsWhole());
  EXPECT_GE(calls.starts, 9);
}

TEST_F(CheckFolderTest, AFileThatTheProgramCannotChangeIsToldOf) {
  for (const char* name : {"store.lst", "discount.dat", "product.dat", "purchase.dat",
                           "websearch.dat", "backup.dat"}) {
    fs::permissions(folder_.File(name), fs::perms::owner_read);
    EXPECT_THAT(Findings(), ElementsAre(std::string("error ") + name +
                                        " - #-: the file may not be written to: the program can "
                                        "change nothing in it"));
    fs::permissions(folder_.File(name), fs::perms::owner_read | fs::perms::owner_write);
  }
  for (const char* name : {"webspider.xml", "WebSearch/2.dat"}) {
    fs::permissions(folder_.File(name), fs::perms::owner_read);
    EXPECT_THAT(Findings(), ElementsAre(std::string("warning ") + name +
                                        " - #-: the file may not be written to: the program "
                                        "cannot replace it"));
    fs::permissions(folder_.File(name), fs::perms::owner_read | fs::perms::owner_write);
  }
}

TEST_F(CheckFolderTest, AFolderThatMayNotBeWrittenToIsAWarning) {
  constexpr auto kOthersRead = fs::perms::group_read | fs::perms::others_read;
  constexpr auto kOthersEnter = fs::perms::group_exec | fs::perms::others_exec;
  constexpr auto kAll = fs::perms::all;
  for (const auto& entry : fs::recursive_directory_iterator(folder_.path())) {
    fs::permissions(entry.path(), kAll);
  }
  fs::permissions(folder_.File("WebSearch"), fs::perms::owner_all | kOthersRead | kOthersEnter);
  fs::permissions(folder_.path(), fs::perms::owner_all | kOthersRead | kOthersEnter);
  if (geteuid() != 0)
    fs::permissions(folder_.path(), fs::perms::owner_read | fs::perms::owner_exec);
  {
    const test::PlainUser plain;
    ASSERT_TRUE(plain.active());
    EXPECT_THAT(Findings(),
                Contains("warning . - #-: the folder may not be written to: the program can make "
                         "and replace no file in it"));
  }
  fs::permissions(folder_.path(), fs::perms::owner_all);
}

TEST_F(CheckFolderTest, UsedUpIdsAreAnError) {
  for (const char* name : {"discount.dat", "product.dat", "purchase.dat", "websearch.dat"}) {
    const test::Bytes whole = folder_.Read(name).value();
    test::Bytes bytes = whole;
    const test::Bytes last = test::Hex("ff ff ff 7f");
    std::copy(last.begin(), last.end(), bytes.begin() + 4);
    folder_.Write(name, bytes);
    EXPECT_THAT(Findings(), ElementsAre(std::string("error ") + name +
                                        " 4 #-: LastId is 2147483647: all ids are given out, and "
                                        "nothing can be added any more"));
    folder_.Write(name, whole);
  }
}

TEST_F(CheckFolderTest, AFolderInThePlaceOfAFileIsAnError) {
  fs::remove(folder_.File("purchase.dat"));
  fs::create_directory(folder_.File("purchase.dat"));
  EXPECT_THAT(Findings(), ElementsAre("error purchase.dat - #-: it is no ordinary file, or may not "
                                      "be read"));
}

TEST_F(CheckFolderTest, ATooLargeFileIsNotReadIntoMemory) {
  fs::resize_file(folder_.File("purchase.dat"),
                  static_cast<std::uintmax_t>(platform::kLargestWholeFile) + 1);
  EXPECT_THAT(Findings(), ElementsAre(HasSubstr("larger than 256 MB")));
}

}  // namespace
}  // namespace brovanta::data_tool

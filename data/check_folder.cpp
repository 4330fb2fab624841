#include "data/check_folder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <functional>
#include <span>
#include <string_view>
#include <utility>

#include "data/check_journal.h"
#include "data/check_lists.h"
#include "data/check_records.h"
#include "data/check_searches.h"
#include "data/data_files.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "platform/quiet_read.h"
#include "search/agent_configuration.h"

namespace brovanta::data_tool {
namespace {

using platform::QuietResult;

// Why a file that is there was not read.
struct Refusal {
  Severity severity;
  const char* words;
};

Refusal RefusalOf(QuietResult result) {
  switch (result) {
    case QuietResult::kHeld:
      return {Severity::kWarning, "someone else has the file open just now: not looked at"};
    case QuietResult::kChanging:
      return {Severity::kWarning, "the file changes while it is read: not looked at"};
    case QuietResult::kRefused:
      return {Severity::kError, "it is no ordinary file, or may not be read"};
    case QuietResult::kTooLarge:
      return {Severity::kError, "the file is larger than 256 MB: not looked at"};
    case QuietResult::kRead:
    case QuietResult::kMissing:
    case QuietResult::kFailed:
      break;
  }
  return {Severity::kError, "the file cannot be read"};
}

// The files in which the program must be able to change something for a user to enter anything.
bool HoldsEntries(const std::string& name) {
  constexpr std::array<std::string_view, 8> kNames{kProductFile,     kPurchaseFile, kDiscountFile,
                                                   kSearchIndexFile, kJournalFile,  kStoreFile,
                                                   kCategoryFile,    kUnitFile};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

class FolderCheck {
 public:
  FolderCheck(std::string folder, FolderReport& report)
      : folder_(std::move(folder)), report_(report) {}

  void CheckAll(const std::vector<std::string>& names) {
    CheckWritable(".", folder_);
    KnownNames known;
    known.stores = CheckList(kStoreFile);
    known.categories = CheckList(kCategoryFile);
    known.units = CheckList(kUnitFile);
    CheckRecords(known);
    CheckSearches();
    With(kAgentFile, [](FileBytes bytes, FileReport& file, FileNotes& notes) {
      CheckAgents(bytes, file, notes);
    });
    With(kJournalFile, [this](FileBytes bytes, FileReport&, FileNotes& notes) {
      const auto read = [this](const std::string& name, std::string& text) {
        return platform::ReadQuietly(folder_ + "/" + name, text);
      };
      CheckJournal(bytes, read, notes);
    });
    CheckLeftOvers(names, report_.findings);
  }

 private:
  using Look = std::function<void(FileBytes, FileReport&, FileNotes&)>;

  // Reads the file and gives it to `look`. What became of it.
  FileState With(const std::string& name, const Look& look) {
    std::string text;
    const QuietResult result = platform::ReadQuietly(folder_ + "/" + name, text);
    FileReport file;
    file.name = name;
    FileNotes notes(name, report_.findings);
    if (result == QuietResult::kRead) {
      file.state = FileState::kRead;
      file.bytes = text.size();
      look(std::as_bytes(std::span(text)), file, notes);
    } else if (result != QuietResult::kMissing) {
      file.state = FileState::kNotRead;
      const Refusal refusal = RefusalOf(result);
      notes.Add(refusal.severity, refusal.words);
    }
    if (platform::IsReadOnlyFile(folder_ + "/" + name)) {
      const bool is_needed = HoldsEntries(name);
      notes.Add(is_needed ? Severity::kError : Severity::kWarning,
                is_needed ? "the file may not be written to: the program can change nothing in it"
                          : "the file may not be written to: the program cannot replace it");
    }
    report_.files.push_back(file);
    return file.state;
  }

  // Lists, agents, results and copies are made beside the old ones.
  void CheckWritable(const char* name, const std::string& folder) {
    if (!platform::IsFolder(folder) || platform::IsWritableFolder(folder)) return;
    FileNotes(name, report_.findings)
        .Add(Severity::kWarning,
             "the folder may not be written to: the program can make and replace no file in it");
  }

  KnownIds CheckList(const std::string& name) {
    KnownIds ids;
    const FileState state = With(name, [&](FileBytes bytes, FileReport& file, FileNotes& notes) {
      ids = CheckNameList(bytes, file, notes);
    });
    if (state == FileState::kMissing) {
      ids.emplace();
      FileNotes(name, report_.findings)
          .Add(Severity::kNote, "the list is missing; the program makes it at its next start");
    }
    return ids;
  }

  void CheckRecords(const KnownNames& known) {
    std::optional<DiscountIndex> discounts;
    const FileState state =
        With(kDiscountFile, [&](FileBytes bytes, FileReport& file, FileNotes& notes) {
          discounts = CheckDiscounts(bytes, known, file, notes);
        });
    if (state == FileState::kMissing) discounts.emplace();
    With(kProductFile, [&](FileBytes bytes, FileReport& file, FileNotes& notes) {
      CheckProducts(bytes, known, discounts ? &*discounts : nullptr, file, notes);
    });
    With(kPurchaseFile, [&](FileBytes bytes, FileReport& file, FileNotes& notes) {
      CheckProducts(bytes, known, nullptr, file, notes);
    });
  }

  void CheckSearches() {
    IndexedSearches index;
    const FileState state =
        With(kSearchIndexFile, [&](FileBytes bytes, FileReport& file, FileNotes& notes) {
          index = CheckSearchIndex(bytes, file, notes);
        });
    if (state == FileState::kNotRead) index.sound = false;
    const std::string folder = folder_ + "/" + kResultsFolder;
    const auto names = platform::NamesIn(folder);
    if (!names && errno != ENOENT) {
      const bool is_file = errno == ENOTDIR;
      FileNotes(kResultsFolder, report_.findings)
          .Add(Severity::kError,
               is_file ? "a file stands where the folder of the web searches should be: no search "
                         "can be saved"
                       : "the folder of the results cannot be looked into");
      return;
    }
    const std::vector<std::string> files = names.value_or(std::vector<std::string>());
    for (const std::string& name : files) {
      if (!SearchNumber(name)) continue;
      With(std::string(kResultsFolder) + "/" + name, CheckResults);
    }
    CheckResultLeftOvers(files, report_.findings);
    CheckWritable(kResultsFolder, folder);
    CompareWithIndex(index, files, report_.findings);
  }

  static void CheckAgents(FileBytes bytes, FileReport& file, FileNotes& notes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    AgentConfiguration configuration;
    const int code = ReadAgentConfiguration(text.substr(0, text.find('\0')), configuration);
    file.records = configuration.agents.size();
    if (code != 0) {
      notes.Add(Severity::kError,
                "the program refuses the file; brovanta-agent check tells which block is bad");
    } else if (configuration.agents.empty()) {
      notes.Add(Severity::kWarning, "there is no agent in the file: no shop can be searched");
    }
  }

  std::string folder_;
  FolderReport& report_;
};

// Whether anything among the names may be the data of a user.
bool HoldsData(const std::vector<std::string>& names) {
  return std::any_of(names.begin(), names.end(), [](const std::string& name) {
    return name == kResultsFolder ||
           std::find(kDataFiles.begin(), kDataFiles.end(), name) != kDataFiles.end();
  });
}

}  // namespace

std::optional<FolderReport> CheckFolder(const std::string& folder, std::string& error) {
  FolderReport report;
  {
    // Let go at once: a program that starts while the files are read is not kept waiting.
    platform::FolderLock lock;
    report.in_use = lock.Take(folder) == platform::FolderLock::Outcome::kHeld;
  }
  const auto names = platform::NamesIn(folder);
  if (!names) {
    error = std::strerror(errno);
    return std::nullopt;
  }
  if (!HoldsData(*names)) {
    error = "there is no data file of the program in it";
    return std::nullopt;
  }
  FolderCheck(folder, report).CheckAll(*names);
  return report;
}

}  // namespace brovanta::data_tool

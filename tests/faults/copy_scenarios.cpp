// Copies of a data folder: made, cleared away, brought back; and results that go with their search.
#include <filesystem>
#include <span>
#include <string_view>

#include "data/backup_folder.h"
#include "data/backup_names.h"
#include "data/daily_backup.h"
#include "data/restore.h"
#include "db/shopping_database.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "search/search_manager.h"
#include "tests/faults/scenario.h"
#include "tests/support/faulty_calls.h"

namespace brovanta::test {
namespace {

namespace fs = std::filesystem;

Bytes BytesOf(std::string_view text) {
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

std::string DataFolder(const std::string& folder) { return folder + "/data"; }

Snapshot DataOf(const std::string& folder) { return TakeSnapshot(DataFolder(folder)); }

/// The files of a copy; none when it is not there.
Snapshot CopyOf(const std::string& folder, const std::string& name) {
  const std::string path = BackupFolder(DataFolder(folder)).PathOf(name);
  return fs::is_directory(path) ? AllFiles(path) : Snapshot();
}

void WriteData(const TempFolder& folder) {
  fs::create_directories(folder.File("data/WebSearch"));
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder.Write(std::string("data/") + list, NameList().Encode());
  }
  folder.WriteText("data/product.dat", "products of today");
  folder.WriteText("data/WebSearch/2.dat", "results of today");
}

/// Whether each of the copies that there are has every byte; those of before as they were.
std::string WhatIsWrongWithCopies(const std::string& folder, const std::string& todays,
                                  const Snapshot& data) {
  std::map<std::string, Snapshot> copies;
  for (const auto& [path, bytes] : AllFiles(folder + "/data.backups")) {
    const std::size_t slash = path.find('/');
    copies[path.substr(0, slash)][path.substr(slash + 1)] = bytes;
  }
  const auto names = platform::NamesIn(folder + "/data.backups");
  if (!names) return "the copies are gone";
  const Snapshot old{{"product.dat", BytesOf("products of old")}};
  for (const std::string& name : *names) {
    if (!IsCopyName(name)) continue;
    if (copies[name] != (name == todays ? data : old)) return "the copy " + name + " is not whole";
  }
  return "";
}

}  // namespace

/// The first start of 2024-05-06, with copies of the nine days before it: two of them go.
Scenario DailyCopyScenario() {
  const auto name_of = [](int day) { return "2024-04-" + std::to_string(day); };
  const auto prepare = [name_of](const TempFolder& folder) {
    WriteData(folder);
    for (int day = 22; day <= 30; ++day) {
      fs::create_directories(folder.File("data.backups/" + name_of(day)));
      folder.WriteText("data.backups/" + name_of(day) + "/product.dat", "products of old");
    }
  };
  const auto run = [](const std::string& folder) {
    const DailyBackup backup(DataFolder(folder));
    const auto snapshot = backup.Read();
    return snapshot && backup.Keep(*snapshot, {});
  };
  Scenario scenario{"daily copy", prepare, run, {}};
  scenario.judge = [name_of](const std::string& folder, bool succeeded) -> std::string {
    const Snapshot data = DataOf(folder);
    if (data.size() != 5 || data.at("product.dat") != BytesOf("products of today")) {
      return "the data has changed";
    }
    const std::string todays = "2024-05-06";
    const BackupFolder backups(DataFolder(folder));
    if (succeeded && !backups.Has(todays)) return "today's copy is missing";
    // Six days are kept beside today's, and of the three before them the first of their week.
    for (const int day : {22, 25, 26, 27, 28, 29, 30}) {
      if (!backups.Has(name_of(day))) return "the copy " + name_of(day) + " is missing";
    }
    return WhatIsWrongWithCopies(folder, todays, data);
  };
  return scenario;
}

/// A copy is brought back: a file more, one less, others changed.
Scenario RestoredCopyScenario() {
  const auto prepare = [](const TempFolder& folder) {
    WriteData(folder);
    folder.WriteText("data/purchase.dat", "purchases of today");
    fs::create_directories(folder.File("data.backups/2024-05-05/WebSearch"));
    folder.WriteText("data.backups/2024-05-05/product.dat", "products of old");
    folder.WriteText("data.backups/2024-05-05/WebSearch/2.dat", "results of old");
    folder.WriteText("data.backups/2024-05-05/WebSearch/3.dat", "more results of old");
  };
  const auto run = [](const std::string& folder) {
    return RestoreCopy(DataFolder(folder), std::nullopt).outcome == RestoreEnd::Outcome::kDone;
  };
  Scenario scenario{"copy brought back", prepare, run, {}};
  scenario.judge = [](const std::string& folder, bool succeeded) -> std::string {
    {
      FaultyCalls without_waiting;  // for the device
      const platform::SystemCallsInUse in_use(without_waiting);
      ShoppingDatabase database;
      (void)database.Open(DataFolder(folder));  // for its roll-back
    }
    const Snapshot copied{{"WebSearch/2.dat", BytesOf("results of old")},
                          {"WebSearch/3.dat", BytesOf("more results of old")},
                          {"product.dat", BytesOf("products of old")}};
    const Bytes list = NameList().Encode();
    const Snapshot old{{"WebSearch/2.dat", BytesOf("results of today")},
                       {"category.lst", list},
                       {"product.dat", BytesOf("products of today")},
                       {"purchase.dat", BytesOf("purchases of today")},
                       {"store.lst", list},
                       {"unit.lst", list}};
    if (CopyOf(folder, "2024-05-05") != copied) return "the copy has changed";
    const Snapshot data = DataOf(folder);
    if (data == old && !succeeded) return "";
    if (data != copied) return "neither the old files nor those of the copy";
    return CopyOf(folder, "2024-05-06.before-restore") == old ? "" : "what was replaced is lost";
  };
  return scenario;
}

/// What the main screen does when a saved search is deleted: the entry, then the results.
Scenario DeletedResultsScenario() {
  const auto prepare = [](const TempFolder& folder) {
    SearchManager manager;
    const SearchResultList results;
    if (manager.SetSearchFolder(folder.path()) != 0) return;
    for (const char* words : {"milk", "bread"}) {
      (void)manager.saved_searches().SaveSearch(1, words, &results);
    }
    fs::remove(folder.File("backup.dat"));
  };
  const auto run = [](const std::string& folder) {
    SearchManager manager;
    return manager.SetSearchFolder(folder) == 0 &&
           manager.saved_searches().DeleteSavedSearch(2) == 2 &&
           platform::RemoveFile(manager.saved_searches().ResultsPath(2));
  };
  Scenario scenario{"search and its results deleted", prepare, run, {}};
  scenario.judge = [](const std::string& folder, bool succeeded) -> std::string {
    FaultyCalls without_waiting;  // for the device
    const platform::SystemCallsInUse in_use(without_waiting);
    SearchManager manager;
    if (manager.SetSearchFolder(folder) != 0 ||
        manager.saved_searches().LoadSavedSearches({}) != 0) {
      return "the index is damaged";
    }
    const std::size_t live = manager.saved_searches().searches().size();
    if (live < 1 || live > 2) return "an entry is lost";
    SearchResultList results;
    const bool has_other = ReadSearchResults(results, folder + "\\WebSearch\\3.dat") == 0;
    const bool has_own = ReadSearchResults(results, folder + "\\WebSearch\\2.dat") == 0;
    if (!has_other || (live == 2 && !has_own)) return "a search is without its results";
    return succeeded && (live == 2 || has_own) ? "the search is there" : "";
  };
  return scenario;
}

}  // namespace brovanta::test

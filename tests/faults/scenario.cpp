#include "tests/faults/scenario.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>

#include "db/shopping_database.h"
#include "tests/support/faulty_calls.h"

namespace brovanta::test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kTemporarySuffix = 7;  // ".XXXXXX" of mkostemp

bool IsTemporary(const std::string& name) {
  if (name.size() <= kTemporarySuffix) return false;
  const std::string suffix = name.substr(name.size() - kTemporarySuffix);
  return suffix[0] == '.' && name.find('.') != name.size() - kTemporarySuffix &&
         std::all_of(suffix.begin() + 1, suffix.end(),
                     [](unsigned char c) { return std::isalnum(c) != 0; });
}

bool IsData(const std::string& name) {
  // What may have been somebody else's was kept before it was undone.
  const bool is_kept_record_file = name.find(".dat.bad") != std::string::npos;
  return !name.starts_with("backup.dat") && name != kScratchName && !IsTemporary(name) &&
         !is_kept_record_file;
}

Bytes ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

std::string Difference(const Snapshot& is, const Snapshot& should_be) {
  std::string text;
  for (const auto& [name, bytes] : should_be) {
    const auto found = is.find(name);
    if (found == is.end()) {
      text += " " + name + " is missing;";
    } else if (found->second != bytes) {
      text += " " + name + " differs (" + std::to_string(found->second.size()) + " bytes, not " +
              std::to_string(bytes.size()) + ");";
    }
  }
  for (const auto& [name, bytes] : is) {
    if (!should_be.contains(name)) text += " " + name + " should not be there;";
  }
  return text;
}

void Open(const std::string& folder) {
  FaultyCalls without_faults;  // and without waiting for the device
  const platform::SystemCallsInUse in_use(without_faults);
  ShoppingDatabase database;
  (void)database.Open(folder);  // for its roll-back; lists may be missing
}

}  // namespace

Snapshot AllFiles(const std::string& folder) {
  Snapshot files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    files[entry.path().lexically_relative(folder).string()] = ReadFile(entry.path());
  }
  return files;
}

Snapshot TakeSnapshot(const std::string& folder) {
  Snapshot files = AllFiles(folder);
  std::erase_if(files, [](const auto& file) { return !IsData(file.first); });
  // Where it could not be seen that ".bad" is free, the next name was taken.
  for (const auto& [name, bytes] : Snapshot(files)) {
    if (!name.ends_with(".bad2")) continue;
    files.try_emplace(name.substr(0, name.size() - 1), bytes);
    files.erase(name);
  }
  return files;
}

void Restore(const std::string& folder, const Snapshot& files) {
  for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry.path());
  for (const auto& [name, bytes] : files) {
    const fs::path path = fs::path(folder) / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
  }
}

Trial::Trial(const Scenario& scenario, const TempFolder& folder)
    : scenario_(scenario), folder_(folder) {
  Restore(folder.path(), {});
  scenario.prepare(folder);
  prepared_files_ = AllFiles(folder.path());
  Open(folder.path());
  old_files_ = TakeSnapshot(folder.path());
  Begin();
  if (!Run()) what_is_wrong_ = "the operation fails without a fault";
  const Snapshot new_files = TakeSnapshot(folder.path());

  states_.push_back(old_files_);
  for (const std::set<std::string>& step : scenario.steps) {
    Snapshot state = states_.back();
    for (const std::string& name : step) {
      if (!new_files.contains(name)) {
        what_is_wrong_ = name + " is not there afterwards";
      } else if (old_files_.contains(name) && old_files_.at(name) == new_files.at(name)) {
        what_is_wrong_ = name + " does not change";
      } else {
        state[name] = new_files.at(name);
      }
    }
    states_.push_back(std::move(state));
  }
  refused_state_ = old_files_;
  for (const std::string& name : scenario.left_when_refused) {
    refused_state_[name] = new_files.at(name);
  }
  if (!scenario.judge) what_is_wrong_ += Difference(new_files, states_.back());
}

std::string Trial::Judge(Outcome outcome) const {
  Open(folder_.path());
  if (scenario_.judge) {
    return scenario_.judge(folder_.path(), outcome == Outcome::kSucceeded);
  }
  return JudgeStates(outcome);
}

std::string Trial::JudgeStates(Outcome outcome) const {
  const Snapshot files = TakeSnapshot(folder_.path());
  const bool may_be_refused = outcome == Outcome::kFailed || outcome == Outcome::kFailedForGood;
  if (may_be_refused && files == refused_state_) return "";
  const auto found = std::find(states_.begin(), states_.end(), files);
  if (found == states_.end()) {
    return "no state of the operation:" + Difference(files, states_.back());
  }
  const bool is_new = found + 1 == states_.end();
  const bool is_old = found == states_.begin();
  if (outcome == Outcome::kSucceeded && !is_new) {
    return "confirmed, but not there:" + Difference(files, states_.back());
  }
  if (outcome == Outcome::kFailed && scenario_.steps.size() == 1 && !is_old &&
      !scenario_.may_stand_unconfirmed) {
    return "said to have failed, but there:" + Difference(files, states_.front());
  }
  return "";
}

}  // namespace brovanta::test

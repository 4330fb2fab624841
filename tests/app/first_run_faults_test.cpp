// The first start, struck at every system call of the file layer: the next one completes it.
#include <gtest/gtest.h>

#include "app/first_run_setup.h"
#include "db/name_list.h"
#include "platform/registry.h"
#include "tests/faults/strikes.h"

namespace brovanta::test {
namespace {

constexpr int kLeastPoints = 250;

std::string DataFolder(const std::string& folder) { return folder + "/data"; }
platform::RegistryStore Registry(const std::string& folder) {
  return platform::RegistryStore(folder + "/config/registry.reg");
}

bool Start(const std::string& folder) {
  std::string problem;
  const std::string data = SetUpUserData(Registry(folder), DataFolder(folder), problem);
  return problem.empty() && data == DataFolder(folder) && SeedNameLists(data);
}

std::optional<std::string> Value(const std::string& folder, const char* name) {
  const auto key = platform::RegistryKey::Open(Registry(folder), "Software\\Brovanta");
  return key ? key->QueryText(name, 500) : std::nullopt;
}

/// What is there is whole.
std::string WhatIsWrong(const std::string& folder, bool complete) {
  const Snapshot files = AllFiles(folder);
  for (const char* list : {"data/store.lst", "data/category.lst", "data/unit.lst"}) {
    const auto found = files.find(list);
    if (found == files.end() ? complete : found->second != NameList().Encode()) {
      return std::string(list) + " is wrong";
    }
  }
  if (Value(folder, "InstallPath").value_or(DataFolder(folder)) != DataFolder(folder) ||
      Value(folder, "UpdateServer").value_or("http://localhost:8427") != "http://localhost:8427") {
    return "a setting is wrong";
  }
  return files.contains("config/registry.reg.bad") ? "the settings were damaged" : "";
}

TEST(FirstRunFaultsTest, WhateverHappensTheNextStartCompletesIt) {
  Scenario scenario{"first start", [](const TempFolder&) {}, Start, {}};
  // Where it cannot be seen whether a list is there, none is made, and the start goes on.
  scenario.judge = [](const std::string& folder, bool /*succeeded*/) -> std::string {
    if (const std::string wrong = WhatIsWrong(folder, false); !wrong.empty()) return wrong;
    FaultyCalls without_waiting;  // for the device
    const platform::SystemCallsInUse in_use(without_waiting);
    if (!Start(folder)) return "the next start fails";
    if (!Value(folder, "InstallPath") || !Value(folder, "UpdateServer")) {
      return "a value is missing";
    }
    return WhatIsWrong(folder, true);
  };
  const TempFolder folder;
  EXPECT_GE(Striker(scenario, folder).Strike(), kLeastPoints);
}

}  // namespace
}  // namespace brovanta::test

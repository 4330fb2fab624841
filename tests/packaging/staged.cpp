#include "tests/packaging/staged.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

namespace fs = std::filesystem;

std::string Staged(const std::string& name) { return std::string(BROVANTA_STAGE "/") + name; }

std::set<std::string> FilesBelow(const std::string& folder) {
  std::set<std::string> files;
  if (!fs::is_directory(folder)) return files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!fs::is_directory(entry.symlink_status())) {
      files.insert(entry.path().lexically_relative(folder).string());
    }
  }
  return files;
}

std::string TextOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

Outcome RunTool(std::vector<std::string> words) {
  const TempFolder folder;
  const std::string errors = folder.File("errors");
  words.insert(words.begin(), "/usr/bin/env");
  ChildProcess process(std::move(words), errors, {{"LC_ALL", "C.UTF-8"}});
  Outcome outcome;
  outcome.output = process.ReadAll();
  outcome.status = process.Wait();
  outcome.output += TextOf(errors);
  return outcome;
}

bool HasTool(const std::string& name) {
  return RunTool({"sh", "-c", "command -v \"$1\"", "sh", name}).status == 0;
}

}  // namespace brovanta::test

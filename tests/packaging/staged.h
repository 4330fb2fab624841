// What the stage script has installed, and the tools that judge it.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace brovanta::test {

/// A path below the folder in which everything was installed.
[[nodiscard]] std::string Staged(const std::string& name);

/// The files below a folder, by their paths in it; no folders.
[[nodiscard]] std::set<std::string> FilesBelow(const std::string& folder);

/// The text of a file; a test fails that asks for one that is not there.
[[nodiscard]] std::string TextOf(const std::string& path);

struct Outcome {
  int status = -1;
  std::string output;  ///< standard output, then standard error
};

/// Runs a tool that is found as the shell does.
[[nodiscard]] Outcome RunTool(std::vector<std::string> words);

[[nodiscard]] bool HasTool(const std::string& name);

}  // namespace brovanta::test

/// Leaves out the rest of a test, and says so, where the machine lacks a tool.
#define BROVANTA_NEED_TOOL(name) \
  if (!test::HasTool(name)) GTEST_SKIP() << "not judged: " << (name) << " is not installed"

/// The same where the machine could not make Debian packages.
#define BROVANTA_NEED_PACKAGES()        \
  BROVANTA_NEED_TOOL("dpkg-deb");       \
  BROVANTA_NEED_TOOL("dpkg-shlibdeps"); \
  BROVANTA_NEED_TOOL("file")

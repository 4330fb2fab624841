// What the server is told on its command line.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "server/listener.h"

namespace brovanta::server {

enum class Action { kServe, kImport, kExport, kHelp, kVersion };

/// What an import or an export is about.
enum class Subject { kStores, kCategories, kCoupons, kAgents };

struct CommandLine {
  Action action = Action::kServe;
  std::string data;  ///< path of the database
  ListenAddress listen;
  bool demo = false;
  bool replace = false;
  Subject subject = Subject::kStores;
  std::string file;  ///< what to import, or where to export to; empty for standard output
};

/// The arguments without the program's name. Nothing when they make no sense, `error` then says
/// why in one sentence.
[[nodiscard]] std::optional<CommandLine> ParseCommandLine(
    std::span<const std::string_view> arguments, std::string& error);

/// The text of --help.
[[nodiscard]] std::string_view HelpText();

}  // namespace brovanta::server

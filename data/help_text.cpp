#include "data/help_text.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace brovanta::data_tool {
namespace {

constexpr std::size_t kWidth = 80;

// Every further line of a text begins below its first one.
std::string Indented(std::string_view text, std::size_t by) {
  std::string result;
  for (const char character : text) {
    result += character;
    if (character == '\n') result.append(by, ' ');
  }
  return result;
}

std::string Spelled(const Option& option) {
  std::string text(option.short_name.empty() ? option.name : option.short_name);
  if (!option.value.empty()) text.append(" ").append(option.value);
  return text;
}

// "[--json]", "[--week|--month]", or "--json|--csv" where one of them must be given.
std::vector<std::string> OptionsAsUsage(const Command& command) {
  std::vector<std::string> words;
  const std::span<const Option> options = command.options;
  for (std::size_t i = 0; i < options.size();) {
    const int group = options[i].group;
    const bool needed = group != 0 && group == command.needed_group;
    std::string word(needed ? "" : "[");
    word += Spelled(options[i]);
    for (++i; group != 0 && i < options.size() && options[i].group == group; ++i) {
      word.append("|").append(Spelled(options[i]));
    }
    if (!needed) word += ']';
    words.push_back(std::move(word));
  }
  return words;
}

std::string UsageOf(const Command& command) {
  std::string text("  brovanta-data ");
  text += command.name;
  const std::size_t indent = text.size();
  std::size_t length = indent;
  std::vector<std::string> words{std::string(command.arguments)};
  for (std::string& word : OptionsAsUsage(command)) words.push_back(std::move(word));
  for (const std::string& word : words) {
    if (length + 1 + word.size() > kWidth) {
      text.append("\n").append(indent, ' ');
      length = indent;
    }
    text.append(" ").append(word);
    length += 1 + word.size();
  }
  return text + "\n";
}

std::string OptionsOf(const Command& command, std::size_t indent) {
  std::size_t longest = 0;
  for (const Option& option : command.options) {
    longest = std::max(longest, Spelled(option).size());
  }
  std::string text;
  for (const Option& option : command.options) {
    std::string line = std::string(indent, ' ') + Spelled(option);
    line.resize(indent + longest + 2, ' ');
    text += line + Indented(option.purpose, line.size()) + "\n";
  }
  return text;
}

}  // namespace

std::string HelpText(std::span<const Command> commands) {
  std::string text = "Usage:\n";
  std::size_t longest = 0;
  for (const Command& command : commands) {
    text += UsageOf(command);
    longest = std::max(longest, command.name.size());
  }
  text += "\nLooks after the data folders of the Brovanta shopping planner.\n\n";
  for (const Command& command : commands) {
    std::string line = "  " + std::string(command.name);
    line.resize(longest + 4, ' ');
    text += line + Indented(command.purpose, line.size()) + "\n";
    text += OptionsOf(command, line.size() + 2);
  }
  return text + R"(
  --help, --version

Ends with 0 when all is well, 1 when something is wrong with the data or could not be done, 2
when the command line makes no sense, and 3 when the folder cannot be read.
)";
}

}  // namespace brovanta::data_tool

#include "server/command_line.h"

#include <utility>
#include <vector>

#include "server/text_rules.h"

namespace brovanta::server {
namespace {

std::optional<Subject> SubjectOf(std::string_view word) {
  if (word == "stores") return Subject::kStores;
  if (word == "categories") return Subject::kCategories;
  if (word == "coupons") return Subject::kCoupons;
  if (word == "agents") return Subject::kAgents;
  return std::nullopt;
}

// Takes options and words apart, in any order. Every step returns false after noting the error.
class Parser {
 public:
  Parser(std::span<const std::string_view> arguments, std::string& error)
      : arguments_(arguments), error_(error) {}

  std::optional<CommandLine> Parse() {
    while (!arguments_.empty()) {
      const std::string_view argument = Take();
      const bool option = argument.size() > 1 && argument.starts_with('-');
      if (!option) {
        words_.push_back(argument);
      } else if (!TakeOption(argument)) {
        return std::nullopt;
      }
      if (line_.action == Action::kHelp || line_.action == Action::kVersion) return line_;
    }
    if (!TakeWords() || !CheckTogether()) return std::nullopt;
    return line_;
  }

 private:
  bool Fail(std::string message) {
    error_ = std::move(message);
    return false;
  }

  std::string_view Take() {
    const std::string_view argument = arguments_.front();
    arguments_ = arguments_.subspan(1);
    return argument;
  }

  bool TakeOption(std::string_view option) {
    if (option == "--help" || option == "-h") {
      line_.action = Action::kHelp;
    } else if (option == "--version") {
      line_.action = Action::kVersion;
    } else if (option == "--demo") {
      line_.demo = true;
    } else if (option == "--replace") {
      line_.replace = true;
    } else if (option == "--data" || option == "--listen") {
      if (arguments_.empty()) return Fail(std::string(option) + " needs a value.");
      return option == "--data" ? TakeData(Take()) : TakeListen(Take());
    } else {
      return Fail("There is no option " + Quoted(option) + ".");
    }
    return true;
  }

  bool TakeData(std::string_view path) {
    line_.data = path;
    return !path.empty() || Fail("--data needs the path of a file.");
  }

  bool TakeListen(std::string_view text) {
    const auto address = ParseListenAddress(text);
    if (!address) return Fail(Quoted(text) + " is no address and port, such as 127.0.0.1:8427.");
    line_.listen = *address;
    listen_given_ = true;
    return true;
  }

  bool TakeWords() {
    if (words_.empty()) return true;
    if (words_[0] != "import" && words_[0] != "export") {
      return Fail("There is no command " + Quoted(words_[0]) + ".");
    }
    line_.action = words_[0] == "import" ? Action::kImport : Action::kExport;
    const std::string command(words_[0]);
    const auto subject = words_.size() > 1 ? SubjectOf(words_[1]) : std::nullopt;
    if (!subject) return Fail(command + " needs stores, categories, coupons or agents.");
    line_.subject = *subject;
    if (words_.size() > 2) line_.file = words_[2];
    if (words_.size() > 3) return Fail(command + " takes one file.");
    if (line_.action == Action::kImport && line_.file.empty()) {
      return Fail("import needs a file.");
    }
    return true;
  }

  bool CheckTogether() {
    if (line_.data.empty()) return Fail("--data FILE.db is missing.");
    const bool serve = line_.action == Action::kServe;
    if (!serve && (line_.demo || listen_given_)) {
      return Fail("--demo and --listen are for serving only.");
    }
    const bool table = line_.action == Action::kImport && line_.subject != Subject::kAgents;
    if (line_.replace && !table) return Fail("--replace is for the import of tables only.");
    return true;
  }

  std::span<const std::string_view> arguments_;
  std::string& error_;
  CommandLine line_;
  std::vector<std::string_view> words_;
  bool listen_given_ = false;
};

}  // namespace

std::optional<CommandLine> ParseCommandLine(std::span<const std::string_view> arguments,
                                            std::string& error) {
  return Parser(arguments, error).Parse();
}

std::string_view HelpText() {
  return R"(Usage:
  brovanta-server --data FILE.db [--listen HOST:PORT] [--demo]
  brovanta-server --data FILE.db import [--replace] stores|categories|coupons FILE.csv
  brovanta-server --data FILE.db import agents FILE.xml
  brovanta-server --data FILE.db export stores|categories|coupons|agents [FILE]

Serves stores, categories, coupons and search agents to the Brovanta shopping planner.

  --data FILE.db      the database; made when it is missing, except by export
  --listen HOST:PORT  where to listen, at first 127.0.0.1:8427; port 0 picks a free one
  --demo              fill an empty database with an invented household's world, and open
                      the demonstration shops; in one that holds it already, renew its
                      coupons that are over
  --replace           empty the table before importing; otherwise entries with a known id are
                      replaced and all others stay
  --help, --version

A faulty file imports nothing, and every fault is told with its line. Without FILE, export writes
to standard output. The server ends cleanly on SIGTERM and SIGINT.
)";
}

}  // namespace brovanta::server

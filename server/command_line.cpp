#include "server/command_line.h"

#include "server/text_rules.h"
#include "util/argument_reader.h"

namespace brovanta::server {
namespace {

std::optional<Subject> SubjectOf(std::string_view word) {
  if (word == "stores") return Subject::kStores;
  if (word == "categories") return Subject::kCategories;
  if (word == "coupons") return Subject::kCoupons;
  if (word == "agents") return Subject::kAgents;
  return std::nullopt;
}

// Every step returns false after noting the error.
class Parser : ArgumentReader {
 public:
  using ArgumentReader::ArgumentReader;

  std::optional<CommandLine> Parse() {
    const bool read = ReadArguments([this](std::string_view option) { return TakeOption(option); });
    if (asked_) return line_;
    if (!read || !TakeWords() || !CheckTogether()) return std::nullopt;
    return line_;
  }

 private:
  // --help and --version end the reading, whatever follows.
  bool TakeQuestion(Action action) {
    line_.action = action;
    asked_ = true;
    return false;
  }

  bool TakeOption(std::string_view option) {
    if (option == "--help" || option == "-h") return TakeQuestion(Action::kHelp);
    if (option == "--version") return TakeQuestion(Action::kVersion);
    if (option == "--demo") {
      line_.demo = true;
    } else if (option == "--replace") {
      line_.replace = true;
    } else if (option == "--data" || option == "--listen") {
      if (!HasMore()) return Fail(std::string(option) + " needs a value.");
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
    if (words().empty()) return true;
    if (words()[0] != "import" && words()[0] != "export") {
      return Fail("There is no command " + Quoted(words()[0]) + ".");
    }
    line_.action = words()[0] == "import" ? Action::kImport : Action::kExport;
    const std::string command(words()[0]);
    const auto subject = words().size() > 1 ? SubjectOf(words()[1]) : std::nullopt;
    if (!subject) return Fail(command + " needs stores, categories, coupons or agents.");
    line_.subject = *subject;
    if (words().size() > 2) line_.file = words()[2];
    if (words().size() > 3) return Fail(command + " takes one file.");
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

  CommandLine line_;
  bool asked_ = false;
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

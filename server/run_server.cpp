#include "server/run_server.h"

#include <csignal>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "server/command_line.h"
#include "server/demo_renewal.h"
#include "server/demo_world.h"
#include "server/http_server.h"
#include "server/import_file.h"
#include "server/responder.h"
#include "server/store.h"
#include "util/console.h"

namespace brovanta::server {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kMisused = 2;
constexpr int kThreads = 8;

int Fail(const std::string& what, const std::string& why) {
  Complain("brovanta-server: " + what + ": " + why);
  return kFailed;
}

std::unique_ptr<Store> OpenStore(const CommandLine& line) {
  const auto mode =
      line.action == Action::kExport ? sqlite::OpenMode::kMustExist : sqlite::OpenMode::kCreate;
  std::string error;
  auto store = Store::Open(line.data, mode, error);
  if (!store) Complain("brovanta-server: " + line.data + ": " + error);
  return store;
}

int ImportFile(const CommandLine& line) {
  std::string error;
  const auto text = ReadWholeFile(line.file, error);
  if (!text) return Fail(line.file, error);
  const auto store = OpenStore(line);
  if (!store) return kFailed;
  const ImportOutcome outcome = ImportText(*store, line.subject, *text, line.replace);
  for (const Problem& problem : outcome.problems) {
    const std::string place = problem.line > 0 ? ": line " + std::to_string(problem.line) : "";
    Complain("brovanta-server: " + line.file + place + ": " + problem.message);
  }
  if (!outcome.problems.empty()) {
    Complain("brovanta-server: nothing was imported");
    return kFailed;
  }
  // The import is safe already; that nobody can read about it changes nothing.
  static_cast<void>(Print("imported " + std::to_string(outcome.entries) +
                          (outcome.entries == 1 ? " entry\n" : " entries\n")));
  return kDone;
}

int ExportFile(const CommandLine& line) {
  const auto store = OpenStore(line);
  if (!store) return kFailed;
  std::string error;
  const auto text = ExportText(*store, line.subject, error);
  if (!text) return Fail(line.data, error);
  if (line.file.empty()) return Print(*text) ? kDone : Fail("standard output", "cannot be written");
  return WriteWholeFile(line.file, *text, error) ? kDone : Fail(line.file, error);
}

// Fills an empty database; in one with anything in it only the demonstration itself is kept fresh.
bool PrepareDemo(Store& store) {
  const auto renew = [](const std::vector<Coupon>& coupons, const std::string& agents) {
    return DemoRenewal(coupons, agents, Today());
  };
  const auto problems = store.IsEmpty() ? store.Apply(DemoWorld(Today())) : store.Amend(renew);
  for (const Problem& problem : problems) Complain("brovanta-server: --demo " + problem.message);
  return problems.empty();
}

// One responder for each thread, each with a connection of its own to the database. Empty on
// failure.
std::vector<HttpHandler> MakeHandlers(const CommandLine& line, const std::string& address) {
  std::vector<HttpHandler> handlers;
  for (int i = 0; i < kThreads; ++i) {
    auto store = OpenStore(line);
    if (!store) return {};
    auto responder =
        std::make_shared<Responder>(std::move(store), Responder::Settings{address, line.demo});
    handlers.emplace_back(
        [responder](const HttpRequest& request) { return responder->Answer(request); });
  }
  return handlers;
}

// Blocked before the first thread starts, so that only the waiting below ever sees them.
sigset_t BlockEndingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  return signals;
}

int Serve(const CommandLine& line) {
  const sigset_t signals = BlockEndingSignals();
  if (line.demo) {
    const auto store = OpenStore(line);
    if (!store || !PrepareDemo(*store)) return kFailed;
  }
  std::string error;
  auto listener = Listen(line.listen, error);
  if (!listener) {
    return Fail("cannot listen on " + line.listen.host + ":" + std::to_string(line.listen.port),
                error);
  }
  auto handlers = MakeHandlers(line, listener->address);
  if (handlers.empty()) return kFailed;
  auto server = HttpServer::Start(*std::move(listener), std::move(handlers), Complain, {}, error);
  if (!server) return Fail("cannot serve", error);
  static_cast<void>(Print("listening on " + server->address() + "\n"));
  int received = 0;
  while (sigwait(&signals, &received) != 0) {
  }
  server.reset();
  Complain("brovanta-server: ended");
  return kDone;
}

int Misused(const std::string& error) {
  Complain("brovanta-server: " + error + " See brovanta-server --help.");
  return kMisused;
}

}  // namespace

int RunServer(std::span<const std::string_view> arguments, std::string_view version) {
  std::string error;
  const auto line = ParseCommandLine(arguments, error);
  if (!line) return Misused(error);
  switch (line->action) {
    case Action::kHelp:
      return Print(HelpText()) ? kDone : kFailed;
    case Action::kVersion:
      return Print("brovanta-server " + std::string(version) + "\n") ? kDone : kFailed;
    case Action::kImport:
      return ImportFile(*line);
    case Action::kExport:
      return ExportFile(*line);
    case Action::kServe:
      return Serve(*line);
  }
  return kMisused;
}

}  // namespace brovanta::server

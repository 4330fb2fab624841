#include "agent/run_agent_tool.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

#include "agent/command_line.h"
#include "agent/exit_status.h"
#include "agent/file_check.h"
#include "agent/input.h"
#include "agent/page_trial.h"
#include "agent/reports.h"
#include "agent/search_words.h"
#include "search/agent_configuration.h"
#include "util/console.h"
#include "util/readable_text.h"

namespace brovanta::agent_tool {
namespace {

void Tell(const std::string& text) { Complain("brovanta-agent: " + text); }

int Report(std::string_view text, int status) {
  if (Print(text)) return status;
  Tell("standard output cannot be written");
  return kBad;
}

std::optional<std::string> Read(const std::string& path) {
  std::string error;
  auto bytes = ReadInput(path, error);
  if (!bytes) Tell(Utf8Text(path) + ": " + error);
  return bytes;
}

// The agent as the program has it; nullptr when it does not, which is told.
std::shared_ptr<const WebAgent> FindAgent(const CommandLine& line) {
  const auto stored = Read(line.file);
  if (!stored) return nullptr;
  AgentConfiguration configuration;
  const int result = ReadAgentConfiguration(AgentFileText(*stored), configuration);
  std::shared_ptr<const WebAgent> found;
  std::size_t count = 0;
  for (const auto& agent : configuration.agents) {
    if (agent->SiteId != line.site) continue;
    if (++count == 1) found = agent;
  }
  const std::string number = std::to_string(line.site);
  if (count > 1) {
    Tell("note: " + std::to_string(count) + " agents have the number " + number +
         "; this is the first of them");
  }
  if (found != nullptr) {
    if (result != 0) Tell("note: the program refuses the file; see brovanta-agent check");
    return found;
  }
  const FileReport report = CheckAgentFile(*stored);
  const bool refused =
      std::any_of(report.blocks.begin(), report.blocks.end(), [&](const BlockReport& block) {
        return block.kind == BlockKind::kAgent && block.number == line.site;
      });
  Tell(Utf8Text(line.file) + ": " +
       (refused ? "the program does not take the agent " + number + "; see brovanta-agent check"
                : "there is no agent " + number));
  return nullptr;
}

int Check(const CommandLine& line) {
  const auto stored = Read(line.file);
  if (!stored) return kNoInput;
  const FileReport report = CheckAgentFile(*stored);
  return Report(line.json ? CheckAsJson(report, line.file) : CheckAsText(report, line.file),
                report.IsGood() ? kGood : kBad);
}

int Try(const CommandLine& line) {
  const auto agent = FindAgent(line);
  if (agent == nullptr) return kNoInput;
  const auto stored = Read(line.page);
  if (!stored) return kNoInput;
  const Page page = PageOf(*stored);
  const auto words = line.words ? std::optional(SearchWordsOf(*line.words)) : std::nullopt;
  const Trial trial = TryAgent(page.text, *agent, words);
  const TrialSubject subject{line.page, page, *agent, line.words};
  return Report(line.json ? TrialAsJson(trial, subject) : TrialAsText(trial, subject),
                trial.kept > 0 ? kGood : kBad);
}

int Address(const CommandLine& line) {
  const auto agent = FindAgent(line);
  if (agent == nullptr) return kNoInput;
  const AddressReport report = AddressOf(*agent, SearchWordsOf(*line.words));
  if (report.status != 0) {
    Tell(StatusText(report.status) + " (" + std::to_string(report.status) + ")");
  } else {
    if (report.cut) Tell("note: the address is cut");
    if (!report.downloadable) {
      Tell("this is no http:// address: the program cannot download it");
    }
  }
  return Report(line.json ? AddressAsJson(report, *agent, *line.words) : AddressAsText(report),
                report.status == 0 && report.downloadable ? kGood : kBad);
}

}  // namespace

int RunAgentTool(std::span<const std::string_view> arguments, std::string_view version) {
  std::string error;
  const auto line = ParseCommandLine(arguments, error);
  if (!line) {
    Tell(error + " See brovanta-agent --help.");
    return kMisused;
  }
  switch (line->action) {
    case Action::kHelp:
      return Report(HelpText(), kGood);
    case Action::kVersion:
      return Report("brovanta-agent " + std::string(version) + "\n", kGood);
    case Action::kCheck:
      return Check(*line);
    case Action::kTry:
      return Try(*line);
    case Action::kAddress:
      return Address(*line);
  }
  return kMisused;
}

}  // namespace brovanta::agent_tool

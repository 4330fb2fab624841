#include "agent/file_check.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include "agent/agent_notes.h"
#include "agent/input.h"
#include "search/agent_blocks.h"
#include "search/agent_configuration.h"
#include "search/agent_fields.h"
#include "util/readable_text.h"

namespace brovanta::agent_tool {
namespace {

std::string LowerCase(std::string text) {
  for (char& character : text) {
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
  }
  return text;
}

// The first text of the block that is the tag but for its letter case.
std::optional<std::string> InOtherLetters(const std::string& block, const std::string& tag) {
  const std::size_t at = LowerCase(block).find(LowerCase(tag));
  if (at == std::string::npos) return std::nullopt;
  return block.substr(at, tag.size());
}

// Why the block has no such field, as half a sentence.
std::string WhyMissing(const AgentBlock& block, const std::string& field) {
  const std::string open = "<" + field + ">";
  const std::string close = "</" + field + ">";
  const bool opened = block.text.find(open) != std::string::npos;
  const bool closed = block.text.find(close) != std::string::npos;
  if (opened && closed) return close + " stands before " + open;
  const std::string& tag = opened ? close : open;
  const auto other = InOtherLetters(block.text, tag);
  if (other) return "there is no " + tag + ", only " + *other;
  return "there is no " + tag;
}

// Looks at blocks of both kinds and keeps their reports.
class Checker {
 public:
  explicit Checker(std::string_view text) : text_(text), lines_(text) {}

  FileReport Check() {
    AgentConfiguration configuration;
    report_.result = ReadAgentConfiguration(text_, configuration);
    report_.categories = configuration.categories.size();
    report_.agents = configuration.agents.size();
    Walk(kCategoryBlock, BlockKind::kCategory,
         [&](const AgentBlock& block, BlockReport& report) { CheckCategory(block, report); });
    Walk(kAgentBlock, BlockKind::kAgent,
         [&](const AgentBlock& block, BlockReport& report) { CheckAgent(block, report); });
    std::stable_sort(report_.blocks.begin(), report_.blocks.end(),
                     [](const BlockReport& a, const BlockReport& b) { return a.start < b.start; });
    return std::move(report_);
  }

 private:
  template <typename Look>
  void Walk(const char* kind_name, BlockKind kind, Look look) {
    AgentBlocks blocks(text_, kind_name);
    std::set<std::int32_t> numbers;
    const std::string open = std::string("<").append(kind_name).append(">");
    while (const auto block = blocks.Next()) {
      BlockReport report = ReportAt(kind, block->start);
      look(*block, report);
      if (report.number >= 1 && !numbers.insert(report.number).second) {
        report.notes.push_back("the number " + std::to_string(report.number) +
                               " stands in a block before");
      }
      if (block->text.find(open, 1) != std::string::npos) {
        report.notes.push_back("holds another " + open + ": its closing tag is missing");
      }
      report_.blocks.push_back(std::move(report));
    }
    if (const auto start = blocks.unclosed()) {
      report_.blocks.push_back(ReportAt(kind, *start));
      report_.blocks.back().closed = false;
    }
  }

  [[nodiscard]] BlockReport ReportAt(BlockKind kind, std::size_t start) const {
    BlockReport report;
    report.kind = kind;
    report.start = start;
    report.line = lines_.LineOf(start);
    return report;
  }

  static void CheckNumber(const AgentBlock& block, const char* field, BlockReport& report) {
    report.number = std::max(BlockNumber(block, field), 0);
    if (report.number >= 1) return;
    const auto text = BlockText(block, field);
    report.missing.push_back(
        {field, true,
         text ? Quoted(*text) + " is no number of 1 or more" : WhyMissing(block, field)});
  }

  // Fields that the block has twice: the loader takes the first opening and the first closing tag.
  static void NoteTwice(const AgentBlock& block, const std::string& field, BlockReport& report) {
    const std::string open = "<" + field + ">";
    const std::size_t first = block.text.find(open);
    if (first == std::string::npos) return;
    if (block.text.find(open, first + open.size()) == std::string::npos) return;
    report.notes.push_back(open + " stands there more than once: the first one counts");
  }

  void CheckCategory(const AgentBlock& block, BlockReport& report) {
    CheckNumber(block, "TypeId", report);
    report.name = BlockText(block, "TypeName");
    if (!report.name) {
      report.missing.push_back({"TypeName", true, WhyMissing(block, "TypeName")});
    }
    NoteTwice(block, "TypeId", report);
    NoteTwice(block, "TypeName", report);
    const auto category = CategoryOf(block);
    report.taken = category.has_value();
    if (category) Append(CategoryNotes(*category, WholeFile()), report.notes);
  }

  void CheckAgent(const AgentBlock& block, BlockReport& report) {
    const WebAgent agent = AgentOfBlock(block);
    CheckNumber(block, "SiteId", report);
    NoteTwice(block, "SiteId", report);
    report.name = agent.SiteName;
    for (const bool required : {true, false}) {
      for (const AgentField& field : kAgentFields) {
        if (field.required != required) continue;
        NoteTwice(block, field.name, report);
        if (agent.*field.text) continue;
        report.missing.push_back({field.name, required, WhyMissing(block, field.name)});
      }
    }
    report.taken = agent.IsComplete();
    if (report.taken) Append(AgentNotes(agent, WholeFile().categories), report.notes);
  }

  // All good blocks, those included that a bad last one of its kind keeps out: notes are about what
  // the blocks mean for each other once the bad ones are mended.
  const AgentConfiguration& WholeFile() {
    if (whole_) return *whole_;
    whole_.emplace();
    AgentBlocks categories(text_, kCategoryBlock);
    while (const auto block = categories.Next()) {
      if (auto category = CategoryOf(*block)) whole_->categories.push_back(std::move(*category));
    }
    AgentBlocks agents(text_, kAgentBlock);
    while (const auto block = agents.Next()) {
      WebAgent agent = AgentOfBlock(*block);
      if (!agent.IsComplete()) continue;
      whole_->agents.push_back(std::make_shared<const WebAgent>(std::move(agent)));
    }
    return *whole_;
  }

  static void Append(std::vector<std::string> more, std::vector<std::string>& notes) {
    for (std::string& note : more) notes.push_back(std::move(note));
  }

  std::string_view text_;
  Lines lines_;
  FileReport report_;
  std::optional<AgentConfiguration> whole_;
};

}  // namespace

bool FileReport::IsGood() const {
  return result == 0 && agents > 0 &&
         std::all_of(blocks.begin(), blocks.end(),
                     [](const BlockReport& block) { return block.taken; });
}

FileReport CheckAgentFile(std::string_view stored) {
  const std::string_view text = AgentFileText(stored);
  FileReport report = Checker(text).Check();
  if (text.size() < stored.size()) {
    report.notes.push_back("a zero byte at byte " + std::to_string(text.size()) +
                           " ends the file: nothing behind it is read");
  }
  return report;
}

}  // namespace brovanta::agent_tool

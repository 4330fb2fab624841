#include <algorithm>
#include <string_view>

#include "agent/reports.h"
#include "util/error_codes.h"
#include "util/number.h"
#include "util/readable_text.h"

namespace brovanta::agent_tool {
namespace {

std::string Count(std::size_t count, const std::string& what, const std::string& whats) {
  return std::to_string(count) + " " + (count == 1 ? what : whats);
}

std::string KindName(BlockKind kind) { return kind == BlockKind::kCategory ? "category" : "agent"; }

std::string BlockLine(const BlockReport& block) {
  std::string line = "line " + std::to_string(block.line) + ": " + KindName(block.kind);
  if (!block.closed) return line + " that is never closed: not seen by the program\n";
  if (block.number > 0) line.append(" ").append(std::to_string(block.number));
  if (block.name) line.append(" ").append(Quoted(*block.name));
  return line + (block.taken ? ": good\n" : ": REFUSED\n");
}

std::string BlockText(const BlockReport& block) {
  std::string text = BlockLine(block);
  std::string optional;
  for (const MissingField& field : block.missing) {
    if (field.required) {
      text += "  lacks " + field.field + ": " + field.why + "\n";
    } else {
      optional.append(optional.empty() ? "" : ", ").append(field.field);
    }
  }
  if (!optional.empty()) text += "  without " + optional + ", which may be missing\n";
  for (const std::string& note : block.notes) text += "  note: " + note + "\n";
  return text;
}

// What becomes of the file as a whole.
std::string Verdict(const FileReport& report) {
  const std::string taken = Count(report.categories, "category", "categories") + " and " +
                            Count(report.agents, "agent", "agents");
  if (report.result != 0) {
    const auto last_is_bad = [&](BlockKind kind) {
      const auto last = std::find_if(
          report.blocks.rbegin(), report.blocks.rend(),
          [&](const BlockReport& block) { return block.closed && block.kind == kind; });
      return last != report.blocks.rend() && !last->taken;
    };
    const std::string because = last_is_bad(BlockKind::kCategory)
                                    ? "the last category is refused, which keeps out every agent"
                                    : "the last agent is refused";
    return "The program refuses the file (" + std::to_string(report.result) + "): " + because +
           ". It reads " + taken + ".\n";
  }
  if (report.agents == 0) return "The program reads " + taken + "; the update refuses the file.\n";
  return "The program takes " + taken + " (0).\n";
}

std::string Place(std::size_t byte, const Lines& lines) {
  return "byte " + std::to_string(byte) + ", line " + std::to_string(lines.LineOf(byte));
}

std::string SightingLine(const Sighting& sighting, const Lines& lines) {
  std::string line = std::string(sighting.marker) + ": ";
  switch (sighting.state) {
    case Sighting::State::kFound:
      return line + Place(sighting.match.start, lines) + ", " +
             Count(sighting.match.length, "byte", "bytes") + " long\n";
    case Sighting::State::kNotFound:
      return line + "not found\n";
    case Sighting::State::kNotLookedFor:
      return line + "not looked for\n";
    case Sighting::State::kNotDefined:
      return line + "not defined\n";
  }
  return line;
}

// A price with the digits that it has.
std::string PriceText(double price) {
  std::string two = FormatTwoDecimals(price);
  if (LeadingDouble(two) == price) return two;
  return std::to_string(price);
}

std::string ItemText(const SearchResultItem& item, const std::vector<DropReason>& reasons) {
  std::string text = "  title: " + Quoted(item.Title.value_or("")) + "\n";
  if (item.Text) text += "  text: " + Quoted(*item.Text) + "\n";
  text += "  link: " + Quoted(item.Url.value_or("")) + "\n";
  text += "  price: " + PriceText(item.Price) + "\n";
  if (reasons.empty()) return text + "  kept\n";
  text += "  DROPPED:";
  for (const DropReason reason : reasons) {
    text += reason == reasons.front() ? " " : ", ";
    text += reason == DropReason::kNoWord ? "no search word in the title" : "no price above 0";
  }
  return text + "\n";
}

std::string EndText(const Trial& trial, const Lines& lines) {
  const std::string marker = trial.end_marker;
  const std::string from = Place(trial.end_from, lines);
  const std::string number = std::to_string(trial.blocks.size());
  switch (trial.end) {
    case PageEnd::kNoHeader:
      return "at EndHeader, which is not in the page";
    case PageEnd::kNoStart:
      return "at StartResult, which is not found from " + from + " on";
    case PageEnd::kNoEnd:
      return "at EndResult, which is not found behind the StartResult at " + from;
    case PageEnd::kShortBlock:
      return "at EndResult, which makes result " + number + " at " + from +
             " a block of one byte or none";
    case PageEnd::kNoTitle:
    case PageEnd::kNoUrl: {
      const std::string what = trial.end == PageEnd::kNoTitle ? "title" : "link";
      const std::string why = trial.end_marker_missing
                                  ? "which is not found from " + from + " on"
                                  : "in front of which, at " + from + ", stands nothing";
      return "at " + marker + ", " + why + ": result " + number + " has no " + what +
             ", which ends the page";
    }
    case PageEnd::kNotYet:
    case PageEnd::kMarkersMissing:
      break;
  }
  return "at the agent's missing markers";
}

}  // namespace

std::string CheckAsText(const FileReport& report, const std::string& path) {
  std::string text = Utf8Text(path) + "\n";
  for (const BlockReport& block : report.blocks) text += BlockText(block);
  for (const std::string& note : report.notes) text += "note: " + note + "\n";
  return text + Verdict(report);
}

std::string TrialAsText(const Trial& trial, const TrialSubject& subject) {
  const Lines lines(subject.page.text);
  std::string text = "agent " + std::to_string(subject.agent.SiteId) + " " +
                     Quoted(subject.agent.SiteName.value_or("")) + " over " +
                     Utf8Text(subject.page_path) + ", " +
                     Count(subject.page.text.size(), "byte", "bytes") + "\n";
  if (subject.page.cut) {
    text += "note: the page has " + std::to_string(subject.page.stored_bytes) +
            " bytes, more than the program keeps of one\n";
  }
  if (subject.page.zeros) {
    text += "note: zero bytes in the page are dropped as they are when it is downloaded\n";
  }
  if (!subject.words) text += "note: without --words, all that has a price is kept\n";
  text += SightingLine(trial.header, lines);
  std::size_t number = 0;
  for (const TriedBlock& block : trial.blocks) {
    text += "result " + std::to_string(++number) + ": " + Place(block.start, lines) + ", " +
            Count(block.length, "byte", "bytes") + " long\n";
    for (const Sighting& sighting : block.markers)
      text.append("  ").append(SightingLine(sighting, lines));
    if (block.item) text += ItemText(*block.item, block.reasons);
  }
  text += "The page ended " + EndText(trial, lines) + ".\n";
  return text + Count(trial.items, "item", "items") + ", " + std::to_string(trial.kept) +
         " kept, " + std::to_string(trial.items - trial.kept) + " dropped\n";
}

std::string AddressAsText(const AddressReport& report) {
  return report.status == 0 ? Utf8Text(report.address) + "\n" : "";
}

}  // namespace brovanta::agent_tool

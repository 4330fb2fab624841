#include "agent/page_trial.h"

#include <algorithm>
#include <utility>

#include "search/agent_fields.h"
#include "search/scrape_observer.h"
#include "util/word_search.h"

namespace brovanta::agent_tool {
namespace {

// The fields of a block's markers, StartResult and what comes behind it.
bool IsOfBlock(const AgentField& field) {
  const std::string_view name = field.name;
  return (name.starts_with("Start") || name.starts_with("End")) && name != "EndHeader";
}

// Keeps what the scraper tells, one attempt for each StartResult that it looks for.
class Recorder : public ScrapeObserver {
 public:
  struct Seen {
    AgentText marker;
    std::optional<MarkerMatch> match;
  };
  struct Attempt {
    std::size_t from = 0;  // where the look for StartResult began
    std::vector<Seen> seen;
    std::optional<std::pair<std::size_t, std::size_t>> block;  // start and length
    std::optional<SearchResultItem> item;
  };

  void OnMarker(AgentText marker, const std::optional<MarkerMatch>& match) override {
    if (marker == &WebAgent::EndHeader) {
      header = Seen{marker, match};
      if (match) cursor_ = match->start + match->length;
      return;
    }
    if (marker == &WebAgent::StartResult) {
      attempts.emplace_back();
      attempts.back().from = cursor_;
    }
    attempts.back().seen.push_back({marker, match});
  }

  void OnBlock(std::size_t start, std::size_t length) override {
    attempts.back().block = {start, length};
    cursor_ = start + length;
  }

  std::optional<Seen> header;
  std::vector<Attempt> attempts;

 private:
  std::size_t cursor_ = 0;
};

const Recorder::Seen* Find(const std::vector<Recorder::Seen>& seen, AgentText marker) {
  const auto found = std::find_if(seen.begin(), seen.end(),
                                  [&](const Recorder::Seen& one) { return one.marker == marker; });
  return found == seen.end() ? nullptr : &*found;
}

Sighting SightingOf(const WebAgent& agent, const AgentField& field, const Recorder::Seen* seen) {
  Sighting sighting;
  sighting.marker = field.name;
  if (seen != nullptr) {
    sighting.state = seen->match ? Sighting::State::kFound : Sighting::State::kNotFound;
    if (seen->match) sighting.match = *seen->match;
  } else if (agent.*field.text) {
    sighting.state = Sighting::State::kNotLookedFor;
  }
  return sighting;
}

std::vector<DropReason> ReasonsFor(const SearchResultItem& item,
                                   const std::optional<WordSearch>& words) {
  std::vector<DropReason> reasons;
  if (words && IsWanted(item, *words)) return reasons;
  if (words && !words->AnyIn(item.Title.value_or(""))) reasons.push_back(DropReason::kNoWord);
  if (!(item.Price > 0.0)) reasons.push_back(DropReason::kNoPrice);
  return reasons;
}

// The marker of a field for which the page ended.
void NoteFieldEnd(const Recorder::Attempt& last, AgentText start, const char* start_name,
                  AgentText end, const char* end_name, Trial& trial) {
  const Recorder::Seen* opening = Find(last.seen, start);
  const bool opened = opening != nullptr && opening->match;
  const Recorder::Seen* closing = Find(last.seen, end);
  trial.end_marker = opened ? end_name : start_name;
  trial.end_marker_missing = !opened || closing == nullptr || !closing->match;
  trial.end_from = opened ? opening->match->start + opening->match->length : last.block->first;
}

void NoteEnd(const Recorder& recorder, Trial& trial) {
  const Recorder::Attempt* last = recorder.attempts.empty() ? nullptr : &recorder.attempts.back();
  switch (trial.end) {
    case PageEnd::kNotYet:
    case PageEnd::kMarkersMissing:
      return;
    case PageEnd::kNoHeader:
      trial.end_marker = "EndHeader";
      trial.end_marker_missing = true;
      return;
    case PageEnd::kNoStart:
      trial.end_marker = "StartResult";
      trial.end_marker_missing = true;
      trial.end_from = last->from;
      return;
    case PageEnd::kNoEnd:
      trial.end_marker = "EndResult";
      trial.end_marker_missing = true;
      trial.end_from = last->seen.front().match->start;
      return;
    case PageEnd::kShortBlock:
      trial.end_marker = "EndResult";
      trial.end_from = last->block->first;
      return;
    case PageEnd::kNoTitle:
      NoteFieldEnd(*last, &WebAgent::StartItem, "StartItem", &WebAgent::EndItem, "EndItem", trial);
      return;
    case PageEnd::kNoUrl:
      NoteFieldEnd(*last, &WebAgent::StartURL, "StartURL", &WebAgent::EndURL, "EndURL", trial);
  }
}

}  // namespace

Trial TryAgent(std::string_view page, const WebAgent& agent,
               const std::optional<std::string>& words) {
  Recorder recorder;
  Trial trial;
  PageScraper scraper(page, agent, &recorder);
  for (auto item = scraper.FirstItem(); item; item = scraper.NextItem()) {
    recorder.attempts.back().item = std::move(item);
  }
  trial.end = scraper.end();
  NoteEnd(recorder, trial);

  const std::optional<WordSearch> search = words ? std::optional<WordSearch>(*words) : std::nullopt;
  for (const AgentField& field : kAgentFields) {
    if (field.text != &WebAgent::EndHeader) continue;
    trial.header = SightingOf(agent, field, recorder.header ? &*recorder.header : nullptr);
  }
  for (Recorder::Attempt& attempt : recorder.attempts) {
    if (!attempt.block) continue;
    TriedBlock block;
    block.start = attempt.block->first;
    block.length = attempt.block->second;
    for (const AgentField& field : kAgentFields) {
      if (!IsOfBlock(field)) continue;
      block.markers.push_back(SightingOf(agent, field, Find(attempt.seen, field.text)));
    }
    if (attempt.item) {
      block.reasons = ReasonsFor(*attempt.item, search);
      ++trial.items;
      trial.kept += block.reasons.empty() ? 1 : 0;
    }
    block.item = std::move(attempt.item);
    trial.blocks.push_back(std::move(block));
  }
  return trial;
}

}  // namespace brovanta::agent_tool

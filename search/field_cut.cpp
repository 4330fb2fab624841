#include "search/field_cut.h"

namespace brovanta {

FieldCut::FieldCut(const WebAgent& agent, AgentText start, AgentText end, CancelFlag cancel_flag)
    : start_name_(start), end_name_(end) {
  if (agent.*start) start_ = std::make_unique<Searched>(*(agent.*start), cancel_flag);
  if (agent.*end) end_ = std::make_unique<Searched>(*(agent.*end), cancel_flag);
}

std::optional<std::string_view> FieldCut::Cut(std::string_view block, std::size_t offset,
                                              ScrapeObserver* observer) {
  if (start_ == nullptr || end_ == nullptr) return std::nullopt;
  const auto look = [&](AgentText name, MarkerSearch& search, std::size_t from) {
    search.Reset(block);
    const auto match = search.Find(from);
    if (observer != nullptr) {
      observer->OnMarker(
          name,
          match ? std::optional(MarkerMatch{match->start + offset, match->length}) : std::nullopt);
    }
    return match;
  };
  const auto start = look(start_name_, start_->search, 0);
  if (!start) return std::nullopt;
  const std::size_t begin = start->start + start->length;
  const auto end = look(end_name_, end_->search, begin);
  if (!end || end->start == begin) return std::nullopt;
  return block.substr(begin, end->start - begin);
}

}  // namespace brovanta

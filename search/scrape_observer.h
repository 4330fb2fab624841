// A look over the scraper's shoulder, for whoever writes agents.
#pragma once

#include <optional>
#include <string>

#include "search/marker.h"
#include "search/web_agent.h"

namespace brovanta {

/// One of an agent's texts.
using AgentText = std::optional<std::string> WebAgent::*;

class ScrapeObserver {
 public:
  ScrapeObserver() = default;
  ScrapeObserver(const ScrapeObserver&) = delete;
  ScrapeObserver& operator=(const ScrapeObserver&) = delete;
  virtual ~ScrapeObserver() = default;

  /// The marker was searched for: where in the page it was found, if it was.
  virtual void OnMarker(AgentText marker, const std::optional<MarkerMatch>& match) = 0;

  /// A block was cut out of the page: its place and its length.
  virtual void OnBlock(std::size_t start, std::size_t length) = 0;
};

}  // namespace brovanta

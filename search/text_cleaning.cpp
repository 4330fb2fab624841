#include "search/text_cleaning.h"

#include <algorithm>
#include <cstddef>

#include "util/number.h"

namespace brovanta {
namespace {

// What is left of the text when every "<" up to the next ">" goes, as long as the next "<" stands
// before the next ">".
std::string WithoutTags(std::string_view text) {
  std::string kept;
  for (;;) {
    const std::size_t open = text.find('<');
    const std::size_t close = text.find('>');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
      return kept.append(text);
    }
    kept.append(text.substr(0, open));
    text.remove_prefix(close + 1);
  }
}

std::string Replaced(std::string_view text, std::string_view what, char by) {
  std::string result;
  for (;;) {
    const std::size_t found = text.find(what);
    if (found == std::string_view::npos) return result.append(text);
    result.append(text.substr(0, found)).push_back(by);
    text.remove_prefix(found + what.size());
  }
}

bool IsPartOfNumber(char character) {
  return (character >= '0' && character <= '9') || character == '.';
}

}  // namespace

std::string CleanText(std::string_view text) {
  std::string clean = Replaced(Replaced(WithoutTags(text), "&amp;", '&'), "&nbsp;", ' ');
  const auto is_control = [](char character) { return character >= 1 && character <= 31; };
  std::replace_if(clean.begin(), clean.end(), is_control, ' ');
  clean.erase(0, clean.find_first_not_of(' '));
  return clean;
}

double PriceOf(std::string_view text) {
  std::string digits(text);
  std::erase(digits, ',');
  const auto start = std::find_if(digits.begin(), digits.end(), IsPartOfNumber);
  const auto end = std::find_if_not(start, digits.end(), IsPartOfNumber);
  return LeadingDouble(std::string_view(start, end));
}

std::string CompleteUrl(std::string url, std::string_view site_address) {
  for (const std::string_view scheme : {"http://", "ftp://", "mailto:"}) {
    if (url.starts_with(scheme)) return url;
  }
  if (url.starts_with("www")) return "http://" + url;
  return std::string(site_address) + url;
}

}  // namespace brovanta

// From a cut of a shop's page to a title, a link, a price.
#pragma once

#include <string>
#include <string_view>

namespace brovanta {

/// The text without tags (up to a ">" that no "<" opens, which leaves the rest as it is), "&amp;"
/// and "&nbsp;" decoded in this order, control characters as blanks, no leading blanks. Trailing
/// blanks and all other entities stay.
[[nodiscard]] std::string CleanText(std::string_view text);

/// The first number of the text, whatever stands around it. Kept: commas are dropped wherever they
/// stand, so that "1.299,00" is 1.299. 0.0 when there is none.
[[nodiscard]] double PriceOf(std::string_view text);

/// A link as it can be opened: one that begins with "http://", "ftp://" or "mailto:" as it is, one
/// that begins with "www" with "http://" in front, any other with the site's address in front.
/// Kept: that is also what becomes of "https:".
[[nodiscard]] std::string CompleteUrl(std::string url, std::string_view site_address);

}  // namespace brovanta

// Pieces of the pages that people see: calm, readable on a phone, nothing fetched from elsewhere.
#pragma once

#include <string>
#include <string_view>

namespace brovanta::server {

/// The text with the characters that mean something in HTML written as entities, quotation marks
/// included, so that it may stand in content and in attributes.
[[nodiscard]] std::string Escaped(std::string_view text);

/// A whole page in UTF-8 around `body`, which is HTML already; `title` is plain text.
[[nodiscard]] std::string HtmlPage(std::string_view title, std::string_view body);

/// A page of a heading and one sentence, both plain text.
[[nodiscard]] std::string MessagePage(std::string_view heading, std::string_view sentence);

}  // namespace brovanta::server

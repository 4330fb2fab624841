// What a text must be like so that it reaches the handheld as it was written.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brovanta::server {

/// Characters that a text may have.
struct TextLength {
  std::size_t least;
  std::size_t most;
};

/// The handheld passes over store and category names of one character.
inline constexpr TextLength kListNameLength = {2, 49};
inline constexpr TextLength kCouponNameLength = {1, 49};
inline constexpr TextLength kProductLength = {0, 49};
inline constexpr TextLength kDescriptionLength = {0, 249};

/// The names of all tags of both feeds. Feeds know no escaping, so no text may hold such a tag.
inline constexpr std::array<std::string_view, 14> kFeedTags = {
    "CP", "IT", "ID", "SR", "NM", "PR", "DS", "TP", "VT", "VL", "SD", "ED", "SI", "CI"};

/// What is wrong with the text, to be read behind the name of its column; nothing when all is well.
[[nodiscard]] std::optional<std::string> TextProblem(std::string_view text, TextLength length);

/// A piece of somebody's input for a message: in quotation marks, cut when long, without control
/// characters.
[[nodiscard]] std::string Quoted(std::string_view text);

}  // namespace brovanta::server

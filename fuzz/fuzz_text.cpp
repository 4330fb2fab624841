// Any three texts, separated by zero bytes: word tests, tags and encodings against their plain
// definitions.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "util/text.h"
#include "util/utf16.h"
#include "util/windows_1252.h"
#include "util/word_search.h"

namespace brovanta {
namespace {

using fuzz::Require;

std::string Folded(std::string text) {
  for (char& character : text) {
    character = static_cast<char>(UpperCase(static_cast<unsigned char>(character)));
  }
  return text;
}

void RunWords(const std::string& text, const std::string& words) {
  const std::string folded = Folded(text);
  std::string rest = Folded(words) + ' ';
  std::size_t count = 0;
  std::size_t found = 0;
  for (std::size_t end = 0; (end = rest.find(' ')) != std::string::npos; rest.erase(0, end + 1)) {
    if (end == 0) continue;
    ++count;
    if (folded.find(rest.substr(0, end)) != std::string::npos) ++found;
  }
  Require((AllWordsIn(text.c_str(), words.c_str()) == 0) == (found == count), "all words");
  Require((AnyWordIn(text.c_str(), words.c_str()) == 0) == (found > 0), "any word");
}

void RunTags(const std::string& text, const std::string& open, const std::string& close) {
  const auto between = TagText(text.c_str(), open.c_str(), close.c_str());
  const std::size_t start = text.find(open);
  const std::size_t end = text.find(close);
  const bool expected =
      start != std::string::npos && end != std::string::npos && start + open.size() <= end;
  Require(between.has_value() == expected, "both tags, the closing one behind");
  if (between) {
    Require(text.compare(start, end - start, open + *between) == 0, "what lies between");
  }
  const std::int32_t number = TagInt(text.c_str(), open.c_str(), close.c_str());
  Require(between || number == 0, "no number without tags");
}

void RunUrl(const std::string& text) {
  const auto encoded = UrlEncode(text.c_str());
  Require(encoded && encoded->size() <= 3 * text.size(), "three characters for each at most");
  constexpr std::string_view kAllowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-*._+%";
  Require(encoded->find_first_not_of(kAllowed) == std::string::npos, "safe characters only");
  const bool cut =
      text.find_first_of("\x01\x02\x03\x04\x05\x06\x07\x08\t\n\v\f\r\x0E\x0F") != std::string::npos;
  Require(cut || encoded->size() >= text.size(), "cut by low characters only");
}

void RunWide(const std::string& text) {
  Require(NarrowToWindows1252(WidenFromWindows1252(text)) == text, "stored bytes come back");
  const auto wide = Utf8ToUtf16(text);
  if (wide) {
    Require(Utf16ToUtf8(*wide) == text, "well-formed text comes back");
    (void)NarrowToWindows1252(*wide);
    Require(CutUtf16(*wide, 39).size() <= 39, "cut");
    Require(Utf8ToUtf16(Utf16ToUtf8(CutUtf16(*wide, 39))).has_value(), "cut between characters");
  }
  std::u16string units;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    units += static_cast<char16_t>(static_cast<unsigned char>(text[i]) |
                                   static_cast<unsigned char>(text[i + 1]) << 8);
  }
  Require(Utf8ToUtf16(Utf16ToUtf8(units)).has_value(), "any units give well-formed text");
}

void Run(std::string_view bytes) {
  std::array<std::string, 3> pieces;
  for (std::string& piece : pieces) {
    const std::size_t length = std::min(bytes.find('\0'), bytes.size());
    piece = bytes.substr(0, length);
    bytes.remove_prefix(std::min(length + 1, bytes.size()));
  }
  RunWords(pieces[0], pieces[1]);
  RunTags(pieces[0], pieces[1], pieces[2]);
  RunUrl(pieces[0]);
  RunWide(pieces[0]);
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  brovanta::Run(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}

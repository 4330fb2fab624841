#include "tests/support/json_reader.h"

#include <cstddef>
#include <utility>

#include "util/utf16.h"

namespace brovanta::test {
namespace {

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  bool ReadDocument() {
    if (!Utf8ToUtf16(text_) || !ReadValue("")) return false;
    SkipBlanks();
    return at_ == text_.size();
  }

  std::map<std::string, std::string> values;

 private:
  void SkipBlanks() {
    while (at_ < text_.size() && std::string_view(" \t\r\n").find(text_[at_]) < 4) ++at_;
  }

  bool Take(char character) {
    SkipBlanks();
    if (at_ == text_.size() || text_[at_] != character) return false;
    ++at_;
    return true;
  }

  bool Keep(const std::string& path, std::string value) {
    return values.emplace(path, std::move(value)).second;
  }

  bool ReadValue(const std::string& path) {
    SkipBlanks();
    if (at_ == text_.size()) return false;
    if (text_[at_] == '{') return ReadObject(path);
    if (text_[at_] == '[') return ReadArray(path);
    if (text_[at_] == '"') {
      const auto value = ReadString();
      return value && Keep(path, *value);
    }
    return ReadWord(path);
  }

  bool ReadObject(const std::string& path) {
    ++at_;
    if (Take('}')) return Keep(path, "{}");
    do {
      SkipBlanks();
      const auto key = ReadString();
      if (!key || !Take(':')) return false;
      if (!ReadValue(path.empty() ? *key : path + "." + *key)) return false;
    } while (Take(','));
    return Take('}');
  }

  bool ReadArray(const std::string& path) {
    ++at_;
    if (Take(']')) return Keep(path, "[]");
    std::size_t index = 0;
    do {
      if (!ReadValue(path + "[" + std::to_string(index++) + "]")) return false;
    } while (Take(','));
    return Take(']');
  }

  bool ReadWord(const std::string& path) {
    for (const std::string_view word : {"true", "false", "null"}) {
      if (text_.substr(at_, word.size()) != word) continue;
      at_ += word.size();
      return Keep(path, std::string(word));
    }
    const std::size_t start = at_;
    TakeOne("-");
    const std::size_t whole = TakeDigits();
    if (whole == 0 || (whole > 1 && text_[at_ - whole] == '0')) return false;
    if (TakeOne(".") && TakeDigits() == 0) return false;
    if (TakeOne("eE")) {
      TakeOne("+-");
      if (TakeDigits() == 0) return false;
    }
    return Keep(path, std::string(text_.substr(start, at_ - start)));
  }

  // One of the characters, if it comes next.
  bool TakeOne(std::string_view characters) {
    if (at_ == text_.size() || characters.find(text_[at_]) == std::string_view::npos) return false;
    ++at_;
    return true;
  }

  std::size_t TakeDigits() {
    const std::size_t start = at_;
    while (TakeOne("0123456789")) {
    }
    return at_ - start;
  }

  std::optional<std::string> ReadString() {
    if (at_ == text_.size() || text_[at_++] != '"') return std::nullopt;
    std::string value;
    while (at_ < text_.size()) {
      const char character = text_[at_++];
      if (character == '"') return value;
      if (static_cast<unsigned char>(character) < 0x20) return std::nullopt;
      if (character != '\\') {
        value += character;
      } else if (!ReadEscape(value)) {
        return std::nullopt;
      }
    }
    return std::nullopt;
  }

  bool ReadEscape(std::string& value) {
    if (at_ == text_.size()) return false;
    const char kind = text_[at_++];
    const std::string_view plain = "\"\\/bfnrt";
    const std::string_view meant = "\"\\/\b\f\n\r\t";
    if (const std::size_t place = plain.find(kind); place != std::string_view::npos) {
      value += meant[place];
      return true;
    }
    const std::string digits(text_.substr(at_, 4));
    if (kind != 'u' || digits.size() < 4 ||
        digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) {
      return false;
    }
    at_ += 4;
    value += Utf16ToUtf8(std::u16string(1, static_cast<char16_t>(std::stoi(digits, nullptr, 16))));
    return true;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

std::optional<std::map<std::string, std::string>> ReadJson(std::string_view text) {
  Reader reader(text);
  if (!reader.ReadDocument()) return std::nullopt;
  return std::move(reader.values);
}

}  // namespace brovanta::test

#include "data/exact_values.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cstddef>
#include <limits>

#include "util/utf16.h"
#include "util/windows_1252.h"

namespace brovanta::data_tool {
namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 3600;

std::int64_t DaysOf(int year, unsigned month, unsigned day) {
  const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                         std::chrono::day(day)};
  return std::chrono::sys_days(date).time_since_epoch().count();
}

void AppendDigits(std::int64_t number, std::size_t width, std::string& text) {
  const std::string digits = std::to_string(number);
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

// Takes fixed text and digits off the front; once something does not fit nothing does.
class FixedForm {
 public:
  explicit FixedForm(std::string_view text) : rest_(text) {}

  void Expect(char character) {
    fits_ = fits_ && !rest_.empty() && rest_.front() == character;
    if (fits_) rest_.remove_prefix(1);
  }
  char Any() {
    fits_ = fits_ && !rest_.empty();
    if (!fits_) return '\0';
    const char character = rest_.front();
    rest_.remove_prefix(1);
    return character;
  }
  int Digits(std::size_t count, int most) {
    int number = 0;
    for (std::size_t i = 0; i < count; ++i) {
      const char digit = Any();
      fits_ = fits_ && digit >= '0' && digit <= '9';
      if (fits_) number = number * 10 + (digit - '0');
    }
    fits_ = fits_ && number <= most;
    return number;
  }
  [[nodiscard]] bool FitsWhole() const { return fits_ && rest_.empty(); }

 private:
  std::string_view rest_;
  bool fits_ = true;
};

std::optional<std::uint8_t> HexDigit(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<std::uint8_t>(digit - '0');
  if (digit >= 'a' && digit <= 'f') return static_cast<std::uint8_t>(digit - 'a' + 10);
  if (digit >= 'A' && digit <= 'F') return static_cast<std::uint8_t>(digit - 'A' + 10);
  return std::nullopt;
}

constexpr std::string_view kBase64 =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string StampText(DateStamp stamp) {
  const CalendarTime local = CalendarFromStamp(stamp);
  const std::int64_t local_seconds = DaysOf(local.year, local.month, local.day) * kSecondsPerDay +
                                     local.hour * kHour + local.minute * kMinute + local.second;
  const std::int64_t offset = (local_seconds - stamp) / kMinute;
  const auto shown = std::chrono::sys_seconds(std::chrono::seconds(stamp + offset * kMinute));
  const auto day = std::chrono::floor<std::chrono::days>(shown);
  const std::chrono::year_month_day date(day);
  const std::int64_t second = (shown - day).count();
  std::string text;
  AppendDigits(static_cast<int>(date.year()), 4, text);
  AppendDigits(static_cast<unsigned>(date.month()), 2, text += '-');
  AppendDigits(static_cast<unsigned>(date.day()), 2, text += '-');
  AppendDigits(second / kHour, 2, text += 'T');
  AppendDigits(second / kMinute % kMinute, 2, text += ':');
  AppendDigits(second % kMinute, 2, text += ':');
  const std::int64_t minutes = offset < 0 ? -offset : offset;
  AppendDigits(minutes / kMinute, 2, text += offset < 0 ? '-' : '+');
  AppendDigits(minutes % kMinute, 2, text += ':');
  return text;
}

std::optional<DateStamp> StampFromText(std::string_view text) {
  FixedForm form(text);
  const int year = form.Digits(4, 9999);
  form.Expect('-');
  const int month = form.Digits(2, 12);
  form.Expect('-');
  const int day = form.Digits(2, 31);
  form.Expect('T');
  std::int64_t seconds = form.Digits(2, 23) * kHour;
  form.Expect(':');
  seconds += form.Digits(2, 59) * kMinute;
  form.Expect(':');
  seconds += form.Digits(2, 59);
  const char sign = form.Any();
  if (sign == '+' || sign == '-') {
    std::int64_t offset = form.Digits(2, 23) * kHour;
    form.Expect(':');
    offset += form.Digits(2, 59) * kMinute;
    seconds += sign == '-' ? offset : -offset;
  } else if (sign != 'Z') {
    return std::nullopt;
  }
  if (!form.FitsWhole() || month < 1 || day < 1 || day > DaysInMonth(month, year)) {
    return std::nullopt;
  }
  seconds +=
      DaysOf(year, static_cast<unsigned>(month), static_cast<unsigned>(day)) * kSecondsPerDay;
  if (SaturatedStamp(seconds) != seconds) return std::nullopt;
  return static_cast<DateStamp>(seconds);
}

std::string DoubleBits(double number) {
  const auto bits = std::bit_cast<std::uint64_t>(number);
  std::string bytes;
  for (int shift = 56; shift >= 0; shift -= 8) {
    bytes += static_cast<char>(static_cast<unsigned char>(bits >> shift));
  }
  return "0x" + HexText(bytes);
}

std::optional<double> DoubleFromBits(std::string_view text) {
  if (!text.starts_with("0x")) return std::nullopt;
  const auto bytes = BytesFromHex(text.substr(2));
  if (!bytes || bytes->size() != sizeof(double)) return std::nullopt;
  std::uint64_t bits = 0;
  for (const char byte : *bytes) bits = bits << 8 | static_cast<unsigned char>(byte);
  return std::bit_cast<double>(bits);
}

std::string HexText(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const char one : bytes) {
    const auto byte = static_cast<unsigned char>(one);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::optional<std::string> BytesFromHex(std::string_view text) {
  if (text.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const auto high = HexDigit(text[i]);
    const auto low = HexDigit(text[i + 1]);
    if (!high || !low) return std::nullopt;
    bytes += static_cast<char>(static_cast<unsigned char>(*high << 4 | *low));
  }
  return bytes;
}

std::string Base64Text(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t group = 0;
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    for (std::size_t j = 0; j < 3; ++j) {
      group = group << 8 | (j < count ? static_cast<unsigned char>(bytes[i + j]) : 0U);
    }
    for (std::size_t j = 0; j < 4; ++j) {
      text += j <= count ? kBase64[group >> (18 - 6 * j) & 63] : '=';
    }
  }
  return text;
}

std::optional<std::string> BytesFromBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::size_t padding = 0;
  while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') ++padding;
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3);
  std::uint32_t group = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_padding = i >= text.size() - padding;
    const std::size_t value = is_padding ? 0 : kBase64.find(text[i]);
    if (value == std::string_view::npos) return std::nullopt;
    group = group << 6 | static_cast<std::uint32_t>(value);
    if (i % 4 != 3) continue;
    for (const int shift : {16, 8, 0}) {
      bytes += static_cast<char>(static_cast<unsigned char>(group >> shift));
    }
    group = 0;
  }
  // Bits that no byte takes must be zero: one text for the same bytes.
  const std::string unused = bytes.substr(bytes.size() - padding);
  if (unused.find_first_not_of('\0') != std::string::npos) return std::nullopt;
  bytes.resize(bytes.size() - padding);
  return bytes;
}

std::optional<std::string> StoredFromUtf8(std::string_view utf8, std::string& culprit) {
  culprit.clear();
  const auto wide = Utf8ToUtf16(utf8);
  if (!wide) return std::nullopt;
  std::string stored = NarrowToWindows1252(*wide);
  const std::u16string back = WidenFromWindows1252(stored);
  const auto [at, other] = std::mismatch(wide->begin(), wide->end(), back.begin(), back.end());
  if (at == wide->end()) return stored;
  const std::u16string_view rest(&*at, static_cast<std::size_t>(wide->end() - at));
  culprit = Utf16ToUtf8(rest.substr(0, rest[0] >= 0xD800 && rest[0] < 0xDC00 ? 2 : 1));
  return std::nullopt;
}

}  // namespace brovanta::data_tool

#include "platform/app_options.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "util/utf16.h"

namespace brovanta {
namespace {

using platform::RegistryKey;
using platform::RegistryValue;

constexpr std::size_t kTextBytes = (AppOptions::kTextLength + 1) * sizeof(char16_t);

// kept: existing settings hold the eight bytes of the double behind the tag of a 32-bit number
RegistryValue TaxValue(double tax) {
  RegistryValue value{platform::REG_DWORD, {}};
  auto bits = std::bit_cast<std::uint64_t>(tax);
  for (std::size_t i = 0; i < sizeof bits; ++i, bits >>= 8) {
    value.data.push_back(static_cast<std::byte>(bits & 0xFF));
  }
  return value;
}

// The type tag does not count in reading, the eight bytes do.
std::optional<double> TaxFromValue(const RegistryValue& value) {
  std::uint64_t bits = 0;
  if (value.data.size() != sizeof bits) return std::nullopt;
  for (std::size_t i = sizeof bits; i > 0; --i) {
    bits = (bits << 8) | std::to_integer<std::uint64_t>(value.data[i - 1]);
  }
  const auto tax = std::bit_cast<double>(bits);
  return std::isfinite(tax) ? std::optional(tax) : std::nullopt;
}

void SaveText(RegistryKey& key, const char* name, const std::string& text) {
  const auto wide = Utf8ToUtf16(text);
  if (!wide) return;
  (void)key.SetText(name, Utf16ToUtf8(CutUtf16(*wide, AppOptions::kTextLength)));
}

}  // namespace

AppOptions::AppOptions(const platform::RegistryStore& store, std::string key_path)
    : store_(store), key_path_(std::move(key_path)) {
  (void)load();  // without stored settings the defaults stand
}

int AppOptions::load() {
  const auto key = RegistryKey::Open(store_, key_path_);
  if (!key) return -1;
  country_ = key->QueryText("Country", kTextBytes).value_or(country_);
  zip_code_ = key->QueryText("ZipCode", kTextBytes).value_or(zip_code_);
  if (const auto value = key->Query("Tax")) tax_ = TaxFromValue(*value).value_or(tax_);
  return 0;
}

int AppOptions::save() {
  auto key = RegistryKey::Create(store_, key_path_);
  if (!key) return -1;
  SaveText(*key, "Country", country_);
  SaveText(*key, "ZipCode", zip_code_);
  (void)key->Set("Tax", TaxValue(tax_));
  return 0;
}

}  // namespace brovanta

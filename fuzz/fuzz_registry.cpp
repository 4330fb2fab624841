// Any bytes as the registry's file, and as names and values put into it: whatever stands in the
// file is kept, and what is put in is found again.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "platform/registry_file.h"
#include "platform/registry_text.h"

namespace brovanta::platform {
namespace {

using fuzz::Require;

constexpr std::string_view kOwnKey = "Software\\Brovanta\\Options";

void RequireFound(const RegistryFile& file, std::string_view key, std::string_view name,
                  const RegistryValue& value) {
  const RegistryValue* const found = file.Find(key, name);
  Require(found != nullptr, "the value is there");
  Require(found->type == value.type && found->data == value.data, "type and bytes are the same");
}

// Sets the value in the file and in the file as read back.
void SetAndRead(RegistryFile file, std::string_view key, std::string_view name,
                const RegistryValue& value) {
  const bool set = file.Set(key, name, value);
  Require(set == (IsRegistryName(key) && IsRegistryName(name)), "only control characters hinder");
  if (!set) return;
  RequireFound(file, key, name, value);
  const auto again = RegistryFile::Parse(file.Text());
  Require(again.has_value() && again->HasKey(key), "what was written is read");
  RequireFound(*again, key, name, value);
  Require(again->Text() == file.Text(), "what was read is written");
}

void RequireShortLines(const RegistryValue& value) {
  std::string text = FormatRegistryValue(value, 0, "\n");
  if (text.front() == '"') return;  // a text is one line
  text += '\n';
  for (std::size_t end = 0; (end = text.find('\n')) != std::string::npos; text.erase(0, end + 1)) {
    Require(end <= kRegistryLineLength, "no line is too long");
  }
}

void RunFile(std::string_view bytes) {
  const auto file = RegistryFile::Parse(bytes);
  if (!file) return;
  const bool blank = file->Text() == RegistryFile().Text();
  Require(blank || file->Text() == bytes, "every byte is kept");
  const RegistryValue tax{REG_DWORD, std::vector<std::byte>(8, std::byte{0x40})};
  SetAndRead(*file, kOwnKey, "Tax", tax);
  RegistryFile longer = *file;
  Require(longer.Set("Software\\A key that is new", "x", tax), "a new key can be added");
  Require(blank || longer.Text().starts_with(bytes), "what is new comes behind");
}

// The first byte says how long the name is, the second the type; the rest are the value's bytes.
void RunValue(std::string_view bytes) {
  if (bytes.size() < 2) return;
  const auto name_length =
      std::min<std::size_t>(static_cast<unsigned char>(bytes[0]) & 0x3F, bytes.size() - 2);
  const std::uint32_t type = static_cast<unsigned char>(bytes[1]);
  const std::string_view name = bytes.substr(2, name_length);
  const auto data = std::as_bytes(std::span(bytes.substr(2 + name_length)));
  const RegistryValue value{type, {data.begin(), data.end()}};
  RequireShortLines(value);
  SetAndRead(RegistryFile(), kOwnKey, name, value);
  SetAndRead(RegistryFile(), name, "Value", value);
}

}  // namespace
}  // namespace brovanta::platform

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  brovanta::platform::RunFile(bytes);
  brovanta::platform::RunValue(bytes);
  return 0;
}

#include "tests/support/temp_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace brovanta::test {

TempFolder::TempFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "brovanta-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::File(std::string_view name) const {
  return path_ + "/" + std::string(name);
}

void TempFolder::Write(std::string_view name, const Bytes& bytes) const {
  std::ofstream out(File(name), std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
  if (!out.flush()) throw std::runtime_error("cannot write " + File(name));
}

void TempFolder::WriteText(std::string_view name, std::string_view text) const {
  const auto* bytes = reinterpret_cast<const std::byte*>(text.data());
  Write(name, Bytes(bytes, bytes + text.size()));
}

std::optional<Bytes> TempFolder::Read(std::string_view name) const {
  const auto text = ReadText(name);
  if (!text) return std::nullopt;
  const auto* bytes = reinterpret_cast<const std::byte*>(text->data());
  return Bytes(bytes, bytes + text->size());
}

std::optional<std::string> TempFolder::ReadText(std::string_view name) const {
  std::ifstream in(File(name), std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

Bytes Hex(std::string_view digits) {
  Bytes bytes;
  std::string pair;
  for (const char digit : digits) {
    if (digit == ' ' || digit == '\n') continue;
    pair += digit;
    if (pair.size() == 2) {
      bytes.push_back(static_cast<std::byte>(std::stoi(pair, nullptr, 16)));
      pair.clear();
    }
  }
  if (!pair.empty()) throw std::invalid_argument("odd number of hexadecimal digits");
  return bytes;
}

Bytes Join(std::initializer_list<Bytes> pieces) {
  Bytes joined;
  for (const Bytes& piece : pieces) joined.insert(joined.end(), piece.begin(), piece.end());
  return joined;
}

Bytes Run(std::size_t count, unsigned char value) {
  return Bytes(count, static_cast<std::byte>(value));
}

Bytes Padded(std::string_view text, std::size_t size) {
  Bytes bytes(size);
  for (std::size_t i = 0; i < text.size() && i < size; ++i) {
    bytes[i] = static_cast<std::byte>(text[i]);
  }
  return bytes;
}

}  // namespace brovanta::test

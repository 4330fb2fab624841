#include "data/stored_result.h"

#include "util/little_endian.h"

namespace brovanta::data_tool {
namespace {

template <typename Number>
void AppendNumber(Number number, std::string& bytes) {
  std::array<std::byte, sizeof(Number)> stored{};
  StoreLittle(stored.data(), number);
  bytes.append(reinterpret_cast<const char*>(stored.data()), stored.size());
}

}  // namespace

std::size_t SizeOfResult(std::span<const std::byte> rest) {
  if (rest.size() < result_layout::kSize) return 0;
  std::size_t at = result_layout::kSize;
  for (std::size_t i = 0; i < result_layout::kTexts; ++i) {
    if (rest.size() - at < result_layout::kLengthSize) return 0;
    const auto length = LoadLittle<std::int32_t>(rest.data() + at);
    at += result_layout::kLengthSize;
    if (length < 1) continue;
    if (rest.size() - at < static_cast<std::size_t>(length)) return 0;
    at += static_cast<std::size_t>(length);
  }
  return at;
}

StoredResult DecodeResult(std::span<const std::byte> bytes) {
  StoredResult result;
  result.Id = LoadLittle<std::int32_t>(bytes.data() + result_layout::kId);
  result.Price = LoadLittle<double>(bytes.data() + result_layout::kPrice);
  result.Status = LoadLittle<std::int16_t>(bytes.data() + result_layout::kStatus);
  std::size_t at = result_layout::kSize;
  for (StoredResultText& text : result.texts) {
    text.length = LoadLittle<std::int32_t>(bytes.data() + at);
    at += result_layout::kLengthSize;
    if (text.length < 1) continue;
    const auto size = static_cast<std::size_t>(text.length);
    text.bytes.assign(reinterpret_cast<const char*>(bytes.data() + at), size);
    at += size;
  }
  return result;
}

std::string EncodeResult(const StoredResult& result) {
  std::string bytes;
  AppendNumber(result.Id, bytes);
  AppendNumber(result.Price, bytes);
  AppendNumber(result.Status, bytes);
  for (const StoredResultText& text : result.texts) {
    AppendNumber(text.length, bytes);
    bytes += text.bytes;
  }
  return bytes;
}

}  // namespace brovanta::data_tool

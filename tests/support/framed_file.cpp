#include "tests/support/framed_file.h"

#include <bit>
#include <fstream>
#include <iterator>

namespace brovanta::test {
namespace {

constexpr std::uint32_t kMagic = 80001;
constexpr std::uint32_t kRecordMark = 80002;
constexpr std::uint32_t kEndMark = 80003;

std::uint64_t Little(const std::string& bytes, std::size_t offset, std::size_t size) {
  std::uint64_t value = 0;
  for (std::size_t i = size; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(bytes.at(offset + i));
  }
  return value;
}

}  // namespace

std::uint32_t WordAt(const std::string& record, std::size_t offset) {
  return static_cast<std::uint32_t>(Little(record, offset, 4));
}

std::uint16_t HalfAt(const std::string& record, std::size_t offset) {
  return static_cast<std::uint16_t>(Little(record, offset, 2));
}

double DoubleAt(const std::string& record, std::size_t offset) {
  return std::bit_cast<double>(Little(record, offset, 8));
}

std::string TextAt(const std::string& record, std::size_t offset, std::size_t size) {
  const std::string field = record.substr(offset, size);
  return field.substr(0, field.find('\0'));
}

std::optional<FramedFile> ReadFramedFile(const std::string& path, bool has_last_id,
                                         std::size_t record_size) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  const std::string bytes(std::istreambuf_iterator<char>(in), {});
  const std::size_t first_mark = has_last_id ? 8 : 4;
  const std::size_t step = 4 + record_size;
  if (bytes.size() < first_mark + 4 || (bytes.size() - first_mark - 4) % step != 0) {
    return std::nullopt;
  }
  FramedFile file;
  if (WordAt(bytes, 0) != kMagic) return std::nullopt;
  if (has_last_id) file.last_id = WordAt(bytes, 4);
  std::size_t position = first_mark;
  for (; position + 4 < bytes.size(); position += step) {
    if (WordAt(bytes, position) != kRecordMark) return std::nullopt;
    file.records.push_back(bytes.substr(position + 4, record_size));
  }
  if (WordAt(bytes, position) != kEndMark) return std::nullopt;
  return file;
}

}  // namespace brovanta::test

#include "tests/support/format_page.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace brovanta::test {
namespace {

std::vector<std::string> Lines(const std::string& page) {
  std::ifstream in(std::string(BROVANTA_SOURCE_FOLDER) + "/docs/formats/" + page);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string Trimmed(std::string text) {
  for (const char drop : {' ', '`'}) {
    while (!text.empty() && text.front() == drop) text.erase(0, 1);
    while (!text.empty() && text.back() == drop) text.pop_back();
  }
  return text;
}

}  // namespace

Rows TableOf(const std::string& page, const std::string& heading) {
  Rows rows;
  bool inside = false;
  for (const std::string& line : Lines(page)) {
    if (line.starts_with("#")) inside = line == "## " + heading;
    if (!inside || !line.starts_with("| ")) continue;
    std::istringstream cells(line.substr(1));
    std::vector<std::string> texts;
    for (std::string cell; std::getline(cells, cell, '|');) texts.push_back(Trimmed(cell));
    if (texts.size() < 4 || texts[0] == "Field") continue;
    rows.push_back({texts[0], std::stoul(texts[1]), std::stoul(texts[2]), texts[3]});
  }
  return rows;
}

void ExpectWithoutGap(const Rows& rows, std::size_t size) {
  std::size_t next = 0;
  for (const Row& row : rows) {
    EXPECT_EQ(row.offset, next) << row.field;
    next = row.offset + row.width;
  }
  EXPECT_EQ(next, size);
}

Bytes ExampleOf(const std::string& page) {
  Bytes bytes;
  bool inside = false;
  for (const std::string& line : Lines(page)) {
    if (line.starts_with("```")) {
      inside = !inside;
      continue;
    }
    if (!inside) continue;
    std::istringstream words(line.substr(0, line.find(';')));
    std::string word;
    words >> word;
    EXPECT_EQ(std::stoul(word, nullptr, 16), bytes.size()) << line;
    while (words >> word) {
      const std::size_t times = word.find('*');
      const std::size_t count = times == std::string::npos ? 1 : std::stoul(word.substr(times + 1));
      bytes.insert(bytes.end(), count,
                   static_cast<std::byte>(std::stoul(word.substr(0, 2), nullptr, 16)));
    }
  }
  return bytes;
}

}  // namespace brovanta::test

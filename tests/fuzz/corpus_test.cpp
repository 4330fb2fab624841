// Runs a fuzz target over every file of its corpus; the target ends the process when something that
// must hold does not.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace brovanta {
namespace {

std::vector<std::string> Inputs() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(BROVANTA_CORPUS)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string TestName(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param.substr(0, info.param.find('.'));
  for (char& character : name) {
    if (std::isalnum(static_cast<unsigned char>(character)) == 0) character = '_';
  }
  return name;
}

class BROVANTA_CORPUS_OF : public testing::TestWithParam<std::string> {};

TEST_P(BROVANTA_CORPUS_OF, Holds) {
  std::ifstream in(std::string(BROVANTA_CORPUS) + "/" + GetParam(), std::ios::binary);
  ASSERT_TRUE(in);
  const std::string bytes(std::istreambuf_iterator<char>(in), {});
  EXPECT_EQ(
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
}

INSTANTIATE_TEST_SUITE_P(Corpus, BROVANTA_CORPUS_OF, testing::ValuesIn(Inputs()), TestName);

}  // namespace
}  // namespace brovanta

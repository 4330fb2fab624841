#include "util/argument_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brovanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Knows "--flag", "--value X" and "--stop".
class Reader : ArgumentReader {
 public:
  using ArgumentReader::ArgumentReader;
  using ArgumentReader::words;

  bool Read() {
    return ReadArguments([this](std::string_view option) {
      options.emplace_back(option);
      if (option == "--stop") return Fail("stopped");
      if (option == "--value") options.emplace_back(HasMore() ? Take() : "nothing");
      return true;
    });
  }

  std::vector<std::string> options;
};

struct ArgumentReaderTest : testing::Test {
  Reader Of(const std::vector<std::string_view>& arguments) {
    arguments_ = arguments;
    return Reader(arguments_, error_);
  }
  std::vector<std::string_view> arguments_;
  std::string error_;
};

TEST_F(ArgumentReaderTest, OptionsAndWordsMayComeInAnyOrder) {
  Reader reader = Of({"one", "--flag", "two", "--value", "--odd", "-"});
  EXPECT_TRUE(reader.Read());
  EXPECT_THAT(reader.options, ElementsAre("--flag", "--value", "--odd"));
  EXPECT_THAT(reader.words(), ElementsAre("one", "two", "-"));
  EXPECT_EQ(error_, "");
}

TEST_F(ArgumentReaderTest, BehindTwoDashesEverythingIsAWord) {
  Reader reader = Of({"--flag", "--", "--flag", "--", "x"});
  EXPECT_TRUE(reader.Read());
  EXPECT_THAT(reader.options, ElementsAre("--flag"));
  EXPECT_THAT(reader.words(), ElementsAre("--flag", "--", "x"));
}

TEST_F(ArgumentReaderTest, ValueThatIsMissingCanBeToldFromOneThatIsThere) {
  Reader reader = Of({"--value"});
  EXPECT_TRUE(reader.Read());
  EXPECT_THAT(reader.options, ElementsAre("--value", "nothing"));
}

TEST_F(ArgumentReaderTest, FailureEndsTheReadingWithItsSentence) {
  Reader reader = Of({"--stop", "--flag", "word"});
  EXPECT_FALSE(reader.Read());
  EXPECT_THAT(reader.options, ElementsAre("--stop"));
  EXPECT_THAT(reader.words(), IsEmpty());
  EXPECT_EQ(error_, "stopped");
}

TEST_F(ArgumentReaderTest, NothingIsReadFromNoArguments) {
  Reader reader = Of({});
  EXPECT_TRUE(reader.Read());
  EXPECT_THAT(reader.words(), IsEmpty());
}

}  // namespace
}  // namespace brovanta

#include "server/agent_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "server/feed.h"
#include "util/text.h"

namespace brovanta::server {
namespace {

// The agent numbers of a category are tested by their first digit only.
constexpr std::int32_t kMaxTypeId = 9;
constexpr std::string_view kKeyword = " KEYWORD ";

constexpr std::array<std::string_view, 10> kRequired = {
    "SiteType",  "SiteName",  "SiteAddress", "FormatString", "StartResult",
    "EndResult", "StartItem", "EndItem",     "StartURL",     "EndURL"};

std::string Opening(std::string_view tag) { return std::string("<").append(tag).append(">"); }
std::string Closing(std::string_view tag) { return std::string("</").append(tag).append(">"); }

std::optional<std::string> Field(const std::string& block, std::string_view tag) {
  return TagText(block.c_str(), Opening(tag).c_str(), Closing(tag).c_str());
}

std::int32_t IntField(const std::string& block, std::string_view tag) {
  return TagInt(block.c_str(), Opening(tag).c_str(), Closing(tag).c_str());
}

// Collects the problems of one kind of block.
class BlockChecker {
 public:
  BlockChecker(std::string_view text, std::string_view tag, std::vector<Problem>& problems)
      : text_(text), tag_(tag), problems_(problems) {}

  template <typename Check>
  void ForEach(Check check) {
    const std::string opening = Opening(tag_);
    const std::string closing = Closing(tag_);
    std::size_t start = text_.find(opening);
    if (start == std::string_view::npos) Note(0, "holds no " + opening);
    while (start != std::string_view::npos && problems_.size() < kMaxProblems) {
      line_ += LinesIn(text_.substr(counted_, start - counted_));
      counted_ = start;
      const std::size_t end = text_.find(closing, start);
      if (end == std::string_view::npos) return Refuse("is never closed");
      check(std::string(text_.substr(start, end + closing.size() - start)));
      start = text_.find(opening, end + closing.size());
    }
  }

  void Refuse(const std::string& message) { Note(line_, Opening(tag_) + " " + message); }

 private:
  static std::size_t LinesIn(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  }

  void Note(std::size_t line, std::string message) {
    if (problems_.size() < kMaxProblems) problems_.push_back({line, std::move(message)});
  }

  std::string_view text_;
  std::string_view tag_;
  std::vector<Problem>& problems_;
  std::size_t counted_ = 0;
  std::size_t line_ = 1;
};

void CheckCategories(std::string_view text, std::vector<Problem>& problems) {
  BlockChecker checker(text, "AgentType", problems);
  checker.ForEach([&checker](const std::string& block) {
    const std::int32_t id = IntField(block, "TypeId");
    if (id < 1 || id > kMaxTypeId) checker.Refuse("needs a <TypeId> from 1 to 9");
    if (!Field(block, "TypeName")) checker.Refuse("lacks <TypeName>");
  });
}

void CheckAgents(std::string_view text, std::vector<Problem>& problems) {
  BlockChecker checker(text, "WebAgent", problems);
  checker.ForEach([&checker](const std::string& block) {
    if (IntField(block, "SiteId") < 1) checker.Refuse("needs a <SiteId> of 1 or more");
    for (const std::string_view tag : kRequired) {
      if (!Field(block, tag)) checker.Refuse("lacks " + Opening(tag));
    }
    const auto format = Field(block, "FormatString");
    const std::size_t place = format ? format->find(kKeyword) : 1;
    if (place == std::string::npos || place == 0) {
      checker.Refuse("has no \" KEYWORD \" inside its <FormatString>");
    }
  });
}

// The size of the file once every token has given way to the longest address.
std::size_t LargestSize(std::string_view text) {
  std::size_t size = text.size();
  for (std::size_t at = text.find(kServerToken); at != std::string_view::npos;
       at = text.find(kServerToken, at + kServerToken.size())) {
    size += kMaxHostLength - kServerToken.size();
  }
  return size;
}

}  // namespace

std::vector<Problem> AgentFileProblems(std::string_view text) {
  std::vector<Problem> problems;
  if (LargestSize(text) > kMaxFeedBytes) {
    problems.push_back(
        {0, "is longer than the " + std::to_string(kMaxFeedBytes) + " bytes that handhelds read"});
  }
  if (text.find('\0') != std::string_view::npos) {
    problems.push_back({0, "holds a zero byte, where handhelds stop reading"});
  }
  if (!problems.empty()) return problems;
  CheckCategories(text, problems);
  CheckAgents(text, problems);
  return problems;
}

std::string WithServerAddress(std::string_view text, std::string_view host) {
  std::string filled;
  filled.reserve(text.size());
  for (;;) {
    const std::size_t at = text.find(kServerToken);
    filled += text.substr(0, at);
    if (at == std::string_view::npos) return filled;
    filled += host;
    text.remove_prefix(at + kServerToken.size());
  }
}

bool IsPlainHost(std::string_view host) {
  constexpr std::string_view kHarmless =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_:[]";
  return !host.empty() && host.size() <= kMaxHostLength &&
         host.find_first_not_of(kHarmless) == std::string_view::npos;
}

}  // namespace brovanta::server

// What is written about the server says what the server does.
#include <gmock/gmock.h>

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "server/command_line.h"
#include "server/coupon_table.h"
#include "server/import_file.h"
#include "server/list_table.h"

namespace brovanta::server {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

std::string Document(const std::string& path) {
  std::string error;
  auto text = ReadWholeFile(std::string(BROVANTA_SOURCE_FOLDER "/") + path, error);
  EXPECT_TRUE(text) << path << ": " << error;
  return text.value_or("");
}

// The block of the page, without its fences, that starts so.
std::string Example(const std::string& page, const std::string& start) {
  const std::size_t at = page.find("```\n" + start);
  if (at == std::string::npos) return "";
  const std::size_t from = at + 4;
  return page.substr(from, page.find("```", from) - from);
}

TEST(ServerPage, ItsTablesCanBeImported) {
  const std::string page = Document("docs/server.md");
  const auto list = ReadListTable(Example(page, WriteListTable({})));
  EXPECT_THAT(list.problems, IsEmpty());
  EXPECT_EQ(list.rows.size(), 2u);
  const auto coupons = ReadCouponTable(Example(page, WriteCouponTable({})));
  EXPECT_THAT(coupons.problems, IsEmpty());
  EXPECT_EQ(coupons.rows.size(), 2u);
}

TEST(ServerPage, TellsEveryColumn) {
  const std::string page = Document("docs/server.md");
  std::string columns = WriteCouponTable({});
  columns.back() = ',';
  for (std::size_t at = 0; at < columns.size();) {
    const std::size_t end = columns.find(',', at);
    const std::string column = columns.substr(at, end - at);
    EXPECT_THAT(page, HasSubstr(std::string("`").append(column).append("`")));
    at = end + 1;
  }
}

// Every line of a block that starts the server with its data.
std::vector<std::string> CommandsOf(std::string page) {
  for (std::size_t at = page.find('\\'); at != std::string::npos; at = page.find('\\')) {
    page.erase(at, 1);  // the manual's hyphens are escaped
  }
  constexpr std::string_view kStart = "\nbrovanta-server --data ";
  std::vector<std::string> commands;
  for (std::size_t at = page.find(kStart); at != std::string::npos; at = page.find(kStart, at)) {
    const std::size_t end = page.find('\n', ++at);
    commands.push_back(page.substr(at, end - at));
  }
  return commands;
}

TEST(ServerDocuments, TheirCommandsAreUnderstood) {
  for (const char* document : {"README.md", "docs/server.md", "packaging/brovanta-server.1"}) {
    const auto commands = CommandsOf(Document(document));
    EXPECT_GE(commands.size(), 5u) << document;
    for (const std::string& command : commands) {
      std::vector<std::string_view> words;
      for (std::string_view rest = command; !rest.empty();) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        if (end > 0) words.push_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
      }
      std::string error;
      EXPECT_TRUE(ParseCommandLine(std::span(words).subspan(1), error)) << command << ": " << error;
    }
  }
}

TEST(ServerManPage, TellsEveryOptionOfTheHelp) {
  const std::string page = Document("packaging/brovanta-server.1");
  const std::string help(HelpText());
  int options = 0;
  for (std::size_t at = help.find("--"); at != std::string::npos; at = help.find("--", at + 2)) {
    const std::size_t end = help.find_first_not_of("abcdefghijklmnopqrstuvwxyz", at + 2);
    EXPECT_THAT(page, HasSubstr("\\-\\-" + help.substr(at + 2, end - at - 2)));
    ++options;
  }
  EXPECT_GT(options, 6);
}

}  // namespace
}  // namespace brovanta::server

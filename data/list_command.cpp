#include "data/list_command.h"

#include <array>
#include <charconv>
#include <chrono>
#include <optional>
#include <string>

#include "data/exit_status.h"
#include "data/list/list_html.h"
#include "data/list/list_text.h"
#include "data/list/shopping_list.h"
#include "data/output_file.h"
#include "data/pdf/list_pdf.h"
#include "data/shopping_data_reader.h"
#include "util/readable_text.h"
#include "util/utf16.h"
#include "util/windows_1252.h"

namespace brovanta::data_tool {
namespace {

constexpr int kPeriodGroup = 1;
constexpr int kKindGroup = 2;

constexpr std::array kOptions{
    Option{"--day", "", "of a day (as without it)", kPeriodGroup},
    Option{"--week", "", "of a week, from Sunday to Saturday", kPeriodGroup},
    Option{"--month", "", "of a month", kPeriodGroup},
    Option{"--date", "YYYY-MM-DD", "around this day and not around today"},
    Option{"--store", "NAME", "of one store alone"},
    Option{"--text", "", "writes plain text (as without it)", kKindGroup},
    Option{"--html", "", "writes a web page", kKindGroup},
    Option{"--pdf", "", "writes pages to print", kKindGroup},
    kOutputOption,
};

// One of the calendar, within what the program can store.
std::optional<CalendarTime> DateFrom(const std::string& text) {
  constexpr std::size_t kLength = 10;
  if (text.size() != kLength || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto number = [&](std::size_t at, std::size_t length) -> std::optional<unsigned> {
    unsigned value = 0;
    const char* const end = text.data() + at + length;
    const auto read = std::from_chars(text.data() + at, end, value);
    return read.ptr == end && read.ec == std::errc() ? std::optional(value) : std::nullopt;
  };
  const auto year = number(0, 4);
  const auto month = number(5, 2);
  const auto day = number(8, 2);
  if (!year || !month || !day) return std::nullopt;
  using std::chrono::year_month_day;
  const year_month_day date{std::chrono::year{static_cast<int>(*year)}, std::chrono::month{*month},
                            std::chrono::day{*day}};
  constexpr year_month_day kFirst{std::chrono::year{1970}, std::chrono::January,
                                  std::chrono::day{2}};
  constexpr year_month_day kLast{std::chrono::year{2038}, std::chrono::January,
                                 std::chrono::day{18}};
  if (!date.ok() || date < kFirst || date > kLast) return std::nullopt;
  CalendarTime time;
  time.year = static_cast<std::uint16_t>(*year);
  time.month = static_cast<std::uint16_t>(*month);
  time.day = static_cast<std::uint16_t>(*day);
  return time;
}

PeriodKind PeriodFrom(const CommandLine& line) {
  if (line.Has("--week")) return PeriodKind::kWeek;
  return line.Has("--month") ? PeriodKind::kMonth : PeriodKind::kDay;
}

// The name as it is stored; nothing when there is no such store.
std::optional<std::string> StoredName(const ShoppingData& data, const std::string& name) {
  const auto wide = Utf8ToUtf16(name);
  const std::string narrow = wide ? NarrowToWindows1252(*wide) : name;
  if (HasStore(data, narrow)) return narrow;
  return HasStore(data, name) ? std::optional(name) : std::nullopt;
}

CommandEnd Bad(const std::string& words) { return {kBad, {}, {words}}; }

}  // namespace

std::span<const Option> ListOptions() { return kOptions; }

CommandEnd List(const CommandLine& line) {
  ListRequest request;
  request.period = PeriodFrom(line);
  request.date = CalendarFromStamp(TodayStamp());
  if (const auto text = line.ValueOf("--date")) {
    const auto date = DateFrom(*text);
    if (!date) {
      return {kMisused, {}, {Quoted(*text) + " is no date from 1970-01-02 to 2038-01-18."}};
    }
    request.date = *date;
  }
  const std::string& folder = line.arguments.front();
  ReadProblem problem;
  const auto data = ReadShoppingData(folder, problem);
  if (!data) return {problem.status, {}, {Quoted(folder) + ": " + problem.words}};
  if (const auto name = line.ValueOf("--store")) {
    request.store = StoredName(*data, *name);
    if (!request.store)
      return Bad("There is no store " + Quoted(*name) + " in the list of stores.");
  }
  const auto list = BuildShoppingList(*data, request);
  if (!list) return Bad("The amounts are too large to be added up.");
  if (line.Has("--html")) return DeliverDocument(line, folder, ListAsHtml(*list));
  if (!line.Has("--pdf")) return DeliverDocument(line, folder, ListAsText(*list));
  std::string pdf = ListAsPdf(*list);
  if (pdf.empty()) return Bad("The pages cannot be drawn.");
  return DeliverDocument(line, folder, std::move(pdf));
}

}  // namespace brovanta::data_tool

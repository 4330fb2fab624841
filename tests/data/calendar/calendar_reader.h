// What another program's reader finds in a calendar file.
#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace brovanta::test {

struct ReadEvent {
  std::map<std::string, std::string> texts;  ///< values of its properties by their names
  std::vector<std::chrono::sys_days> days;   ///< on which it takes place, at most as many as asked
};

struct ReadCalendar {
  bool sound = false;  ///< it was read, and nothing in it breaks the rules
  std::vector<ReadEvent> events;
};

/// Reads the file with libical, which expands the rules too.
[[nodiscard]] ReadCalendar ReadCalendarFile(const std::string& file, std::size_t most_days);

/// One rule alone, from its first day on.
[[nodiscard]] std::vector<std::chrono::sys_days> ExpandRule(const std::string& rule,
                                                            std::chrono::sys_days first,
                                                            std::size_t most_days);

}  // namespace brovanta::test

// What copies of a data folder are called, and which of them are kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta {

inline constexpr std::size_t kDailyCopies = 7;
inline constexpr std::size_t kWeeklyCopies = 4;

/// Behind the name of a copy that is not whole: one that is being made, or removed.
inline constexpr std::string_view kPartSuffix = ".part";

/// "2026-11-21" of today, by the local date.
[[nodiscard]] std::string TodaysCopyName();

/// The days from 1970-01-01 to the date that the name of a daily copy tells; nothing for any other
/// name.
[[nodiscard]] std::optional<std::int64_t> DayOfCopy(std::string_view name);

/// "2026-11-21.before-restore", and with a number from 2 up behind it: what a restore replaced.
[[nodiscard]] std::string BeforeRestoreName(const std::string& day_name, int number);
[[nodiscard]] bool IsBeforeRestoreName(std::string_view name);

/// Whether it is the name of a copy, daily or not.
[[nodiscard]] bool IsCopyName(std::string_view name);

/// The daily copies among the names that are not kept any longer. The newest seven stay, and of
/// those before them the first of each week (Monday to Sunday) for the newest four weeks. Names of
/// days to come do not count and stay.
[[nodiscard]] std::vector<std::string> CopiesToRemove(std::vector<std::string> names);

}  // namespace brovanta

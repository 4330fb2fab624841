// Conversion between universal seconds and local calendar values, fast enough for every record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace brovanta {

/// A local calendar date and time.
struct CalendarTime {
  std::uint16_t year = 1970;
  std::uint16_t month = 1;        ///< 1 to 12
  std::uint16_t day_of_week = 4;  ///< 0 = Sunday; filled in by conversions, ignored as input
  std::uint16_t day = 1;          ///< 1 to 31
  std::uint16_t hour = 0;
  std::uint16_t minute = 0;
  std::uint16_t second = 0;
  std::uint16_t millisecond = 0;

  friend bool operator==(const CalendarTime&, const CalendarTime&) = default;
};

/// The offsets of the process's time zone over the whole range of a 32-bit stamp, read once from
/// the C library. Immutable, so that any thread may use it without a lock.
class LocalZone {
 public:
  /// The zone as it is now. A changed TZ variable or /etc/localtime gives a new object; the old
  /// one stays valid for whoever holds it. Any thread may call it. Hold the result over a loop:
  /// every call looks at the environment.
  [[nodiscard]] static std::shared_ptr<const LocalZone> Current();

  /// The local calendar value of a moment given in universal seconds within the 32-bit range.
  [[nodiscard]] CalendarTime ToCalendar(std::int64_t seconds) const;

  /// The moment of a local calendar value. Of the two moments of an ambiguous local time (clocks
  /// set back) the earlier; a local time that does not exist (clocks set forward) is read by the
  /// clock of before the change and so comes to lie as far behind the gap as it stood in it: where
  /// clocks jump from 1:00 to 2:00, 1:00 means 2:00 and 1:30 means 2:30. Fields beyond their range
  /// carry into the next larger one; milliseconds are dropped. The result is not bounded to 32
  /// bits.
  [[nodiscard]] std::int64_t ToSeconds(const CalendarTime& time) const;

 private:
  struct Span {
    std::int64_t from;    // first moment of the span
    std::int64_t offset;  // local minus universal seconds
  };

  LocalZone();

  [[nodiscard]] std::size_t SpanAt(std::int64_t seconds) const;

  std::vector<Span> spans_;
};

}  // namespace brovanta

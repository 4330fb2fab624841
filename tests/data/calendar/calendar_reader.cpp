#include "tests/data/calendar/calendar_reader.h"

#include <libical/ical.h>

#include <algorithm>
#include <memory>

namespace brovanta::test {
namespace {

using std::chrono::sys_days;

using Component = std::unique_ptr<icalcomponent, decltype(&icalcomponent_free)>;

sys_days DayOf(const icaltimetype& time) {
  return std::chrono::year{time.year} / time.month / time.day;
}

icaltimetype TimeOf(sys_days day) {
  const std::chrono::year_month_day date{day};
  // Not icaltime_null_date(): its hour is -1, and days are counted wrongly from there.
  icaltimetype time = icaltime_null_time();
  time.is_date = 1;
  time.year = static_cast<int>(date.year());
  time.month = static_cast<int>(static_cast<unsigned>(date.month()));
  time.day = static_cast<int>(static_cast<unsigned>(date.day()));
  return time;
}

std::vector<sys_days> Expanded(const icalrecurrencetype& rule, const icaltimetype& first,
                               std::size_t most_days) {
  std::vector<sys_days> days;
  icalrecur_iterator* const walk = icalrecur_iterator_new(rule, first);
  while (walk != nullptr && days.size() < most_days) {
    const icaltimetype next = icalrecur_iterator_next(walk);
    if (icaltime_is_null_time(next)) break;
    days.push_back(DayOf(next));
  }
  icalrecur_iterator_free(walk);
  return days;
}

ReadEvent Read(icalcomponent* event, std::size_t most_days) {
  ReadEvent result;
  const icaltimetype first = icalcomponent_get_dtstart(event);
  result.days.push_back(DayOf(first));
  for (icalproperty* at = icalcomponent_get_first_property(event, ICAL_ANY_PROPERTY); at != nullptr;
       at = icalcomponent_get_next_property(event, ICAL_ANY_PROPERTY)) {
    const char* const text = icalproperty_get_value_as_string(at);
    const icalvalue* const value = icalproperty_get_value(at);
    const bool is_text = icalvalue_isa(value) == ICAL_TEXT_VALUE;
    result.texts[icalproperty_get_property_name(at)] = is_text ? icalvalue_get_text(value) : text;
    if (icalproperty_isa(at) == ICAL_RDATE_PROPERTY) {
      result.days.push_back(DayOf(icalproperty_get_rdate(at).time));
    }
    if (icalproperty_isa(at) == ICAL_RRULE_PROPERTY) {
      result.days = Expanded(icalproperty_get_rrule(at), first, most_days);
    }
  }
  return result;
}

}  // namespace

ReadCalendar ReadCalendarFile(const std::string& file, std::size_t most_days) {
  ReadCalendar calendar;
  const Component whole(icalparser_parse_string(file.c_str()), icalcomponent_free);
  if (whole == nullptr) return calendar;
  // libical notes what it cannot read in properties of its own.
  calendar.sound = icalcomponent_count_errors(whole.get()) == 0;
  for (icalcomponent* at = icalcomponent_get_first_component(whole.get(), ICAL_VEVENT_COMPONENT);
       at != nullptr; at = icalcomponent_get_next_component(whole.get(), ICAL_VEVENT_COMPONENT)) {
    calendar.events.push_back(Read(at, most_days));
  }
  return calendar;
}

std::vector<sys_days> ExpandRule(const std::string& rule, sys_days first, std::size_t most_days) {
  return Expanded(icalrecurrencetype_from_string(rule.c_str()), TimeOf(first), most_days);
}

}  // namespace brovanta::test

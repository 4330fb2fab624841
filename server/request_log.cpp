#include "server/request_log.h"

#include "server/calendar_day.h"
#include "server/query.h"
#include "util/clock.h"

namespace brovanta::server {
namespace {

void AppendTwoDigits(std::string& text, unsigned number) {
  text += static_cast<char>('0' + number / 10 % 10);
  text += static_cast<char>('0' + number % 10);
}

std::string LocalTime() {
  const CalendarTime now = LocalZone::Current()->ToCalendar(CurrentSeconds());
  std::string text = FormatDay(DayOf(now)) + " ";
  AppendTwoDigits(text, now.hour);
  text += ':';
  AppendTwoDigits(text, now.minute);
  text += ':';
  AppendTwoDigits(text, now.second);
  return text;
}

std::string OrDash(const std::string& text) { return text.empty() ? "-" : text; }

}  // namespace

std::string RequestLine(const LoggedRequest& request) {
  return LocalTime() + " " + OrDash(request.remote) + " " + OrDash(LoggedTarget(request.method)) +
         " " + OrDash(LoggedTarget(request.target)) + " " + std::to_string(request.status) + " " +
         std::to_string(request.bytes);
}

}  // namespace brovanta::server

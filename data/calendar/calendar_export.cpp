#include "data/calendar/calendar_export.h"

#include <array>
#include <chrono>
#include <cstdio>

#include "data/calendar/calendar_text.h"
#include "data/calendar/recurrence.h"
#include "data/list/line_price.h"
#include "data/list/plain_line.h"
#include "db/schedule.h"
#include "util/clock.h"

namespace brovanta::data_tool {
namespace {

constexpr char kDateStart[] = "DTSTART;VALUE=DATE";
constexpr char kDateEnd[] = "DTEND;VALUE=DATE";
constexpr char kFurtherDates[] = "RDATE;VALUE=DATE";

// "20261121T120000Z"
std::string UniversalTime(std::int64_t seconds) {
  using std::chrono::floor;
  const std::chrono::sys_seconds moment{std::chrono::seconds{seconds}};
  const auto day = floor<std::chrono::days>(moment);
  const std::chrono::hh_mm_ss time{moment - day};
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "T%02d%02d%02dZ", static_cast<int>(time.hours().count()),
                static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
  return DateValue(day) + text.data();
}

std::string NameIn(const NameList& names, std::uint32_t id) {
  const ListItem* const item = names.Find(static_cast<std::int32_t>(id));
  return item == nullptr ? std::string() : PlainLine(item->Name.view());
}

class CalendarWriter {
 public:
  explicit CalendarWriter(const ShoppingData& data)
      : data_(data), zone_(LocalZone::Current()), now_(UniversalTime(CurrentSeconds())) {}

  std::string Write() {
    text_.Add("BEGIN", "VCALENDAR");
    text_.Add("VERSION", "2.0");
    text_.Add("PRODID", "-//Brovanta//brovanta-data//EN");
    text_.Add("CALSCALE", "GREGORIAN");
    text_.AddText("X-WR-CALNAME", "Shopping list");
    for (const ProductRecord& product : data_.products) {
      if (product.Deleted == 0 && NextDueDate(product, *zone_) != kNoDate) AddEvent(product);
    }
    text_.Add("END", "VCALENDAR");
    return text_.text();
  }

 private:
  void AddEvent(const ProductRecord& product) {
    text_.Add("BEGIN", "VEVENT");
    text_.Add("UID", "product-" + std::to_string(product.Id) + "@brovanta");
    text_.Add("DTSTAMP", now_);
    AddDates(RecurrenceOf(product, *zone_));
    text_.AddText("SUMMARY", Summary(product));
    AddIfAny("LOCATION", NameIn(data_.stores, product.StoreId));
    AddIfAny("CATEGORIES", NameIn(data_.categories, product.CategoryId));
    AddIfAny("DESCRIPTION", PlainLines(product.Notes.view()));
    text_.Add("TRANSP", "TRANSPARENT");
    text_.Add("END", "VEVENT");
  }

  void AddDates(const Recurrence& recurrence) {
    text_.Add(kDateStart, DateValue(recurrence.first));
    text_.Add(kDateEnd, DateValue(recurrence.first + std::chrono::days{1}));
    if (!recurrence.rule.empty()) text_.Add("RRULE", recurrence.rule);
    std::string further;
    for (const std::chrono::sys_days day : recurrence.further) {
      if (!further.empty()) further += ',';
      further += DateValue(day);
    }
    if (!further.empty()) text_.Add(kFurtherDates, further);
  }

  void AddIfAny(std::string_view property, const std::string& text) {
    if (!text.empty()) text_.AddText(property, text);
  }

  // "Milk, 2 bottle"; the quantity only where one was entered.
  [[nodiscard]] std::string Summary(const ProductRecord& product) const {
    std::string summary = PlainLine(product.Name.view());
    const auto quantity = Decimal::From(product.Quantity);
    if (!quantity || quantity->IsZero() || quantity->IsNegative() || !quantity->Rounded()) {
      return summary;
    }
    summary += ", " + quantity->Text(0);
    const std::string unit = NameIn(data_.units, product.UnitId);
    if (!unit.empty()) summary += " " + unit;
    return summary;
  }

  const ShoppingData& data_;
  std::shared_ptr<const LocalZone> zone_;
  std::string now_;
  CalendarText text_;
};

}  // namespace

std::string CalendarOf(const ShoppingData& data) { return CalendarWriter(data).Write(); }

}  // namespace brovanta::data_tool

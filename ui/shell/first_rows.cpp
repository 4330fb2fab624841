#include "ui/shell/first_rows.h"

#include <utility>

#include "ui/shell/record_filter.h"
#include "ui/shell/tree_fillers.h"
#include "util/calendar_period.h"
#include "util/thread_priority.h"

namespace brovanta {

FirstRows::FirstRows(std::unique_ptr<ShoppingDatabase> database, std::string data_folder,
                     std::shared_future<void> begin)
    : database_(std::move(database)),
      opened_(*database_),
      code_(std::async(std::launch::async | std::launch::deferred, [this,
                                                                    folder = std::move(data_folder),
                                                                    begin = std::move(begin)] {
              StepBehindOtherThreads();
              if (begin.valid()) begin.wait();
              return Read(folder);
            }).share()) {}

FirstRows::~FirstRows() { code_.wait(); }

int FirstRows::Wait() { return code_.get(); }

int FirstRows::Read(const std::string& data_folder) {
  static_cast<void>(opened_.Open(data_folder));  // what is missing shows up as an empty tree
  const CalendarPeriod today = PeriodAround(CalendarFromStamp(TodayStamp()), PeriodKind::kDay);
  RecordFilter filter;
  filter.period_start = today.start;
  filter.period_end = today.end;
  query_ = AsProductFilter(filter);
  return ReadProductRows(opened_, query_, headings_);
}

}  // namespace brovanta

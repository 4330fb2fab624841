#include "data/export_ics.h"

#include "data/calendar/calendar_export.h"
#include "data/output_file.h"
#include "data/shopping_data_reader.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {

CommandEnd ExportAsIcs(const CommandLine& line) {
  const std::string& folder = line.arguments.front();
  ReadProblem problem;
  const auto data = ReadShoppingData(folder, problem);
  if (!data) return {problem.status, {}, {Quoted(folder) + ": " + problem.words}};
  return DeliverDocument(line, folder, CalendarOf(*data));
}

}  // namespace brovanta::data_tool

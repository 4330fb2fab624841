#include "data/export_json.h"

#include <array>
#include <string_view>
#include <vector>

#include "data/data_files.h"
#include "data/exact_values.h"
#include "data/file_kind.h"
#include "data/record_json.h"
#include "data/result_json.h"
#include "util/json_writer.h"
#include "util/utf16.h"
#include "util/windows_1252.h"

namespace brovanta::data_tool {
namespace {

void WriteOne(FileKind kind, std::string_view record, const ReferenceNames& names,
              JsonWriter& json) {
  switch (kind) {
    case FileKind::kList:
      WriteRecord<ListItemKind>(record, names, json);
      break;
    case FileKind::kDiscounts:
      WriteRecord<DiscountKind>(record, names, json);
      break;
    case FileKind::kProducts:
      WriteRecord<ProductKind>(record, names, json);
      break;
    case FileKind::kSearches:
      WriteRecord<SearchEntryKind>(record, names, json);
      break;
    case FileKind::kResults:
      WriteResult(record, json);
      break;
    case FileKind::kAgents:
      break;
  }
}

// A text that is no UTF-8 is taken for Windows-1252, in which every byte is a character.
void WriteText(const std::string& bytes, JsonWriter& json) {
  const bool is_utf8 = Utf8ToUtf16(bytes).has_value();
  const std::string text = is_utf8 ? bytes : Utf8FromWindows1252(bytes);
  json.Key("encoding").Text(is_utf8 ? "utf-8" : "windows-1252");
  json.Key("lines").BeginArray(JsonLayout::kLines);
  std::size_t begin = 0;
  for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', begin)) {
    json.Text(std::string_view(text).substr(begin, end - begin));
    begin = end + 1;
  }
  json.Text(std::string_view(text).substr(begin)).EndArray();
}

void WriteFile(FileKind kind, const std::string& bytes, const ReferenceNames& names,
               JsonWriter& json) {
  const auto frame = FrameOf(kind);
  if (!frame) {
    WriteText(bytes, json);
    return;
  }
  const FramedFile file = TakeApart(bytes, *frame);
  if (file.damage) {
    json.Key("damage").Text(*file.damage).Key("base64").Text(Base64Text(bytes));
    return;
  }
  if (frame->has_last_id) json.Key("LastId").Number(file.last_id);
  json.Key("records").BeginArray(JsonLayout::kLines);
  for (const std::string_view record : file.records) WriteOne(kind, record, names, json);
  json.EndArray();
  if (!file.behind_end.empty()) json.Key("behind_end").Text(HexText(file.behind_end));
}

// Lists first, then what refers to them; results at the end.
std::vector<std::string> InReadingOrder(const DataSnapshot& files) {
  std::vector<std::string> names;
  for (const std::string_view name : kDataFiles) {
    if (files.count(std::string(name)) > 0) names.emplace_back(name);
  }
  for (const auto& [name, bytes] : files) {
    if (KindOfFile(name) == FileKind::kResults) names.push_back(name);
  }
  return names;
}

}  // namespace

std::string ExportJson(const DataSnapshot& files) {
  const ReferenceNames names = NamesOf(files);
  JsonWriter json;
  json.BeginObject(JsonLayout::kLines);
  json.Key("format").Text(kExportFormat).Key("version").Number(kExportVersion);
  json.Key("files").BeginObject(JsonLayout::kLines);
  for (const std::string& name : InReadingOrder(files)) {
    json.Key(name).BeginObject(JsonLayout::kLines);
    WriteFile(*KindOfFile(name), files.at(name), names, json);
    json.EndObject();
  }
  json.EndObject().EndObject();
  return json.text() + "\n";
}

}  // namespace brovanta::data_tool

#include "data/import_json.h"

#include <vector>

#include "data/exact_values.h"
#include "data/export_json.h"
#include "data/file_kind.h"
#include "data/json_document.h"
#include "data/record_json.h"
#include "data/result_json.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

using Kind = JsonNode::Kind;

class Importer {
 public:
  std::optional<DataSnapshot> Import(const JsonNode& document) {
    JsonFieldReader head(document, "the document", fault_);
    const JsonNode* const files = ReadHead(head);
    if (files == nullptr || !head.Finish() || !CheckNames(*files)) return std::nullopt;
    // Lists have names for the discounts, both for the products.
    const bool read = ReadKind(*files, FileKind::kList) && ReadKind(*files, FileKind::kDiscounts) &&
                      ReadKind(*files, FileKind::kProducts) &&
                      ReadKind(*files, FileKind::kSearches) &&
                      ReadKind(*files, FileKind::kResults) && ReadKind(*files, FileKind::kAgents);
    if (!read) return std::nullopt;
    return std::move(files_);
  }
  [[nodiscard]] const std::string& error() const { return fault_.words(); }

 private:
  // The files; null pointer when they are not there or the document is none of ours.
  const JsonNode* ReadHead(JsonFieldReader& head) {
    const JsonNode* const format = head.Take("format");
    if (format == nullptr) return nullptr;
    if (format->kind != Kind::kText || format->text != kExportFormat) {
      fault_.Set(*format, "format", "should be " + Quoted(kExportFormat));
      return nullptr;
    }
    std::int32_t version = 0;
    head.Number("version", version);
    if (!fault_.IsSet() && version != kExportVersion) {
      fault_.Set(*head.Take("version"), "version",
                 "should be " + std::to_string(kExportVersion) + ": another program has written " +
                     std::to_string(version));
    }
    return fault_.IsSet() ? nullptr : head.Take("files");
  }

  bool CheckNames(const JsonNode& files) {
    if (files.kind != Kind::kObject) {
      return fault_.Set(files, "files", "an object should stand here");
    }
    for (std::size_t i = 0; i < files.keys.size(); ++i) {
      if (KindOfFile(files.keys[i])) continue;
      return fault_.Set(files.items[i], "files",
                        "no data file has the name " + Quoted(files.keys[i]));
    }
    return true;
  }

  bool ReadKind(const JsonNode& files, FileKind kind) {
    const ReferenceNames names = NamesOf(files_);
    for (std::size_t i = 0; i < files.keys.size(); ++i) {
      if (KindOfFile(files.keys[i]) != kind) continue;
      files_[files.keys[i]] = ReadFile(kind, files.items[i], files.keys[i], names);
      if (fault_.IsSet()) return false;
    }
    return true;
  }

  std::string ReadFile(FileKind kind, const JsonNode& object, const std::string& name,
                       const ReferenceNames& names) {
    JsonFieldReader reader(object, name, fault_);
    const auto frame = FrameOf(kind);
    std::string bytes;
    if (const JsonNode* const base64 = reader.TakeIfThere("base64")) {
      bytes = ReadDamaged(*base64, reader);
    } else if (frame) {
      bytes = ReadFramed(kind, *frame, reader, name, names);
    } else {
      bytes = ReadText(reader);
    }
    (void)reader.Finish();
    return bytes;
  }

  std::string ReadDamaged(const JsonNode& base64, JsonFieldReader& reader) {
    (void)reader.TakeIfThere("damage");  // for the person who reads it
    auto bytes = base64.kind == Kind::kText ? BytesFromBase64(base64.text) : std::nullopt;
    if (bytes) return std::move(*bytes);
    fault_.Set(base64, reader.PlaceOf("base64"), "bytes in base 64 should stand here");
    return {};
  }

  std::string ReadFramed(FileKind kind, const FrameKind& frame, JsonFieldReader& reader,
                         const std::string& name, const ReferenceNames& names) {
    FramedFile file;
    if (frame.has_last_id) reader.Number("LastId", file.last_id);
    std::vector<std::string> records;
    if (const JsonNode* const array = TakeArray(reader, "records")) {
      for (std::size_t i = 0; i < array->items.size() && !fault_.IsSet(); ++i) {
        const std::string place = name + ", records[" + std::to_string(i) + "]";
        records.push_back(ReadOne(kind, array->items[i], place, names));
      }
    }
    file.records.assign(records.begin(), records.end());
    std::string behind_end;
    if (const JsonNode* const hex = reader.TakeIfThere("behind_end")) {
      const auto bytes = hex->kind == Kind::kText ? BytesFromHex(hex->text) : std::nullopt;
      if (bytes) {
        behind_end = *bytes;
      } else {
        fault_.Set(*hex, reader.PlaceOf("behind_end"),
                   "two hexadecimal digits for each byte should stand here");
      }
    }
    file.behind_end = behind_end;
    return PutTogether(file, frame);
  }

  std::string ReadOne(FileKind kind, const JsonNode& object, const std::string& place,
                      const ReferenceNames& names) {
    switch (kind) {
      case FileKind::kList:
        return ReadRecord<ListItemKind>(object, place, names, fault_);
      case FileKind::kDiscounts:
        return ReadRecord<DiscountKind>(object, place, names, fault_);
      case FileKind::kProducts:
        return ReadRecord<ProductKind>(object, place, names, fault_);
      case FileKind::kSearches:
        return ReadRecord<SearchEntryKind>(object, place, names, fault_);
      case FileKind::kResults:
        return ReadResult(object, place, fault_);
      case FileKind::kAgents:
        break;
    }
    return {};
  }

  std::string ReadText(JsonFieldReader& reader) {
    const JsonNode* const encoding = reader.Take("encoding");
    const JsonNode* const lines = TakeArray(reader, "lines");
    if (encoding == nullptr || lines == nullptr) return {};
    const bool is_utf8 = encoding->text == "utf-8";
    if (!is_utf8 && encoding->text != "windows-1252") {
      fault_.Set(*encoding, reader.PlaceOf("encoding"),
                 "\"utf-8\" or \"windows-1252\" should stand here");
    }
    std::string bytes;
    for (std::size_t i = 0; i < lines->items.size() && !fault_.IsSet(); ++i) {
      const JsonNode& line = lines->items[i];
      const std::string place = reader.PlaceOf("lines[" + std::to_string(i) + "]");
      if (i > 0) bytes += '\n';
      if (line.kind != Kind::kText) {
        fault_.Set(line, place, "a text should stand here");
      } else if (is_utf8) {
        bytes += line.text;
      } else {
        AddStored(line, place, bytes);
      }
    }
    return bytes;
  }

  void AddStored(const JsonNode& line, const std::string& place, std::string& bytes) {
    std::string culprit;
    const auto stored = StoredFromUtf8(line.text, culprit);
    if (stored) {
      bytes += *stored;
    } else {
      fault_.Set(line, place, "the character " + Quoted(culprit) + " is not in Windows-1252");
    }
  }

  const JsonNode* TakeArray(JsonFieldReader& reader, const std::string& key) {
    const JsonNode* const array = reader.Take(key);
    if (array == nullptr || array->kind == Kind::kArray) return array;
    fault_.Set(*array, reader.PlaceOf(key), "an array should stand here");
    return nullptr;
  }

  JsonFault fault_;
  DataSnapshot files_;
};

}  // namespace

std::optional<DataSnapshot> ImportJson(std::string_view document, std::string& error) {
  const auto root = ReadJsonDocument(document, error);
  if (!root) return std::nullopt;
  Importer importer;
  auto files = importer.Import(*root);
  if (!files) error = importer.error();
  return files;
}

}  // namespace brovanta::data_tool

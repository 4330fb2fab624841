#include "data/result_json.h"

#include <array>
#include <limits>
#include <span>

#include "data/exact_values.h"
#include "data/json_field_writer.h"
#include "data/stored_result.h"
#include "util/utf16.h"
#include "util/windows_1252.h"

namespace brovanta::data_tool {
namespace {

using Kind = JsonNode::Kind;

constexpr std::array<std::string_view, result_layout::kTexts> kTexts{"Title", "Text", "Url",
                                                                     "SiteName"};

// Pages come in UTF-8 or in Windows-1252; what a text is decides which form it takes, so that the
// same bytes come back.
void WriteText(const StoredResultText& text, JsonWriter& json) {
  if (text.length == 0) {
    json.Null();
    return;
  }
  if (text.length < 0) {
    json.BeginObject().Key("length").Number(text.length).EndObject();
    return;
  }
  const std::size_t zero = text.bytes.find('\0');
  if (zero + 1 != text.bytes.size()) {
    json.BeginObject().Key("hex").Text(HexText(text.bytes)).EndObject();
    return;
  }
  const std::string shown = text.bytes.substr(0, zero);
  if (Utf8ToUtf16(shown)) {
    json.Text(shown);
  } else {
    json.BeginObject().Key("windows-1252").Text(Utf8FromWindows1252(shown)).EndObject();
  }
}

class TextReader {
 public:
  TextReader(const JsonNode& node, std::string place, JsonFault& fault)
      : node_(node), place_(std::move(place)), fault_(fault) {}

  StoredResultText Read() {
    if (node_.kind == Kind::kNull) return {};
    if (node_.kind == Kind::kText) return WithZero(node_.text);
    JsonFieldReader form(node_, place_, fault_);
    StoredResultText text;
    if (const JsonNode* const length = form.TakeIfThere("length")) {
      if (length->kind == Kind::kInteger && length->integer < 0 &&
          length->integer >= std::numeric_limits<std::int32_t>::min()) {
        text.length = static_cast<std::int32_t>(length->integer);
      } else {
        fault_.Set(*length, form.PlaceOf("length"), "an integer below 0 should stand here");
      }
    } else if (const JsonNode* const hex = form.TakeIfThere("hex")) {
      const auto bytes = hex->kind == Kind::kText ? BytesFromHex(hex->text) : std::nullopt;
      if (bytes && !bytes->empty()) {
        text = Whole(*bytes);
      } else {
        fault_.Set(*hex, form.PlaceOf("hex"),
                   "two hexadecimal digits for each byte should stand here");
      }
    } else {
      text = Stored(form);
    }
    (void)form.Finish();
    return text;
  }

 private:
  StoredResultText Stored(JsonFieldReader& form) {
    const JsonNode* const text = form.TakeIfThere("windows-1252");
    std::string culprit;
    const auto stored = text != nullptr && text->kind == Kind::kText
                            ? StoredFromUtf8(text->text, culprit)
                            : std::nullopt;
    if (stored) return WithZero(*stored);
    fault_.Set(node_, place_,
               culprit.empty() ? "a text, null, or an object with \"windows-1252\", \"hex\" or "
                                 "\"length\" should stand here"
                               : "a character is not in Windows-1252");
    return {};
  }
  StoredResultText WithZero(const std::string& text) {
    if (text.find('\0') == std::string::npos) return Whole(text + '\0');
    fault_.Set(node_, place_, "a text cannot hold the character zero");
    return {};
  }
  static StoredResultText Whole(std::string bytes) {
    const auto length = static_cast<std::int32_t>(bytes.size());
    return {length, std::move(bytes)};
  }

  const JsonNode& node_;
  std::string place_;
  JsonFault& fault_;
};

}  // namespace

void WriteResult(std::string_view result, JsonWriter& json) {
  const StoredResult decoded = DecodeResult(std::as_bytes(std::span(result)));
  json.BeginObject(JsonLayout::kLines);
  JsonFieldWriter fields(json);
  fields.Number("Id", decoded.Id);
  fields.Number("Price", decoded.Price);
  fields.Number("Status", decoded.Status);
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    json.Key(kTexts[i]);
    WriteText(decoded.texts[i], json);
  }
  json.EndObject();
}

std::string ReadResult(const JsonNode& object, const std::string& place, JsonFault& fault) {
  JsonFieldReader fields(object, place, fault);
  StoredResult result;
  fields.Number("Id", result.Id);
  fields.Number("Price", result.Price);
  fields.Number("Status", result.Status);
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    const JsonNode* const text = fields.Take(kTexts[i]);
    if (text != nullptr) {
      result.texts[i] = TextReader(*text, fields.PlaceOf(kTexts[i]), fault).Read();
    }
  }
  (void)fields.Finish();
  return EncodeResult(result);
}

}  // namespace brovanta::data_tool

// Results of saved searches as members of a JSON document, both ways.
#pragma once

#include <string>
#include <string_view>

#include "data/json_field_reader.h"
#include "util/json_writer.h"

namespace brovanta::data_tool {

/// Writes the result as an object from which ReadResult makes the same bytes.
void WriteResult(std::string_view result, JsonWriter& json);

/// The bytes of the result; of no use when the fault is set.
[[nodiscard]] std::string ReadResult(const JsonNode& object, const std::string& place,
                                     JsonFault& fault);

}  // namespace brovanta::data_tool

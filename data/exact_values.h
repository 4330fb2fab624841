// Values of the data files as readable text from which the very same bits come back.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "util/date_stamp.h"

namespace brovanta::data_tool {

/// "2005-03-30T01:00:00+02:00": date, time and offset of the local zone; seconds of its offset, as
/// zones had them long ago, are left out of both. What it means does not depend on the zone any
/// more.
[[nodiscard]] std::string StampText(DateStamp stamp);

/// Any offset, or "Z". Nothing when it is no such date or does not fit into a stamp.
[[nodiscard]] std::optional<DateStamp> StampFromText(std::string_view text);

/// The bits of a number that is not finite: "0x7ff8000000000000".
[[nodiscard]] std::string DoubleBits(double number);
[[nodiscard]] std::optional<double> DoubleFromBits(std::string_view text);

/// Two lower-case digits for each byte; either case is read.
[[nodiscard]] std::string HexText(std::string_view bytes);
[[nodiscard]] std::optional<std::string> BytesFromHex(std::string_view text);

/// As RFC 4648 has it, padded.
[[nodiscard]] std::string Base64Text(std::string_view bytes);
[[nodiscard]] std::optional<std::string> BytesFromBase64(std::string_view text);

/// Nothing when a character is not in Windows-1252, or the text is not UTF-8; `culprit` is then
/// that character, or empty.
[[nodiscard]] std::optional<std::string> StoredFromUtf8(std::string_view utf8,
                                                        std::string& culprit);

}  // namespace brovanta::data_tool

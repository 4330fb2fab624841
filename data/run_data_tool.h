// The program behind main(): does what the command line says.
#pragma once

#include <span>
#include <string_view>

namespace brovanta::data_tool {

/// Writes its report to standard output and what is wrong with its input to standard error. The
/// exit status of exit_status.h.
[[nodiscard]] int RunDataTool(std::span<const std::string_view> arguments,
                              std::string_view version);

}  // namespace brovanta::data_tool

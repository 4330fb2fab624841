// The program behind main(): does what the command line says.
#pragma once

#include <span>
#include <string_view>

namespace brovanta::server {

/// Runs to the end; serving ends on SIGTERM and SIGINT. Writes to standard output and standard
/// error. The exit status: 0 done, 1 failed or faulty file, 2 command line not understood.
/// Blocks the two signals in the calling thread, so call it before any other thread exists.
[[nodiscard]] int RunServer(std::span<const std::string_view> arguments, std::string_view version);

}  // namespace brovanta::server

// The line that each request leaves in the log.
#pragma once

#include <cstddef>
#include <string>

namespace brovanta::server {

struct LoggedRequest {
  std::string remote;  ///< host of the client
  std::string method;  ///< empty when none could be read
  std::string target;
  int status = 0;
  std::size_t bytes = 0;  ///< of the body
};

/// "2025-05-01 08:30:00 127.0.0.1 GET /stores.aspx?idx=0&user=- 200 1234", in local time. Never
/// holds a line break, nor where the user lives.
[[nodiscard]] std::string RequestLine(const LoggedRequest& request);

}  // namespace brovanta::server

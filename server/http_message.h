// What a request asks and what is answered, apart from how they travel.
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace brovanta::server {

struct HttpRequest {
  std::string method;  ///< "GET", "HEAD" or another
  std::string target;  ///< path and query as they came
  std::string host;    ///< text of the Host header, empty without one
};

struct HttpAnswer {
  int status = 200;
  std::string content_type;
  std::string body;
  std::string location = {};           ///< of a redirect; plain characters of an address only
  std::chrono::milliseconds delay{0};  ///< how long it is kept back
};

/// Answers requests, one at a time.
using HttpHandler = std::function<HttpAnswer(const HttpRequest&)>;

}  // namespace brovanta::server

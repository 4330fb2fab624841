// One GET request after the other, with the cancel flag in view, and what comes back in pieces.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "net/http/http_url.h"

namespace brovanta {

/// How long the network may take; past it a download ends with kInternetTimedOut.
struct HttpTimeouts {
  std::chrono::milliseconds connect{30'000};  ///< to find the server and to reach it
  std::chrono::milliseconds silence{30'000};  ///< without anything from the server
};

/// The two lines that a request adds to the address: all that the server learns.
struct HeaderBlock {
  const char* accept = "";
  const char* user_agent = "";
};

/// Takes the answer to a request, on the thread of the request.
class HttpReceiver {
 public:
  HttpReceiver() = default;
  HttpReceiver(const HttpReceiver&) = delete;
  HttpReceiver& operator=(const HttpReceiver&) = delete;
  virtual ~HttpReceiver() = default;

  /// Nothing: go on. A code ends the request with it; 0 = successfully, the rest is not wanted.
  using Verdict = std::optional<std::int32_t>;

  /// The status and the raw header lines of the final answer, status line and blank line included.
  [[nodiscard]] virtual Verdict TakeHeaders(int status, const std::string& headers) = 0;

  /// Bytes of the body, as the network cuts them.
  [[nodiscard]] virtual Verdict TakeBody(std::string_view bytes) = 0;
};

/// What the requests of one download have in common. Nothing outlives a request: each has a
/// connection of its own, there are no cookies and no redirects, and no compression is asked for.
/// The system's proxy settings are honoured, except for a server on this very machine. One thread.
class HttpSession {
 public:
  /// `context` is the caller's own value, kept beside each request for who looks at it from
  /// outside. The flag is borrowed; any thread may set it.
  HttpSession(std::uint32_t context, const std::atomic<std::int32_t>& cancel_flag,
              HeaderBlock headers, const HttpTimeouts& timeouts)
      : context_(context), cancel_flag_(cancel_flag), headers_(headers), timeouts_(timeouts) {}

  [[nodiscard]] std::uint32_t context() const { return context_; }
  [[nodiscard]] const HeaderBlock& headers() const { return headers_; }
  [[nodiscard]] const HttpTimeouts& timeouts() const { return timeouts_; }
  [[nodiscard]] bool cancelled() const { return cancel_flag_.load() != 0; }

  /// Sends the request and hands the answer on until it is complete or the receiver ends it. 0 or a
  /// code of http_codes.h. A set cancel flag is noticed within 100 ms whatever the network does.
  /// An answer that ends short is an error.
  [[nodiscard]] std::int32_t Get(const HttpUrl& url, HttpReceiver& receiver) const;

 private:
  std::uint32_t context_;
  const std::atomic<std::int32_t>& cancel_flag_;
  HeaderBlock headers_;
  HttpTimeouts timeouts_;
};

}  // namespace brovanta

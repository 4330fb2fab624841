// What the tests of the HTTP client share: a scratch folder, a flag, and impatient time-outs.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>

#include "net/http/http_client.h"
#include "tests/support/loopback_server.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// Far longer than anything on the loopback takes, short enough to be waited for.
inline constexpr HttpTimeouts kPatient{std::chrono::seconds(20), std::chrono::seconds(20)};
/// For servers that never answer.
inline constexpr HttpTimeouts kImpatient{std::chrono::milliseconds(300),
                                         std::chrono::milliseconds(300)};

class HttpFixture : public testing::Test {
 protected:
  /// Downloads into "update.dat" of the folder.
  std::int32_t ToFile(const std::string& url, const HttpTimeouts& timeouts = kPatient) {
    return DownloadUrlToFile(url, output(), 7, flag_, timeouts);
  }
  /// What stands in "update.dat"; "(none)" when it is missing.
  [[nodiscard]] std::string Saved() const {
    return folder_.ReadText("update.dat").value_or("(none)");
  }

  /// The page, or the code of its failure in words.
  std::string Page(const std::string& url, const HttpTimeouts& timeouts = kPatient) {
    std::string text;
    const std::int32_t code = DownloadUrlToText(url, 7, flag_, timeouts, text);
    return code == 0 ? text : "code " + std::to_string(code);
  }
  static std::string Code(std::int32_t code) { return "code " + std::to_string(code); }

  [[nodiscard]] std::string output() const { return folder_.File("update.dat"); }

  TempFolder folder_;
  std::atomic<std::int32_t> flag_{0};
};

/// The body cut into chunks of the given sizes, again and again.
inline std::string Chunked(const std::string& body, const std::vector<std::size_t>& sizes) {
  std::string reply = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
  std::size_t at = 0;
  for (std::size_t i = 0; at < body.size(); ++i) {
    const std::string chunk = body.substr(at, sizes[i % sizes.size()]);
    at += chunk.size();
    char size[16];
    std::snprintf(size, sizeof(size), "%zx\r\n", chunk.size());
    reply += size + chunk + "\r\n";
  }
  return reply + "0\r\n\r\n";
}

}  // namespace brovanta::test

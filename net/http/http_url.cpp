#include "net/http/http_url.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <utility>

#include "net/http/curl_library.h"

namespace brovanta {
namespace {

constexpr std::uint16_t kHttpPort = 80;

struct UrlDeleter {
  void operator()(CURLU* url) const { LoadCurl()->url_cleanup(url); }
};
using UrlHandle = std::unique_ptr<CURLU, UrlDeleter>;

bool IsBlankOrControl(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code <= ' ' || code == 0x7F;
}

std::string_view WithoutBlanksAround(std::string_view text) {
  while (!text.empty() && IsBlankOrControl(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlankOrControl(text.back())) text.remove_suffix(1);
  return text;
}

bool HasBlanksOrControls(std::string_view text) {
  return std::any_of(text.begin(), text.end(), IsBlankOrControl);
}

std::string WithEncodedBlanks(std::string_view text) {
  std::string encoded;
  encoded.reserve(text.size());
  for (const char character : text) {
    if (character == ' ') {
      encoded += "%20";
    } else {
      encoded += character;
    }
  }
  return encoded;
}

// A part of the address, or nothing when it has none.
std::optional<std::string> Part(CURLU* url, CURLUPart which, unsigned int flags) {
  char* text = nullptr;
  const CurlLibrary& curl = *LoadCurl();
  if (curl.url_get(url, which, &text, flags) != CURLUE_OK) return std::nullopt;
  const std::unique_ptr<char, decltype(curl.free)> owned(text, curl.free);
  return std::string(text);
}

}  // namespace

bool HttpUrl::is_this_machine() const {
  const bool digits_and_points = server.find_first_not_of("0123456789.") == std::string::npos;
  return (digits_and_points && server.starts_with("127.")) || server == "[::1]" ||
         strcasecmp(server.c_str(), "localhost") == 0;
}

std::string HttpUrl::Address() const {
  std::string address = service + "://" + server;
  if (port != kHttpPort) address.append(":").append(std::to_string(port));
  return address + object;
}

namespace {

std::optional<HttpUrl> SplitOnce(std::string_view address) {
  address = WithoutBlanksAround(address.substr(0, address.find('\0')));
  const CurlLibrary* const curl = LoadCurl();
  if (curl == nullptr) return std::nullopt;
  const UrlHandle url(curl->url());
  if (url == nullptr || curl->url_set(url.get(), CURLUPART_URL, WithEncodedBlanks(address).c_str(),
                                      CURLU_NON_SUPPORT_SCHEME | CURLU_PATH_AS_IS) != CURLUE_OK) {
    return std::nullopt;
  }
  const auto service = Part(url.get(), CURLUPART_SCHEME, 0);
  const auto server = Part(url.get(), CURLUPART_HOST, 0);
  if (!service || !server || server->empty()) return std::nullopt;
  // The name comes out of its percent codes, among which a delete character passes as a letter.
  if (HasBlanksOrControls(*server)) return std::nullopt;
  HttpUrl parts;
  parts.service = *service;
  parts.server = *server;
  // A service that is not known here has no usual port; nothing is fetched from it anyway.
  const std::string port = Part(url.get(), CURLUPART_PORT, CURLU_DEFAULT_PORT).value_or("0");
  std::from_chars(port.data(), port.data() + port.size(), parts.port);
  parts.object = Part(url.get(), CURLUPART_PATH, 0).value_or("/");
  if (const auto query = Part(url.get(), CURLUPART_QUERY, 0)) parts.object += "?" + *query;
  return parts;
}

}  // namespace

// A server's name in percent codes may turn out to be a number in disguise, which is seen when the
// parts are split once more.
std::optional<HttpUrl> SplitUrl(std::string_view address) {
  std::optional<HttpUrl> parts = SplitOnce(address);
  for (int i = 0; parts && parts->is_http() && i < 2; ++i) {
    std::optional<HttpUrl> again = SplitOnce(parts->Address());
    if (again == parts) return parts;
    parts = std::move(again);
  }
  return parts && parts->is_http() ? std::nullopt : parts;
}

}  // namespace brovanta

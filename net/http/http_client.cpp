#include "net/http/http_client.h"

#include <new>
#include <span>
#include <string_view>

#include "net/http/body_pieces.h"
#include "platform/file.h"

namespace brovanta {
namespace {

constexpr HeaderBlock kUpdateHeaders{"text/*", "Brovanta"};
// Deliberate: shops are to see an ordinary desktop browser.
constexpr HeaderBlock kBrowserHeaders{
    "text/html", "Mozilla/4.0 (compatible; MSIE 6.0; Windows NT 5.1; SV1; .NET CLR 1.1.4322)"};

constexpr int kStatusOk = 200;
constexpr int kStatusUnauthorized = 401;

bool IsRedirect(int status) { return status == 301 || status == 302 || status == 303; }

HttpReceiver::Verdict VerdictOf(PieceResult result) {
  switch (result) {
    case PieceResult::kGoOn:
      return std::nullopt;
    case PieceResult::kFull:
      return 0;
    case PieceResult::kCancelled:
      return HTTP_ERR_CANCELLED;
  }
  return std::nullopt;
}

// A request that has ended well, its body's last piece still outstanding.
std::int32_t FinishBody(BodyPieces& body) { return VerdictOf(body.Finish()).value_or(0); }

// An answer that goes to a file.
class FileReceiver : public HttpReceiver {
 public:
  explicit FileReceiver(UnitBody& body) : body_(body) {}

  [[nodiscard]] Verdict TakeHeaders(int status, const std::string& /*headers*/) override {
    if (status == kStatusUnauthorized) return HTTP_ERR_UNAUTHORIZED;
    if (IsRedirect(status)) return HTTP_ERR_REDIRECT;
    return std::nullopt;
  }
  [[nodiscard]] Verdict TakeBody(std::string_view bytes) override {
    return VerdictOf(body_.Take(bytes));
  }

 private:
  UnitBody& body_;
};

// The answers on the way to a page, one request after the other.
class PageReceiver : public HttpReceiver {
 public:
  explicit PageReceiver(ByteBody& body) : body_(body) {}

  [[nodiscard]] Verdict TakeHeaders(int status, const std::string& headers) override {
    const bool is_first = is_first_;
    is_first_ = false;
    redirected_ = IsRedirect(status);
    if (is_first && status == kStatusUnauthorized) return HTTP_ERR_UNAUTHORIZED;
    if (redirected_) return FindLocation(headers) ? 0 : HTTP_ERR_REDIRECT;
    if (status != kStatusOk) return HTTP_ERR_STATUS;
    return std::nullopt;
  }
  [[nodiscard]] Verdict TakeBody(std::string_view bytes) override {
    return VerdictOf(body_.Take(bytes));
  }

  [[nodiscard]] bool redirected() const { return redirected_; }
  /// Where a redirect leads, the carriage return behind it included.
  [[nodiscard]] const std::string& location() const { return location_; }

 private:
  // Kept: looks for these very characters, wherever they stand and in this letter case only.
  bool FindLocation(std::string_view headers) {
    constexpr std::string_view kLocation = "Location: ";
    const std::size_t found = headers.find(kLocation);
    if (found == std::string_view::npos) return false;
    headers.remove_prefix(found + kLocation.size());
    location_ = headers.substr(0, headers.find('\n'));
    return true;
  }

  ByteBody& body_;
  bool is_first_ = true;
  bool redirected_ = false;
  std::string location_;
};

std::int32_t SaveUrl(const std::string& url, const std::string& output_path, std::uint32_t context,
                     const std::atomic<std::int32_t>& cancel_flag, const HttpTimeouts& timeouts) {
  const std::optional<HttpUrl> target = SplitUrl(url);
  if (!target || !target->is_http()) return HTTP_ERR_BAD_URL;
  const HttpSession session(context, cancel_flag, kUpdateHeaders, timeouts);
  UnitBody body(cancel_flag);
  FileReceiver receiver(body);
  if (const std::int32_t code = session.Get(*target, receiver); code != 0) return code;
  if (const std::int32_t code = FinishBody(body); code != 0) return code;
  if (session.cancelled()) return HTTP_ERR_CANCELLED;
  const auto bytes = std::as_bytes(std::span(body.bytes()));
  return platform::ReplaceFile(output_path, bytes) ? 0 : HTTP_ERR_FILE;
}

std::int32_t FetchText(const std::string& url, std::uint32_t context,
                       const std::atomic<std::int32_t>& cancel_flag, const HttpTimeouts& timeouts,
                       std::string& text) {
  std::optional<HttpUrl> target = SplitUrl(url);
  if (!target || !target->is_http()) return HTTP_ERR_BAD_URL;
  const HttpSession session(context, cancel_flag, kBrowserHeaders, timeouts);
  ByteBody body(cancel_flag);
  PageReceiver receiver(body);
  for (;;) {
    if (const std::int32_t code = session.Get(*target, receiver); code != 0) return code;
    if (!receiver.redirected()) break;
    if (session.cancelled()) return HTTP_ERR_CANCELLED;
    target = SplitUrl(receiver.location());
    if (!target) return HTTP_ERR_BAD_URL;
    if (!target->is_http()) return HTTP_ERR_STATUS;
  }
  if (const std::int32_t code = FinishBody(body); code != 0) return code;
  text = body.TakeBytes();
  return 0;
}

}  // namespace

std::int32_t DownloadUrlToFile(const std::string& url, const std::string& output_path,
                               std::uint32_t context, const std::atomic<std::int32_t>& cancel_flag,
                               const HttpTimeouts& timeouts) {
  try {
    return SaveUrl(url, output_path, context, cancel_flag, timeouts);
  } catch (const std::bad_alloc&) {
    return kHttpNoMemory;
  }
}

std::int32_t DownloadUrlToText(const std::string& url, std::uint32_t context,
                               const std::atomic<std::int32_t>& cancel_flag,
                               const HttpTimeouts& timeouts, std::string& text) {
  try {
    return FetchText(url, context, cancel_flag, timeouts, text);
  } catch (const std::bad_alloc&) {
    return kHttpNoMemory;
  }
}

std::optional<std::string> DownloadUrlToBuffer(const std::string& url, std::uint32_t context,
                                               const std::atomic<std::int32_t>& cancel_flag,
                                               const HttpTimeouts& timeouts) {
  std::string text;
  if (DownloadUrlToText(url, context, cancel_flag, timeouts, text) != 0) return std::nullopt;
  return text;
}

}  // namespace brovanta

#include "net/http/http_transfer.h"

#include <new>
#include <optional>
#include <string_view>

#include "net/http/http_codes.h"

namespace brovanta {
namespace {

constexpr int kPollMilliseconds = 50;  // how late a set cancel flag is noticed at most
constexpr std::size_t kMaxHeaderBytes = std::size_t{256} * 1024;

bool IsBlankLine(std::string_view line) { return line == "\r\n" || line == "\n"; }

}  // namespace

std::int32_t InternetError(CURLcode code) {
  // Not all of libcurl's codes can come here; what is left over is an inner error.
  if (code == CURLE_OK) return 0;
  if (code == CURLE_OUT_OF_MEMORY) return kHttpNoMemory;
  if (code == CURLE_URL_MALFORMAT) return HTTP_ERR_BAD_URL;
  if (code == CURLE_OPERATION_TIMEDOUT) return kInternetTimedOut;
  if (code == CURLE_COULDNT_RESOLVE_HOST || code == CURLE_COULDNT_RESOLVE_PROXY) {
    return kInternetNameNotResolved;
  }
  if (code == CURLE_COULDNT_CONNECT || code == CURLE_PROXY) return kInternetCannotConnect;
  if (code == CURLE_PARTIAL_FILE || code == CURLE_SEND_ERROR) return kInternetConnectionAborted;
  if (code == CURLE_RECV_ERROR) return kInternetConnectionReset;
  if (code == CURLE_GOT_NOTHING || code == CURLE_WEIRD_SERVER_REPLY ||
      code == CURLE_UNSUPPORTED_PROTOCOL || code == CURLE_BAD_CONTENT_ENCODING) {
    return kInternetInvalidAnswer;
  }
  return kInternetInternalError;
}

HttpTransfer::HttpTransfer(const HttpSession& session, HttpReceiver& receiver)
    : session_(session), receiver_(receiver) {}

HttpTransfer::~HttpTransfer() {
  if (added_) curl_->multi_remove_handle(multi_.get(), easy_.get());
}

std::int32_t HttpTransfer::Prepare(const HttpUrl& url) {
  if (curl_ == nullptr) return kInternetInternalError;
  easy_.reset(curl_->easy_init());
  multi_.reset(curl_->multi_init());
  if (easy_ == nullptr || multi_ == nullptr || !MakeHeaderList()) return kHttpNoMemory;
  if (!SetOptions(url)) return kInternetInternalError;
  added_ = curl_->multi_add_handle(multi_.get(), easy_.get()) == CURLM_OK;
  return added_ ? 0 : kInternetInternalError;
}

// Exactly the two lines, in this order; a proxy gets no line of libcurl's own either.
bool HttpTransfer::MakeHeaderList() {
  const std::string lines[] = {std::string("Accept: ") + session_.headers().accept,
                               std::string("User-Agent: ") + session_.headers().user_agent,
                               "Proxy-Connection:"};
  for (const std::string& line : lines) {
    curl_slist* const longer = curl_->slist_append(header_list_.get(), line.c_str());
    if (longer == nullptr) return false;
    (void)header_list_.release();
    header_list_.reset(longer);
  }
  return true;
}

bool HttpTransfer::SetOptions(const HttpUrl& url) {
  bool set = true;
  const auto option = [&](CURLoption which, auto value) {
    set = set && curl_->easy_setopt(easy_.get(), which, value) == CURLE_OK;
  };
  option(CURLOPT_URL, url.Address().c_str());
  option(CURLOPT_PROTOCOLS_STR, "http");
  option(CURLOPT_PATH_AS_IS, 1L);
  // A proxy could not reach the machine that asks, or would reach its own.
  if (url.is_this_machine()) option(CURLOPT_NOPROXY, "*");
  option(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  option(CURLOPT_HTTPHEADER, header_list_.get());
  option(CURLOPT_FOLLOWLOCATION, 0L);
  option(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(session_.timeouts().connect.count()));
  // Signals are no business of a library in a program with several threads.
  option(CURLOPT_NOSIGNAL, 1L);
  // A name that takes long to resolve must not hold up the end of a cancelled download.
  option(CURLOPT_QUICK_EXIT, 1L);
  option(CURLOPT_PRIVATE, static_cast<const HttpSession*>(&session_));
  option(CURLOPT_PREREQFUNCTION, &HttpTransfer::OnConnected);
  option(CURLOPT_PREREQDATA, this);
  option(CURLOPT_HEADERFUNCTION, &HttpTransfer::OnHeader);
  option(CURLOPT_HEADERDATA, this);
  option(CURLOPT_WRITEFUNCTION, &HttpTransfer::OnBody);
  option(CURLOPT_WRITEDATA, this);
  return set;
}

std::int32_t HttpTransfer::Run() {
  for (;;) {
    if (session_.cancelled()) return HTTP_ERR_CANCELLED;
    int running = 0;
    if (curl_->multi_perform(multi_.get(), &running) != CURLM_OK) return kInternetInternalError;
    if (verdict_) return *verdict_;
    if (running == 0) return Result();
    if (SilentTooLong()) return kInternetTimedOut;
    if (curl_->multi_poll(multi_.get(), nullptr, 0, kPollMilliseconds, nullptr) != CURLM_OK) {
      return kInternetInternalError;
    }
  }
}

std::int32_t HttpTransfer::Result() {
  int left = 0;
  const CURLMsg* const message = curl_->multi_info_read(multi_.get(), &left);
  if (message == nullptr || message->msg != CURLMSG_DONE) return kInternetInternalError;
  const CURLcode code = message->data.result;
  // Headers that do not end are no answer. A single line beyond libcurl's own bound is reported as
  // lack of memory.
  const bool is_cut =
      code == CURLE_OK || code == CURLE_PARTIAL_FILE || (code == CURLE_OUT_OF_MEMORY && connected_);
  if (!headers_complete_ && is_cut) return kInternetInvalidAnswer;
  return InternetError(code);
}

bool HttpTransfer::SilentTooLong() const {
  return connected_ && Clock::now() - last_sign_ > session_.timeouts().silence;
}

int HttpTransfer::OnConnected(void* self, char*, char*, int, int) {
  auto* const transfer = static_cast<HttpTransfer*>(self);
  transfer->connected_ = true;
  transfer->last_sign_ = Clock::now();
  return CURL_PREREQFUNC_OK;
}

// Nothing may be thrown through libcurl, and anything but the full count ends the transfer.
std::size_t HttpTransfer::OnHeader(char* bytes, std::size_t size, std::size_t count, void* self) {
  auto* const transfer = static_cast<HttpTransfer*>(self);
  transfer->last_sign_ = Clock::now();
  try {
    transfer->TakeHeaderLine({bytes, size * count});
  } catch (const std::bad_alloc&) {
    transfer->verdict_ = kHttpNoMemory;
  }
  return transfer->verdict_ ? 0 : size * count;
}

std::size_t HttpTransfer::OnBody(char* bytes, std::size_t size, std::size_t count, void* self) {
  auto* const transfer = static_cast<HttpTransfer*>(self);
  transfer->last_sign_ = Clock::now();
  try {
    transfer->verdict_ = transfer->receiver_.TakeBody({bytes, size * count});
  } catch (const std::bad_alloc&) {
    transfer->verdict_ = kHttpNoMemory;
  }
  return transfer->verdict_ ? 0 : size * count;
}

void HttpTransfer::TakeHeaderLine(std::string_view line) {
  header_bytes_ += line.size();
  if (header_bytes_ > kMaxHeaderBytes) {
    verdict_ = kInternetInvalidAnswer;
    return;
  }
  if (headers_complete_) return;  // headers behind the body say nothing that is used here
  headers_ += line;
  if (IsBlankLine(line)) TakeEndOfHeaders();
}

void HttpTransfer::TakeEndOfHeaders() {
  long status = 0;
  curl_->easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
  if (status >= 100 && status < 200) {
    headers_.clear();  // only announces the answer
    return;
  }
  headers_complete_ = true;
  verdict_ = session_.cancelled() ? HttpReceiver::Verdict(HTTP_ERR_CANCELLED)
                                  : receiver_.TakeHeaders(static_cast<int>(status), headers_);
}

}  // namespace brovanta

// The one place that speaks to libcurl: a single request from its first byte to its last.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "net/http/curl_library.h"
#include "net/http/http_session.h"

namespace brovanta {

/// The internet error number for a failure of libcurl.
[[nodiscard]] std::int32_t InternetError(CURLcode code);

/// Used once: Prepare, then Run. Session and receiver are borrowed.
class HttpTransfer {
 public:
  HttpTransfer(const HttpSession& session, HttpReceiver& receiver);
  HttpTransfer(const HttpTransfer&) = delete;
  HttpTransfer& operator=(const HttpTransfer&) = delete;
  ~HttpTransfer();

  /// 0, kHttpNoMemory, or kInternetInternalError, also where the machine has no libcurl.
  [[nodiscard]] std::int32_t Prepare(const HttpUrl& url);

  /// 0 or a code of http_codes.h, as HttpSession::Get.
  [[nodiscard]] std::int32_t Run();

 private:
  struct EasyDeleter {
    void operator()(CURL* easy) const { LoadCurl()->easy_cleanup(easy); }
  };
  struct MultiDeleter {
    void operator()(CURLM* multi) const { LoadCurl()->multi_cleanup(multi); }
  };
  struct ListDeleter {
    void operator()(curl_slist* list) const { LoadCurl()->slist_free_all(list); }
  };
  using Clock = std::chrono::steady_clock;

  [[nodiscard]] bool MakeHeaderList();
  [[nodiscard]] bool SetOptions(const HttpUrl& url);
  [[nodiscard]] std::int32_t Result();
  [[nodiscard]] bool SilentTooLong() const;

  // What libcurl calls, each with this object as its last argument.
  static int OnConnected(void* self, char*, char*, int, int);
  static std::size_t OnHeader(char* bytes, std::size_t size, std::size_t count, void* self);
  static std::size_t OnBody(char* bytes, std::size_t size, std::size_t count, void* self);

  void TakeHeaderLine(std::string_view line);
  void TakeEndOfHeaders();

  const CurlLibrary* const curl_ = LoadCurl();  // null where there is none
  const HttpSession& session_;
  HttpReceiver& receiver_;
  std::unique_ptr<curl_slist, ListDeleter> header_list_;
  std::unique_ptr<CURL, EasyDeleter> easy_;
  std::unique_ptr<CURLM, MultiDeleter> multi_;
  bool added_ = false;

  HttpReceiver::Verdict verdict_;
  std::string headers_;           // of the answer that is coming in
  std::size_t header_bytes_ = 0;  // of all answers, trailing headers included
  bool headers_complete_ = false;
  bool connected_ = false;
  Clock::time_point last_sign_;  // of life from the server
};

}  // namespace brovanta

// libcurl, which the program is not linked with: it brings two dozen other libraries along, and to
// load them would take a fifth of the time that a person waits for the first screen.
#pragma once

#include <curl/curl.h>

namespace brovanta {

/// Its functions under libcurl's own names, without "curl_". See libcurl's manual pages.
struct CurlLibrary {
  decltype(&curl_global_init) global_init = nullptr;
  decltype(&curl_free) free = nullptr;
  decltype(&curl_slist_append) slist_append = nullptr;
  decltype(&curl_slist_free_all) slist_free_all = nullptr;
  decltype(&curl_easy_init) easy_init = nullptr;
  decltype(&curl_easy_setopt) easy_setopt = nullptr;
  decltype(&curl_easy_getinfo) easy_getinfo = nullptr;
  decltype(&curl_easy_cleanup) easy_cleanup = nullptr;
  decltype(&curl_multi_init) multi_init = nullptr;
  decltype(&curl_multi_add_handle) multi_add_handle = nullptr;
  decltype(&curl_multi_remove_handle) multi_remove_handle = nullptr;
  decltype(&curl_multi_perform) multi_perform = nullptr;
  decltype(&curl_multi_poll) multi_poll = nullptr;
  decltype(&curl_multi_info_read) multi_info_read = nullptr;
  decltype(&curl_multi_cleanup) multi_cleanup = nullptr;
  decltype(&curl_url) url = nullptr;
  decltype(&curl_url_set) url_set = nullptr;
  decltype(&curl_url_get) url_get = nullptr;
  decltype(&curl_url_cleanup) url_cleanup = nullptr;
};

/// The library, loaded and set up by the first call, from whatever thread, and kept until the
/// process ends. Null, on every call, when the machine has none or one that lacks a function.
[[nodiscard]] const CurlLibrary* LoadCurl();

/// As LoadCurl, from a file of that name or path. For tests; the library is never unloaded.
[[nodiscard]] const CurlLibrary* LoadCurlFrom(const char* file);

}  // namespace brovanta

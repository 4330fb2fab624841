#include "net/http/curl_library.h"

#include <dlfcn.h>

#include <memory>

namespace brovanta {
namespace {

constexpr const char* kLibrary = "libcurl.so.4";

/// Fills in one function after the other and remembers whether all were there.
class Loader {
 public:
  explicit Loader(const char* file) : library_(dlopen(file, RTLD_NOW | RTLD_LOCAL)) {}

  template <typename Function>
  Loader& Find(const char* name, Function*& function) {
    void* const found = library_ == nullptr ? nullptr : dlsym(library_, name);
    function = reinterpret_cast<Function*>(found);  // what POSIX promises of dlsym
    complete_ = complete_ && found != nullptr;
    return *this;
  }

  [[nodiscard]] bool complete() const { return complete_; }

 private:
  void* library_;
  bool complete_ = true;
};

}  // namespace

const CurlLibrary* LoadCurlFrom(const char* file) {
  auto curl = std::make_unique<CurlLibrary>();
  Loader loader(file);
  loader.Find("curl_global_init", curl->global_init)
      .Find("curl_free", curl->free)
      .Find("curl_slist_append", curl->slist_append)
      .Find("curl_slist_free_all", curl->slist_free_all)
      .Find("curl_easy_init", curl->easy_init)
      .Find("curl_easy_setopt", curl->easy_setopt)
      .Find("curl_easy_getinfo", curl->easy_getinfo)
      .Find("curl_easy_cleanup", curl->easy_cleanup)
      .Find("curl_multi_init", curl->multi_init)
      .Find("curl_multi_add_handle", curl->multi_add_handle)
      .Find("curl_multi_remove_handle", curl->multi_remove_handle)
      .Find("curl_multi_perform", curl->multi_perform)
      .Find("curl_multi_poll", curl->multi_poll)
      .Find("curl_multi_info_read", curl->multi_info_read)
      .Find("curl_multi_cleanup", curl->multi_cleanup)
      .Find("curl_url", curl->url)
      .Find("curl_url_set", curl->url_set)
      .Find("curl_url_get", curl->url_get)
      .Find("curl_url_cleanup", curl->url_cleanup);
  if (!loader.complete() || curl->global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) return nullptr;
  return curl.release();
}

const CurlLibrary* LoadCurl() {
  static const CurlLibrary* const curl = LoadCurlFrom(kLibrary);
  return curl;
}

}  // namespace brovanta

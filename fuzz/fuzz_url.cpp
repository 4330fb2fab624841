// Any bytes as an address: what it is split into makes an address that splits the same, and nothing
// that ends a line of a request gets through.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "net/http/http_url.h"

namespace brovanta {
namespace {

using fuzz::Require;

bool HasControls(std::string_view text) {
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (code <= ' ' || code == 0x7F) return true;
  }
  return false;
}

void Run(std::string_view address) {
  const auto url = SplitUrl(address);
  if (!url) return;
  Require(!url->service.empty() && !url->server.empty(), "an address has a service and a server");
  Require(!url->object.empty() && url->object.front() == '/', "the object begins with a slash");
  Require(!HasControls(url->service) && !HasControls(url->server) && !HasControls(url->object),
          "a request stays one line");
  Require(url->server.find('@') == std::string::npos, "no user name is sent");
  Require(url->object.find('#') == std::string::npos, "no fragment is sent");
  (void)url->is_this_machine();
  if (!url->is_http()) return;
  const auto again = SplitUrl(url->Address());
  Require(again && *again == *url, "the parts make the same address");
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  brovanta::Run(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}

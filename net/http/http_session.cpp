#include "net/http/http_session.h"

#include "net/http/http_codes.h"
#include "net/http/http_transfer.h"

namespace brovanta {

std::int32_t HttpSession::Get(const HttpUrl& url, HttpReceiver& receiver) const {
  HttpTransfer transfer(*this, receiver);
  if (const std::int32_t code = transfer.Prepare(url); code != 0) return code;
  return transfer.Run();
}

}  // namespace brovanta

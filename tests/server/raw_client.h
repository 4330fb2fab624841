// A client that sends exactly what it is told, byte by byte if need be.
#pragma once

#include <string>
#include <string_view>

#include "util/unique_fd.h"

namespace brovanta::test {

class RawClient {
 public:
  /// Connects to "127.0.0.1:PORT".
  explicit RawClient(std::string_view address);

  [[nodiscard]] bool connected() const { return fd_.valid(); }
  [[nodiscard]] int fd() const { return fd_.get(); }

  /// Whether everything could be handed over.
  [[nodiscard]] bool Send(std::string_view bytes) const;
  /// Ends the own direction.
  void FinishSending() const;
  /// Everything until the other side closes, or resets.
  [[nodiscard]] std::string ReadAll() const;

 private:
  UniqueFd fd_;
};

}  // namespace brovanta::test

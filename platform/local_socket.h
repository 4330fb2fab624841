// Connections between programs on one machine, under a name in the file system.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "util/unique_fd.h"

namespace brovanta::platform {

/// A stream socket (unix(7)) that never blocks: what listens, or one end of a connection. Movable.
class LocalSocket {
 public:
  /// None: does nothing and says that nothing can be done.
  LocalSocket() = default;

  /// Listens under the path, for programs of this user alone. What stands there goes, be it the
  /// socket of a program that is dead. Not valid where that cannot be done, as with a path that is
  /// longer than the system takes (107 bytes).
  [[nodiscard]] static LocalSocket ListenAt(const std::string& path);

  /// Not valid when nobody listens there, or only another user, who could say what he likes.
  [[nodiscard]] static LocalSocket ConnectTo(const std::string& path);

  [[nodiscard]] bool valid() const { return descriptor_.valid(); }
  /// For who waits for several; stays the socket's own.
  [[nodiscard]] int descriptor() const { return descriptor_.get(); }

  /// The next one that connects; not valid while there is none.
  [[nodiscard]] LocalSocket Accept() const;

  /// Waits at most so many milliseconds until there is something to read, or the other end is gone.
  [[nodiscard]] bool WaitToRead(int patience) const;

  /// What has come since, "" when there is nothing yet; nothing when the other end is gone and
  /// everything has been read.
  [[nodiscard]] std::optional<std::string> Read();

  /// For a few bytes, which the system keeps until they are read. Whether it took all of them.
  [[nodiscard]] bool Write(std::string_view bytes);

 private:
  explicit LocalSocket(int descriptor) : descriptor_(descriptor) {}

  UniqueFd descriptor_;
};

}  // namespace brovanta::platform

// A folder of its own for each test, removed at the end.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta::test {

/// Bytes as they stand in a file.
using Bytes = std::vector<std::byte>;

class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  [[nodiscard]] const std::string& path() const { return path_; }

  /// The native path of a file in the folder.
  [[nodiscard]] std::string File(std::string_view name) const;

  void Write(std::string_view name, const Bytes& bytes) const;
  void WriteText(std::string_view name, std::string_view text) const;

  /// The file's bytes, nothing when it is missing.
  [[nodiscard]] std::optional<Bytes> Read(std::string_view name) const;
  [[nodiscard]] std::optional<std::string> ReadText(std::string_view name) const;

 private:
  std::string path_;
};

/// Golden bytes by hand: Hex("81 38 01 00 ...").
[[nodiscard]] Bytes Hex(std::string_view digits);

/// The pieces one behind the other.
[[nodiscard]] Bytes Join(std::initializer_list<Bytes> pieces);

/// A run of one byte value.
[[nodiscard]] Bytes Run(std::size_t count, unsigned char value = 0);

/// A text followed by zeros up to the size.
[[nodiscard]] Bytes Padded(std::string_view text, std::size_t size);

}  // namespace brovanta::test

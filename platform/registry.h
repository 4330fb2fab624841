// The settings store: a tree of keys with typed values, kept in one text file in .reg format.
// The format is described in docs/formats/registry.md.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta::platform {

/// Type tags of registry values.
inline constexpr std::uint32_t REG_SZ = 1;
inline constexpr std::uint32_t REG_BINARY = 3;
inline constexpr std::uint32_t REG_DWORD = 4;

/// One value as stored: its type tag and its raw bytes. A REG_SZ holds UTF-16LE code units with
/// their terminating zero.
struct RegistryValue {
  std::uint32_t type = 0;
  std::vector<std::byte> data;
};

/// A text value of at most `max_bytes` of UTF-16 with terminator, as UTF-8. Nothing when it is no
/// REG_SZ, or larger. Half a surrogate pair becomes U+FFFD.
[[nodiscard]] std::optional<std::string> TextOf(const RegistryValue& value, std::size_t max_bytes);

/// The file behind all keys. Names of keys and values are compared without regard to letter case.
/// Every operation reads the file anew and every change replaces it whole, so that two objects on
/// one file agree. Keys, values and comments that this program does not know are kept. A file that
/// is no registry file at all has no keys; before it is replaced, its bytes are put aside in a file
/// beside it (".bad" behind its name, then ".bad2" and so on).
class RegistryStore {
 public:
  /// `file_path` is a native path; its folder is created when a value is first written.
  explicit RegistryStore(std::string file_path);

  [[nodiscard]] const std::string& file_path() const { return file_path_; }

  enum class Answer {
    kValue,       ///< it is there
    kNone,        ///< the file was read, or there is no file: no such value
    kUnreadable,  ///< there is a file, or may be one, and it cannot be read
    kForeign,  ///< there is a file, and it is no registry file, or has not one value: a damaged one
    kDamaged,  ///< not found, but there is a damaged line that may be the value's
  };

  /// Asks for a value in one look at the file; `value` is filled in for kValue.
  [[nodiscard]] Answer Ask(std::string_view key_path, std::string_view name,
                           RegistryValue& value) const;

 private:
  friend class RegistryKey;
  std::string file_path_;
};

/// One key under HKEY_CURRENT_USER, for example "Software\\Brovanta\\Options".
class RegistryKey {
 public:
  /// Opens an existing key for reading; nothing when the key or the file is missing or unreadable.
  [[nodiscard]] static std::optional<RegistryKey> Open(const RegistryStore& store,
                                                       std::string_view key_path);

  /// Opens a key for reading and writing, creating it when missing; nothing when the file cannot be
  /// read (while it exists) or written. To know that, it is written anew even where the key exists.
  [[nodiscard]] static std::optional<RegistryKey> Create(const RegistryStore& store,
                                                         std::string_view key_path);

  /// SetText under the key, which is made in the same step where it is missing: a program that ends
  /// in the middle leaves no key without a value.
  [[nodiscard]] static bool StoreText(const RegistryStore& store, std::string_view key_path,
                                      std::string_view name, std::string_view utf8);

  /// The value of that name, or nothing.
  [[nodiscard]] std::optional<RegistryValue> Query(std::string_view name) const;

  /// Writes the value, replacing one of the same name; the file is replaced whole. False when it
  /// could not be written, or the name has a control character; the old file stays.
  [[nodiscard]] bool Set(std::string_view name, const RegistryValue& value);

  /// TextOf the value of that name; nothing as well when it is missing.
  [[nodiscard]] std::optional<std::string> QueryText(std::string_view name,
                                                     std::size_t max_bytes) const;

  /// Writes a REG_SZ from UTF-8: (code units + 1) x 2 bytes. False as Set, and for a text that is
  /// not well-formed.
  [[nodiscard]] bool SetText(std::string_view name, std::string_view utf8);

 private:
  RegistryKey(std::string file_path, std::string key_path);

  std::string file_path_;
  std::string key_path_;
};

}  // namespace brovanta::platform

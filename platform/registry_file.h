// The registry's file in memory: its lines, of which keys and values are understood and all others
// are kept as they stand. The format is described in docs/formats/registry.md.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry.h"

namespace brovanta::platform {

/// An ordinary value. Key paths are relative to HKEY_CURRENT_USER; what the file holds of other
/// roots is kept and never found.
class RegistryFile {
 public:
  static constexpr std::string_view kHeader = "Windows Registry Editor Version 5.00";

  /// A new file: the header line alone.
  RegistryFile();

  /// Reads a file's bytes; bytes without any line but blank ones are a new file. Nothing when the
  /// header line is missing, which is a file of another kind. A line that is not understood costs
  /// only itself.
  [[nodiscard]] static std::optional<RegistryFile> Parse(std::string_view bytes);

  /// The bytes of the file: those parsed, but for what was changed since.
  [[nodiscard]] std::string Text() const;

  /// Whether the key or one below it has a section.
  [[nodiscard]] bool HasKey(std::string_view key_path) const;

  /// Adds a section for the key where it has none. False for a path that cannot stand in the file.
  [[nodiscard]] bool AddKey(std::string_view key_path);

  /// The value of that name ("" is the key's default value), nullptr when there is none. Where it
  /// stands twice the last one counts. Valid until the next change.
  [[nodiscard]] const RegistryValue* Find(std::string_view key_path, std::string_view name) const;

  /// Whether there is anything but the header, keys, comments and blank lines.
  [[nodiscard]] bool HasValues() const;

  /// Whether a value that Find does not find may be there, damaged: a line begins with the name, or
  /// nearly, or is the beginning of the name; a value of that name, or nearly, stands under another
  /// key or under none; or the last line is cut. Nearly is another letter, one too few, or one too
  /// many in five.
  [[nodiscard]] bool HasDamagedValue(std::string_view name) const;

  /// Puts the value in the place of the one of that name, else behind the last one of its key,
  /// whose section is added where it is missing. False for a name or path that cannot stand in the
  /// file.
  [[nodiscard]] bool Set(std::string_view key_path, std::string_view name,
                         const RegistryValue& value);

 private:
  enum class Kind { kKey, kValue, kOther, kBlankOrComment };

  // A line, or several joined by continuation marks.
  struct Entry {
    Kind kind = Kind::kOther;
    std::string raw;   // as it stands, line end included
    std::string name;  // of the key with its root, or of the value
    RegistryValue value;
  };

  static Entry ParseLine(std::string_view line);
  static std::optional<Entry> ParseValue(std::string_view line);
  static std::optional<Entry> ParseContinued(std::string_view rest);
  [[nodiscard]] std::size_t FindEntry(std::string_view key_path, std::string_view name) const;
  [[nodiscard]] std::optional<std::size_t> EndOfSection(std::string_view key_path) const;
  void InsertLine(std::size_t position, Entry entry);

  std::vector<Entry> entries_;
  std::string line_end_ = "\n";
};

}  // namespace brovanta::platform

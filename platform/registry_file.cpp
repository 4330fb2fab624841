#include "platform/registry_file.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "platform/registry_text.h"

namespace brovanta::platform {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kRoot = "HKEY_CURRENT_USER";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr char kContinuationMark = '\\';

std::string_view Trimmed(std::string_view text) {
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

// The first line of the text, its line end included.
std::string_view FirstLine(std::string_view text) {
  const std::size_t end = text.find('\n');
  return end == std::string_view::npos ? text : text.substr(0, end + 1);
}

std::string FullKey(std::string_view key_path) {
  while (key_path.ends_with('\\')) key_path.remove_suffix(1);
  std::string key(kRoot);
  if (!key_path.empty()) key.append("\\").append(key_path);
  return key;
}

char Lowered(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

// How many letters make one name of the other: changed, left out or put in.
std::size_t Distance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 0; i < one.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < other.size(); ++j) {
      const std::size_t changed = diagonal + (Lowered(one[i]) == Lowered(other[j]) ? 0U : 1U);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

bool IsNearly(std::string_view text, std::string_view name) {
  const std::size_t most = name.size() / 5;
  const bool is_near = text.size() <= name.size() + most && name.size() <= text.size() + most;
  return is_near && Distance(text, name) <= most;
}

// Whether a line that is not understood may have been one for the name, whatever stands in front of
// it, with its quotation marks or without, or cut within it.
bool MayBeLineOf(std::string_view line, std::string_view name) {
  line = Trimmed(line);
  const std::string_view start = line.starts_with('"') ? line.substr(1) : line;
  if (start.size() < name.size() && SameRegistryName(start, name.substr(0, start.size()))) {
    return true;
  }
  const auto is_letter = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
  line.remove_prefix(
      static_cast<std::size_t>(std::find_if(line.begin(), line.end(), is_letter) - line.begin()));
  if (SameRegistryName(line.substr(0, name.size()), name) &&
      (line.size() <= name.size() || !is_letter(line[name.size()]))) {
    return true;
  }
  return IsNearly(Trimmed(line.substr(0, line.find_first_of("\"="))), name);
}

// Whether only bytes in hexadecimal stand in the line, as behind a continuation mark.
bool IsContinuation(std::string_view line) {
  return line.find_first_not_of("0123456789abcdefABCDEF, \t\r\n\\") == std::string_view::npos;
}

}  // namespace

RegistryFile::RegistryFile() {
  entries_.push_back({Kind::kOther, std::string(kHeader) + line_end_, "", {}});
}

std::optional<RegistryFile> RegistryFile::Parse(std::string_view bytes) {
  RegistryFile file;
  const std::size_t mark = bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  if (Trimmed(bytes.substr(mark)).empty()) return file;
  const std::string_view header = FirstLine(bytes);
  if (Trimmed(header.substr(mark)) != kHeader) return std::nullopt;
  if (header.ends_with("\r\n")) file.line_end_ = "\r\n";
  file.entries_.front().raw = header;
  bytes.remove_prefix(header.size());
  while (!bytes.empty()) {
    auto entry = ParseContinued(bytes);
    file.entries_.push_back(entry ? *std::move(entry) : ParseLine(FirstLine(bytes)));
    bytes.remove_prefix(file.entries_.back().raw.size());
  }
  return file;
}

RegistryFile::Entry RegistryFile::ParseLine(std::string_view line) {
  const std::string_view content = Trimmed(line);
  Entry entry;
  if (content.empty() || content[0] == ';') {
    entry.kind = Kind::kBlankOrComment;
  } else if (content[0] == '[') {
    // A key without its closing bracket is none, and neither do the values below it belong to the
    // key above.
    entry.kind = Kind::kKey;
    if (content.back() == ']') entry.name = content.substr(1, content.size() - 2);
  } else if (auto value = ParseValue(content)) {
    entry = *std::move(value);
  }
  entry.raw = line;
  return entry;
}

std::optional<RegistryFile::Entry> RegistryFile::ParseValue(std::string_view line) {
  Entry entry;
  entry.kind = Kind::kValue;
  line = Trimmed(line);
  if (line.starts_with('@')) {
    line.remove_prefix(1);
  } else {
    auto name = TakeQuotedText(line);
    if (!name) return std::nullopt;
    entry.name = *std::move(name);
  }
  line = Trimmed(line);
  if (!line.starts_with('=')) return std::nullopt;
  auto value = ParseRegistryValue(line.substr(1));
  if (!value) return std::nullopt;
  entry.value = *std::move(value);
  return entry;
}

std::optional<RegistryFile::Entry> RegistryFile::ParseContinued(std::string_view rest) {
  std::string_view line = FirstLine(rest);
  std::string_view content = Trimmed(line);
  const bool starts_value = content.starts_with('"') || content.starts_with('@');
  if (!starts_value || !content.ends_with(kContinuationMark)) return std::nullopt;
  std::string joined;
  std::size_t length = 0;
  while (content.ends_with(kContinuationMark)) {
    content.remove_suffix(1);
    joined += content;
    length += line.size();
    line = FirstLine(rest.substr(length));
    if (!IsContinuation(line)) return std::nullopt;
    content = Trimmed(line);
  }
  joined += content;
  length += line.size();
  auto entry = ParseValue(joined);
  if (entry) entry->raw = rest.substr(0, length);
  return entry;
}

std::string RegistryFile::Text() const {
  std::string text;
  for (const Entry& entry : entries_) text += entry.raw;
  return text;
}

bool RegistryFile::HasKey(std::string_view key_path) const {
  const std::string key = FullKey(key_path);
  return std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    if (entry.kind != Kind::kKey || entry.name.size() < key.size()) return false;
    const std::string_view name = entry.name;
    return SameRegistryName(name.substr(0, key.size()), key) &&
           (name.size() == key.size() || name[key.size()] == '\\');
  });
}

std::size_t RegistryFile::FindEntry(std::string_view key_path, std::string_view name) const {
  const std::string key = FullKey(key_path);
  std::size_t found = entries_.size();
  bool inside = false;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const Entry& entry = entries_[i];
    if (entry.kind == Kind::kKey) inside = SameRegistryName(entry.name, key);
    if (inside && entry.kind == Kind::kValue && SameRegistryName(entry.name, name)) found = i;
  }
  return found;
}

const RegistryValue* RegistryFile::Find(std::string_view key_path, std::string_view name) const {
  const std::size_t found = FindEntry(key_path, name);
  return found < entries_.size() ? &entries_[found].value : nullptr;
}

bool RegistryFile::HasValues() const {
  return std::any_of(entries_.begin() + 1, entries_.end(), [](const Entry& entry) {
    return entry.kind == Kind::kValue || entry.kind == Kind::kOther;
  });
}

bool RegistryFile::HasDamagedValue(std::string_view name) const {
  const Entry& last = entries_.back();
  const bool is_whole = last.kind == Kind::kValue || last.kind == Kind::kBlankOrComment;
  if (!is_whole && !last.raw.ends_with('\n')) return true;
  return std::any_of(entries_.begin() + 1, entries_.end(), [name](const Entry& entry) {
    if (entry.kind == Kind::kOther) return MayBeLineOf(entry.raw, name);
    return entry.kind == Kind::kValue && IsNearly(entry.name, name);
  });
}

// Behind the last line of the key's last section; blank lines and comments in front of the next
// section belong to that.
std::optional<std::size_t> RegistryFile::EndOfSection(std::string_view key_path) const {
  const std::string key = FullKey(key_path);
  std::optional<std::size_t> end;
  bool inside = false;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const Entry& entry = entries_[i];
    if (entry.kind == Kind::kKey) inside = SameRegistryName(entry.name, key);
    if (inside && entry.kind != Kind::kBlankOrComment) end = i + 1;
  }
  return end;
}

void RegistryFile::InsertLine(std::size_t position, Entry entry) {
  std::string& before = entries_[position - 1].raw;
  if (!before.ends_with('\n')) before += line_end_;
  entry.raw += line_end_;
  entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(position), std::move(entry));
}

bool RegistryFile::AddKey(std::string_view key_path) {
  if (!IsRegistryName(key_path)) return false;
  if (EndOfSection(key_path)) return true;
  if (!Trimmed(entries_.back().raw).empty()) {
    InsertLine(entries_.size(), {Kind::kBlankOrComment, "", "", {}});
  }
  std::string key = FullKey(key_path);
  std::string raw = "[" + key + "]";
  InsertLine(entries_.size(), {Kind::kKey, std::move(raw), std::move(key), {}});
  return true;
}

bool RegistryFile::Set(std::string_view key_path, std::string_view name,
                       const RegistryValue& value) {
  if (!IsRegistryName(name)) return false;
  std::string line = (name.empty() ? "@" : QuotedText(name)) + "=";
  const std::size_t found = FindEntry(key_path, name);
  if (found < entries_.size()) {
    Entry& entry = entries_[found];
    if (entry.value.type == value.type && entry.value.data == value.data) return true;
    entry.raw = line + FormatRegistryValue(value, line.size(), line_end_) + line_end_;
    entry.value = value;
    return true;
  }
  if (!AddKey(key_path)) return false;
  line += FormatRegistryValue(value, line.size(), line_end_);
  InsertLine(EndOfSection(key_path).value_or(entries_.size()),
             {Kind::kValue, std::move(line), std::string(name), value});
  return true;
}

}  // namespace brovanta::platform

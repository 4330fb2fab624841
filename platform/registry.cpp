#include "platform/registry.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "platform/file.h"
#include "platform/registry_file.h"
#include "platform/registry_text.h"
#include "platform/system_calls.h"
#include "util/utf16.h"

namespace brovanta::platform {
namespace {

// A file larger than this is none of ours.
constexpr off_t kLargestFile = off_t{16} << 20;

std::span<const std::byte> AsBytes(const std::string& text) {
  return std::as_bytes(std::span(text));
}

std::optional<std::string> ReadOpen(int descriptor) {
  struct stat status {};
  if (Calls().StatusOf(descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
      status.st_size > kLargestFile) {
    return std::nullopt;
  }
  std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = Calls().ReadAt(descriptor, bytes.data() + done, bytes.size() - done,
                                         static_cast<off_t>(done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return std::nullopt;
    done += static_cast<std::size_t>(count);
  }
  return bytes;
}

// Read without a lock: whoever changes the file replaces it whole, so that a reader sees the old or
// the new one and never has to find the settings missing because somebody else looks at them.
std::optional<std::string> ReadWhole(const std::string& native) {
  const int descriptor = Calls().Open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK, 0);
  if (descriptor < 0) return std::nullopt;
  auto bytes = ReadOpen(descriptor);
  Calls().Close(descriptor);
  return bytes;
}

enum class State { kMissing, kUnreadable, kForeign, kKnown };

struct Contents {
  State state = State::kMissing;
  std::string bytes;
  RegistryFile file;
};

Contents Load(const std::string& path) {
  Contents contents;
  if (!FileExists(path)) return contents;
  auto bytes = ReadWhole(NativePath(path));
  if (!bytes) {
    contents.state = State::kUnreadable;
    return contents;
  }
  contents.bytes = *std::move(bytes);
  auto file = RegistryFile::Parse(contents.bytes);
  contents.state = file ? State::kKnown : State::kForeign;
  if (file) contents.file = *std::move(file);
  return contents;
}

bool PutAside(const std::string& path, const std::string& bytes) {
  const auto aside = FreePathAside(path);
  return aside && ReplaceFile(*aside, AsBytes(bytes));
}

// Puts the changed file in the place of what was loaded.
bool Store(const std::string& path, const Contents& contents) {
  switch (contents.state) {
    case State::kUnreadable:
      return false;
    case State::kForeign:
      if (!PutAside(path, contents.bytes)) return false;
      break;
    case State::kMissing: {
      const std::string folder = std::filesystem::path(NativePath(path)).parent_path();
      if (!folder.empty() && !CreateFolder(folder)) return false;
      break;
    }
    case State::kKnown:
      break;
  }
  return ReplaceFile(path, AsBytes(contents.file.Text()));
}

}  // namespace

RegistryStore::RegistryStore(std::string file_path) : file_path_(std::move(file_path)) {}

RegistryStore::Answer RegistryStore::Ask(std::string_view key_path, std::string_view name,
                                         RegistryValue& value) const {
  const Contents contents = Load(file_path_);
  if (contents.state == State::kUnreadable) return Answer::kUnreadable;
  if (contents.state == State::kForeign) return Answer::kForeign;
  const RegistryValue* const found = contents.file.Find(key_path, name);
  if (found == nullptr) {
    if (contents.state == State::kMissing) return Answer::kNone;
    if (!contents.file.HasValues()) return Answer::kForeign;  // nobody here leaves such a file
    return contents.file.HasDamagedValue(name) ? Answer::kDamaged : Answer::kNone;
  }
  value = *found;
  return Answer::kValue;
}

std::optional<std::string> TextOf(const RegistryValue& value, std::size_t max_bytes) {
  if (value.type != REG_SZ || value.data.size() > max_bytes) return std::nullopt;
  return Utf16ToUtf8(TextFromBytes(value.data));
}

RegistryKey::RegistryKey(std::string file_path, std::string key_path)
    : file_path_(std::move(file_path)), key_path_(std::move(key_path)) {}

std::optional<RegistryKey> RegistryKey::Open(const RegistryStore& store,
                                             std::string_view key_path) {
  const Contents contents = Load(store.file_path());
  if (!contents.file.HasKey(key_path)) return std::nullopt;
  return RegistryKey(store.file_path(), std::string(key_path));
}

std::optional<RegistryKey> RegistryKey::Create(const RegistryStore& store,
                                               std::string_view key_path) {
  Contents contents = Load(store.file_path());
  if (!contents.file.HasKey(key_path) && !contents.file.AddKey(key_path)) return std::nullopt;
  if (!Store(store.file_path(), contents)) return std::nullopt;
  return RegistryKey(store.file_path(), std::string(key_path));
}

bool RegistryKey::StoreText(const RegistryStore& store, std::string_view key_path,
                            std::string_view name, std::string_view utf8) {
  return RegistryKey(store.file_path(), std::string(key_path)).SetText(name, utf8);
}

std::optional<RegistryValue> RegistryKey::Query(std::string_view name) const {
  const Contents contents = Load(file_path_);
  const RegistryValue* const value = contents.file.Find(key_path_, name);
  return value != nullptr ? std::optional(*value) : std::nullopt;
}

bool RegistryKey::Set(std::string_view name, const RegistryValue& value) {
  Contents contents = Load(file_path_);
  if (!contents.file.Set(key_path_, name, value)) return false;
  const bool stored = contents.state == State::kKnown && contents.file.Text() == contents.bytes;
  return stored || Store(file_path_, contents);
}

std::optional<std::string> RegistryKey::QueryText(std::string_view name,
                                                  std::size_t max_bytes) const {
  const auto value = Query(name);
  return value ? TextOf(*value, max_bytes) : std::nullopt;
}

bool RegistryKey::SetText(std::string_view name, std::string_view utf8) {
  const auto text = Utf8ToUtf16(utf8);
  return text && Set(name, {REG_SZ, BytesFromText(*text)});
}

}  // namespace brovanta::platform

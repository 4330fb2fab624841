#include "platform/text_file.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <span>
#include <stdexcept>

#include "platform/file.h"
#include "util/error_codes.h"

namespace brovanta::platform {
namespace {

bool Resize(std::string& text, std::int64_t size) {
  try {
    text.resize(static_cast<std::size_t>(size));
  } catch (const std::bad_alloc&) {
    return false;
  } catch (const std::length_error&) {
    return false;
  }
  return true;
}

}  // namespace

int ReadWholeFile(const std::string& path, std::string& bytes) {
  bytes.clear();
  File file;
  if (!file.Open(path, File::Mode::kRead)) return ERR_OPEN;
  const std::int64_t size = file.Size();
  if (size < 0) return ERR_FORMAT;
  if (size > kLargestWholeFile || !Resize(bytes, size)) return ERR_IO;
  if (file.Read(std::as_writable_bytes(std::span(bytes))) != size) {
    bytes.clear();
    return ERR_IO;
  }
  return 0;
}

int ReadTextFile(const std::string& path, std::string& text) {
  const int code = ReadWholeFile(path, text);
  text.resize(std::min(text.find('\0'), text.size()));
  return code;
}

}  // namespace brovanta::platform

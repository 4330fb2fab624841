#include "agent/input.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

#include "net/http/body_pieces.h"
#include "platform/text_file.h"

namespace brovanta::agent_tool {
namespace {

struct Closer {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

}  // namespace

std::optional<std::string> ReadInput(const std::string& path, std::string& error) {
  const std::unique_ptr<std::FILE, Closer> file(std::fopen(path.c_str(), "rbe"));
  if (file == nullptr) {
    error = std::strerror(errno);
    return std::nullopt;
  }
  std::string bytes;
  std::array<char, 65536> piece{};
  while (const std::size_t length = std::fread(piece.data(), 1, piece.size(), file.get())) {
    bytes.append(piece.data(), length);
    if (bytes.size() > static_cast<std::size_t>(platform::kLargestWholeFile)) {
      error = "is larger than 256 MB";
      return std::nullopt;
    }
  }
  if (std::ferror(file.get()) != 0) {
    error = std::strerror(errno);
    return std::nullopt;
  }
  return bytes;
}

// The downloader's own pieces, so that limit and zero bytes have the same effect.
Page PageOf(std::string_view stored) {
  Page page;
  page.stored_bytes = stored.size();
  page.zeros = stored.find('\0') != std::string_view::npos;
  const std::atomic<std::int32_t> never_cancelled = 0;
  ByteBody body(never_cancelled);
  PieceResult result = body.Take(stored);
  if (result == PieceResult::kGoOn) result = body.Finish();
  page.cut = result == PieceResult::kFull;
  page.text = body.TakeBytes();
  return page;
}

std::string_view AgentFileText(std::string_view stored) {
  return stored.substr(0, stored.find('\0'));
}

Lines::Lines(std::string_view text) {
  for (std::size_t at = text.find('\n'); at != std::string_view::npos;
       at = text.find('\n', at + 1)) {
    ends_.push_back(at);
  }
}

std::size_t Lines::LineOf(std::size_t byte) const {
  const auto next = std::lower_bound(ends_.begin(), ends_.end(), byte);
  return static_cast<std::size_t>(next - ends_.begin()) + 1;
}

}  // namespace brovanta::agent_tool

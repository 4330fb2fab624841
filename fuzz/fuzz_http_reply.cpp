// Any bytes as what a server says: both downloads come to an end with a page within bounds or a
// documented code, and a file is written whole or not at all.
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/scratch_folder.h"
#include "fuzz/scripted_server.h"
#include "net/http/http_client.h"

namespace brovanta {
namespace {

using fuzz::Require;

constexpr std::size_t kLongestPage = 319'999;
constexpr HttpTimeouts kTimeouts{std::chrono::milliseconds(300), std::chrono::milliseconds(300)};
constexpr char kBefore[] = "what stood there";

bool IsDocumented(std::int32_t code) {
  const bool is_internet_error = code >= 12'000 && code < 13'000;
  return code == 0 || code == kHttpNoMemory || is_internet_error ||
         (code >= HTTP_ERR_STATUS && code <= HTTP_ERR_CANCELLED);
}

void Run(fuzz::ScriptedServer& server, fuzz::ScratchFolder& folder, const std::string& script) {
  const std::atomic<std::int32_t> go_on{0};
  std::string text;
  server.Begin(script);
  std::int32_t code = DownloadUrlToText(server.url() + "/page", 0, go_on, kTimeouts, text);
  Require(IsDocumented(code), "a documented code for a page");
  Require(text.size() <= kLongestPage && text.find('\0') == std::string::npos, "a page's bounds");
  Require(code == 0 || text.empty(), "no page with a code");

  folder.Write("update.dat", kBefore);
  server.Begin(script);
  code = DownloadUrlToFile(server.url() + "/feed", folder.path() + "\\update.dat", 0, go_on,
                           kTimeouts);
  Require(IsDocumented(code), "a documented code for a file");
  const std::string after = *folder.Read("update.dat");
  Require(code == 0 ? after.size() <= 2 * kLongestPage : after == kBefore, "whole or not at all");
  Require(folder.Files().size() == 1, "no temporary is left");
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static auto* const server = new brovanta::fuzz::ScriptedServer;  // its thread never ends
  static brovanta::fuzz::ScratchFolder folder;
  brovanta::Run(*server, folder, std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}

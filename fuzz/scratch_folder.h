// A folder in memory for the files of a fuzz target.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

#include "fuzz/require.h"

namespace brovanta::fuzz {

/// A folder that goes when the process ends.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::error_code ignored;
    const bool in_memory = std::filesystem::is_directory("/dev/shm", ignored);
    path_ = (in_memory ? "/dev/shm" : "/tmp") + std::string("/brovanta-fuzz-XXXXXX");
    Require(mkdtemp(path_.data()) != nullptr, "a scratch folder can be made");
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  [[nodiscard]] const std::string& path() const { return path_; }

  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream out(path_ + "/" + name, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    Require(static_cast<bool>(out.flush()), "a scratch file can be written");
  }
  [[nodiscard]] std::optional<std::string> Read(const std::string& name) const {
    std::ifstream in(path_ + "/" + name, std::ios::binary);
    if (!in) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(in), {});
  }
  void Remove(const std::string& name) const {
    std::error_code ignored;
    std::filesystem::remove(path_ + "/" + name, ignored);
  }

 private:
  std::string path_;
};

}  // namespace brovanta::fuzz

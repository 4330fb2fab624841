// Reading a file that others work with, without standing in their way.
#pragma once

#include <string>

namespace brovanta::platform {

enum class QuietResult {
  kRead,
  kMissing,
  kHeld,      ///< someone else has it open for himself
  kRefused,   ///< no regular file, or not permitted
  kTooLarge,  ///< larger than kLargestWholeFile
  kFailed,    ///< the device fails, or there is no memory for it
  kChanging,  ///< it changes again and again while it is read
};

/// Reads every byte of the file at the documented path; `bytes` is empty unless the result is
/// kRead. Opens for reading only and keeps nobody from opening it but for the moment that it takes
/// to ask whether someone has it; the bytes are nevertheless those of one moment, because the file
/// is read anew when it changed meanwhile.
[[nodiscard]] QuietResult ReadQuietly(const std::string& path, std::string& bytes);

}  // namespace brovanta::platform

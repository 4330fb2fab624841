// Files into and out of the store.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server/command_line.h"
#include "server/problem.h"
#include "server/store.h"

namespace brovanta::server {

/// A whole file; larger ones than this are refused.
inline constexpr std::size_t kMaxImportBytes = 67'108'864;

/// The bytes of a file. Nothing on failure, `error` then says why.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& path, std::string& error);

/// Writes the bytes to a new file beside the path, syncs it and puts it in the path's place, with
/// the permissions of what stood there, else for its owner alone. False on failure, `error` then
/// says why, and what stood there before stays.
[[nodiscard]] bool WriteWholeFile(const std::string& path, std::string_view bytes,
                                  std::string& error);

/// How much an import brought.
struct ImportOutcome {
  std::vector<Problem> problems;  ///< with any, nothing was imported
  std::size_t entries = 0;
};

/// Imports the text of a file: a table or an agent file.
[[nodiscard]] ImportOutcome ImportText(Store& store, Subject subject, std::string_view text,
                                       bool replace);

/// What ImportText would read back the same: a table by ascending id, or the agent file's bytes.
/// Nothing on failure, `error` then says why.
[[nodiscard]] std::optional<std::string> ExportText(Store& store, Subject subject,
                                                    std::string& error);

}  // namespace brovanta::server

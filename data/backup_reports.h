// What the program tells of copies, for a person and for a script. Both kinds end with a line feed.
#pragma once

#include <string>
#include <vector>

#include "data/backup_folder.h"
#include "data/restore.h"

namespace brovanta::data_tool {

/// A copy that is listed, and the file in it that cannot be read: then it cannot be brought back.
struct ListedCopy {
  BackupCopy copy;
  std::string unreadable;  ///< its name in the copy, "." for the copy itself; empty: none
};

/// The copies of a data folder, and whether more can be made.
struct BackupsReport {
  std::string folder;
  std::string place;     ///< of the copies
  std::string obstacle;  ///< why no copy can be made, else empty
  std::vector<ListedCopy> copies;
};

/// Reads each of the copies.
[[nodiscard]] BackupsReport ReportBackups(const std::string& folder);

[[nodiscard]] std::string BackupsAsText(const BackupsReport& report);
[[nodiscard]] std::string BackupsAsJson(const BackupsReport& report);

/// Of a restore that was done, or that had nothing to do.
[[nodiscard]] std::string RestoreAsText(const RestoreEnd& end, const std::string& folder);
[[nodiscard]] std::string RestoreAsJson(const RestoreEnd& end, const std::string& folder);

}  // namespace brovanta::data_tool

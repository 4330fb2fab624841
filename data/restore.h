// Bringing a copy back.
#pragma once

#include <optional>
#include <string>

#include "data/folder_change.h"

namespace brovanta {

struct RestoreEnd : FolderChangeEnd {
  std::string copy;  ///< the name of the copy
};

/// Makes the data files of the folder those of the copy, the newest daily one without a name. What
/// stands there is kept as a copy first. A data folder that is gone is made anew.
[[nodiscard]] RestoreEnd RestoreCopy(const std::string& data_folder,
                                     const std::optional<std::string>& copy_name);

}  // namespace brovanta

// Bringing a copy back.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace brovanta {

struct RestoreEnd {
  enum class Outcome {
    kDone,
    kSame,       ///< the folder holds the very same files already: nothing was done
    kNoCopy,     ///< there is no copy, or none of that name
    kNoFolder,   ///< neither the folder nor a copy of it is there
    kInUse,      ///< the program works in the folder, or someone holds a file
    kFailed,     ///< nothing has changed
    kUndecided,  ///< the device failed on the way back too: the next start, or the next restore,
                 ///< undoes what has been done
  };
  Outcome outcome = Outcome::kFailed;
  std::string copy;         ///< the name of the copy
  std::string kept_as;      ///< the name of the copy of what was replaced; empty: there was nothing
  std::size_t written = 0;  ///< files
  std::size_t removed = 0;
  std::string words;  ///< what went wrong
};

/// Makes the data files of the folder those of the copy, the newest daily one without a name. What
/// stands there is kept as a copy first. All files change as one unit of work: an interruption at
/// any point leaves the old ones or the new ones, or the old ones after the roll-back with which
/// every start of the program begins. A data folder that is gone is made anew.
[[nodiscard]] RestoreEnd RestoreCopy(const std::string& data_folder,
                                     const std::optional<std::string>& copy_name);

}  // namespace brovanta

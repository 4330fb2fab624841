// Reads the files of a data folder for the commands that take something out of it.
#pragma once

#include <optional>
#include <string>

#include "data/data_snapshot.h"
#include "data/exit_status.h"

namespace brovanta::data_tool {

/// Why nothing was read.
struct ReadProblem {
  ExitStatus status = kBad;
  std::string words;  ///< for a person, without a full stop
};

/// All data files as they are at one moment. Changes nothing, and the program may run. Nothing when
/// the folder is none of ours, is being changed, or cannot be read.
[[nodiscard]] std::optional<DataSnapshot> ReadFolder(const std::string& folder,
                                                     ReadProblem& problem);

}  // namespace brovanta::data_tool

// How the program ends.
#pragma once

namespace brovanta::data_tool {

enum ExitStatus : int {
  kGood = 0,      ///< the folder is whole; it is done
  kBad = 1,       ///< there are errors or warnings; it could not be done and nothing has changed
  kMisused = 2,   ///< the command line makes no sense
  kNoFolder = 3,  ///< the folder cannot be read, or is none of ours
};

}  // namespace brovanta::data_tool

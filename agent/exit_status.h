// How the program ends.
#pragma once

namespace brovanta::agent_tool {

enum ExitStatus : int {
  kGood = 0,     ///< nothing is wrong, at least one item is kept, the address can be built
  kBad = 1,      ///< the file, the agent or the page is not as it should be
  kMisused = 2,  ///< the command line makes no sense
  kNoInput = 3,  ///< a file cannot be read, or no agent of the file has the number
};

}  // namespace brovanta::agent_tool

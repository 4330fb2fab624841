// A look at the roll-back journal and at what lies around it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "data/folder_report.h"
#include "data/frame.h"
#include "platform/quiet_read.h"

namespace brovanta::data_tool {

/// Reads the file of a name in the folder.
using ReadByName = std::function<platform::QuietResult(const std::string&, std::string&)>;

/// Checks the bytes of "backup.dat": whether a change waits to be undone, and whether it can be in
/// the files that stand there.
void CheckJournal(FileBytes bytes, const ReadByName& read, FileNotes& notes);

/// Notes what of the names in the folder was set aside or left behind.
void CheckLeftOvers(const std::vector<std::string>& names, std::vector<Finding>& findings);

/// The same for the names in the folder of the results.
void CheckResultLeftOvers(const std::vector<std::string>& names, std::vector<Finding>& findings);

}  // namespace brovanta::data_tool

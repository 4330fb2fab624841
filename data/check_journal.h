// A look at the roll-back journal and at what lies around it.
#pragma once

#include <string>
#include <vector>

#include "data/folder_report.h"
#include "data/frame.h"

namespace brovanta::data_tool {

/// Checks the bytes of "backup.dat": whether a change waits to be undone, and whether it can be.
void CheckJournal(FileBytes bytes, const std::vector<FileReport>& files, FileNotes& notes);

/// Notes what of the names in the folder was set aside or left behind.
void CheckLeftOvers(const std::vector<std::string>& names, std::vector<Finding>& findings);

}  // namespace brovanta::data_tool

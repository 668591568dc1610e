// The folders of the log.
#pragma once

#include <string>
#include <vector>

#include "doctor/report.h"

namespace tolvex::ctl {

// Whether the folder (UTF-8, with a separator at the end) is there, and whether this user can write
// in it and to the files of the log that it holds. Tries with a file of its own, which it removes.
// With `mend` it makes a folder that is missing; nothing else is changed.
std::vector<Finding> checkLogFolder(const std::string& folder, bool mend);

// The same for a folder that only some applications need: what is missing or wrong is no failure.
std::vector<Finding> checkSecondLogFolder(const std::string& folder, bool mend);

}  // namespace tolvex::ctl

// What NLog.ini makes of the log.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "doctor/report.h"

namespace tolvex::ctl {

// Examines the bytes of an NLog.ini, read as the logger reads them. `path` is for the texts. Nothing
// here fails: a log with less in it is a warning.
std::vector<Finding> examineThresholds(std::string_view bytes, const std::string& path);

}  // namespace tolvex::ctl

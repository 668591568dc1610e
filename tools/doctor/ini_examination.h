// Why the library finds, or does not find, the service's address in an INI file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "doctor/report.h"

namespace tolvex::ctl {

struct IniExamination {
  std::string address;  // what the library takes from the file; empty: nothing
  std::vector<Finding> findings;
};

// Examines the bytes of zelkad_ip_config.ini, read as the library reads them: nothing is trimmed, and
// names are compared exactly. `path` is for the texts.
IniExamination examineIni(std::string_view bytes, const std::string& path);

// What zeros at the head of a number in an address do: connections read such a number as an octal one.
std::vector<Finding> examineZeros(const std::string& address);

}  // namespace tolvex::ctl

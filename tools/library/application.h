// The POS application that --app names, and the address of the service that is in force.
#pragma once

#include <string>

#include "app/globals.h"

namespace tolvex::ctl {

/// The folder of an application that is named by its executable or its folder. Throws a Failure when
/// there is neither. Paths are UTF-8.
std::string applicationFolder(const std::string& application);

/// The address that the library has to be told: that of --host, else that of the INI file beside the
/// application of --app, as the library would read it there (127.0.0.1 without one). Empty when the
/// library is to look for itself, beside this program.
std::string addressToSet(const Globals& globals);

}  // namespace tolvex::ctl

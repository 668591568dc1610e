// What the service tells of its printers.
#pragma once

#include <string>
#include <vector>

#include "library/service.h"

namespace tolvex::ctl {

/// The names of the printers, as the service lists them. Throws a Failure when there is no list.
std::vector<std::string> listPrinters(Service& service);

}  // namespace tolvex::ctl

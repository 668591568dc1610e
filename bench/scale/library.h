// The built library, loaded at run time as an application would.
#pragma once

#include <exports.h>

#include <string>

namespace bench::scale {

// Stays loaded until the process ends, as the library itself wants it.
struct Library {
  // Throws std::runtime_error where the library or one of the functions is missing.
  explicit Library(const std::string& path);

  // Makes the library connect to a service there. Throws std::runtime_error.
  void use(const std::string& address) const;

  decltype(&::SetServerIpForRemoteAccess) setAddress;
  decltype(&::checkConnection) checkConnection;
  decltype(&::read_standard) readStandard;
  decltype(&::sendRawCmdToLC) rawWeighing;
  decltype(&::printTextById) printNow;
  decltype(&::PrintText) printText;
  decltype(&::BeginPrint) beginPrint;
};

}  // namespace bench::scale

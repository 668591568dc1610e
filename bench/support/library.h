// The library as an application loads it.
#pragma once

#include <exports.h>

#include <string>

namespace bench {

// The exports that are measured, of a library that stays loaded.
struct Library {
  decltype(&::SetServerIpForRemoteAccess) setServerIp;
  decltype(&::checkConnection) checkConnection;
  decltype(&::read_standard) readStandard;
  decltype(&::sendRawCmdToLC) sendRawCmdToLC;
  decltype(&::printTextById) printTextById;
  decltype(&::PrintText) printText;
  decltype(&::PrintTextByPaperWidth) printTextByPaperWidth;
  decltype(&::BeginPrint) beginPrint;
  decltype(&::getLastErrCode) getLastErrCode;
};

// Throws std::runtime_error when the file cannot be loaded or lacks one of them.
Library loadLibrary(const std::string& path);

// The same, with the address of the service set.
Library loadLibrary(const std::string& path, const std::string& address);

// Makes the library connect to the service there. Throws std::runtime_error.
void connectLibrary(const Library& library, const std::string& address);

// The record that read_standard makes of kWeightReply; anything else throws.
void readWeight(const Library& library);

}  // namespace bench

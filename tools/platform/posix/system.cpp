#include "platform/system.h"

#include <sys/utsname.h>

#include "platform/posix/charset.h"

namespace tolvex::ctl::platform {

std::string systemName() {
  struct utsname name = {};
  if (uname(&name) != 0) return "unknown";
  return std::string(name.sysname) + ' ' + name.release + ' ' + name.machine;
}

std::string codePageName() { return tolvex::platform::userCharset(); }

std::string adviceForUtf8() {
  return "Run the application in a locale with UTF-8, for example with LC_ALL=C.UTF-8, and let it "
         "pass UTF-8.";
}

}  // namespace tolvex::ctl::platform

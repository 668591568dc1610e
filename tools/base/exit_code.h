#pragma once

namespace tolvex::ctl {

/// What the program's exit status says, for scripts to tell apart.
enum class ExitCode : int {
  Fine = 0,
  Failed = 1,       // a check or a command failed, or something is missing on this machine
  Usage = 2,        // the command line can not be understood
  Unreachable = 3,  // the service does not take commands, or gives no answer that can be read
  DeviceError = 4,  // the service answered, with any other result code than 0
};

}  // namespace tolvex::ctl

// Where things lie on this system.
#pragma once

#include <string>

namespace tolvex::platform {

// What separates the folders of a path as the system reports it: '\\' on Windows, '/' elsewhere.
extern const char kPathSeparator;

// The running executable (the host application, not this library) as its 8-bit path: in the ANSI
// code page and at most 259 characters on Windows. Empty when the system does not tell.
std::string hostExecutable();

// The same path in UTF-8; on Windows cut at 255 UTF-16 units.
std::string hostExecutableUtf8();

// The folder of the library's log files and of its image cache, with a separator at the end:
// "c:/VARN/Log/" on Windows, ${XDG_STATE_HOME:-$HOME/.local/state}/varn/log/ elsewhere. No
// installer makes the folder on POSIX systems, so there this call does.
std::string libraryLogDirectory();

// The folder that the logger uses before the library has named one: "c:\Corvane\Log\" on Windows,
// .../corvane/log/ beside the one above elsewhere (made by this call, likewise).
std::string loggerDefaultDirectory();

}  // namespace tolvex::platform

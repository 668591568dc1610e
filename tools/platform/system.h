// What this machine is, and in which code page its applications write.
#pragma once

#include <string>

namespace tolvex::ctl::platform {

/// The operating system and its version: "Linux 6.1.0-13-amd64 x86_64", "Windows 10.0.19045".
std::string systemName();

/// What the system's ANSI code page, or the user's character set, is called: "1252", "65001",
/// "UTF-8", "GBK".
std::string codePageName();

/// How to get UTF-8 instead, as an advice.
std::string adviceForUtf8();

}  // namespace tolvex::ctl::platform

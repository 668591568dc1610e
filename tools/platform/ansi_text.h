// Texts as the library takes them: in the system's ANSI code page.
#pragma once

#include <optional>
#include <string>

namespace tolvex::ctl::platform {

/// The UTF-8 text in the system's ANSI code page (elsewhere: in the character set of the user's
/// locale, as the library finds it). Nothing when it has a character that the code page lacks.
std::optional<std::string> toAnsi(const std::string& utf8);

/// What the code page is called: "code page 1252", "ISO-8859-1".
std::string ansiName();

}  // namespace tolvex::ctl::platform

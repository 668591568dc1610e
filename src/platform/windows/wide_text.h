// UTF-8 to UTF-16, for the windows/ files only.
#pragma once

#include <string>

namespace tolvex::platform {

// Invalid bytes become U+FFFD. Throws std::bad_alloc only.
std::wstring wideText(const char* utf8);

}  // namespace tolvex::platform

// UTF-8 that others wrote, for the posix/ files only.
#pragma once

#include <cstddef>
#include <string>

namespace tolvex::platform {

// U+FFFD, which takes the place of what is not a character.
extern const char kReplacement[4];

// Returns the text with U+FFFD in place of what is not UTF-8, one for each byte that begins no
// character and one for each longest beginning of a character that is not finished. Overlong forms,
// surrogates and numbers beyond U+10FFFF are no characters. Throws std::bad_alloc only.
std::string repairedUtf8(const char* text, std::size_t size);

}  // namespace tolvex::platform

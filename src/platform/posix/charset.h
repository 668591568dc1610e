// The character set of the user's texts, for the posix/ files only.
#pragma once

#include <cstddef>
#include <string>

namespace tolvex::platform {

// What UTF-8 is called here, and what is taken where nothing better is known.
extern const char* const kUtf8;

// The name of the character set in the environment's locale, as iconv takes it, or kUtf8. Looks
// afresh at each call. Throws std::bad_alloc only.
std::string userCharset();

// The locale that the user asks for: the first of the values of LC_ALL, LC_CTYPE and LANG that is
// set and not empty, or an empty text. Null stands for a variable that is not set.
std::string localeName(const char* lcAll, const char* lcCtype, const char* lang);

// The part of a locale's name that names a character set: "KOI8-R" of "ru_RU.KOI8-R@modifier".
// Empty where there is none.
std::string charsetInName(const std::string& locale);

// Whether texts in the character set can be converted to UTF-8 and are in 8-bit units with ASCII
// where everybody expects it.
bool isUsable(const std::string& charset);

// Whether this is one of the spellings of UTF-8 in the names of locales.
bool isUtf8(const std::string& charset);

// Converts a text in a usable character set to UTF-8, each byte that is not part of a character to
// U+FFFD. Throws std::bad_alloc only.
std::string convertedToUtf8(const std::string& charset, const char* text, std::size_t size);

}  // namespace tolvex::platform

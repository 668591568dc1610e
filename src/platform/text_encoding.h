// The 8-bit texts of the host application.
#pragma once

#include <string>

namespace tolvex::platform {

// Returns in UTF-8 what the NUL-terminated text says in the system's ANSI code page. Null counts as
// an empty text. There is no failure to report: what does not belong to the code page is replaced
// and the rest of the text survives. Throws std::bad_alloc only. For any number of threads at once.
//
// On Windows the code page is the system's (CP_ACP) and replacements are the system's choice; a
// text that the system cannot convert at all, such as one of 2 GiB, comes out empty.
//
// Elsewhere it is the character set of the user's locale: of the first of LC_ALL, LC_CTYPE and LANG
// that is set and not empty. Where that locale is not installed, the part of its name behind the
// '.' names the character set. The locales "C" and "POSIX", none at all, and names that lead to no
// character set known here say nothing about the bytes: they are taken as UTF-8, as are those of a
// locale of UTF-8. The character set is found out at the first call and stays for the life of the
// process; neither the host's locale (setlocale) nor later changes of its environment matter.
// Each byte that is not part of a character becomes U+FFFD, in UTF-8 each longest beginning of a
// character that is not finished.
std::string AnsiToUtf8(const char* text);

}  // namespace tolvex::platform

// Compiler extensions that the code above uses through a name, so that it stays standard C++.
#pragma once

// Checks the arguments of a printf-like function: the format's position and that of the first
// argument after it, both counted from 1.
#if defined(__MINGW32__)
#define TOLVEX_PRINTF_FORMAT(text, first) __attribute__((format(gnu_printf, text, first)))
#elif defined(__GNUC__)
#define TOLVEX_PRINTF_FORMAT(text, first) __attribute__((format(printf, text, first)))
#else
#define TOLVEX_PRINTF_FORMAT(text, first)
#endif

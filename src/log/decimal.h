// Text to integer, the way of atoi but defined for every text.
#pragma once

#include <cstdint>
#include <string_view>

namespace tolvex {

// Reads leading blanks, an optional sign and decimal digits, and stops at the first other
// character. No digits give 0; a number beyond 32 bits gives the nearest one within.
std::int32_t textToInt(std::string_view text);

}  // namespace tolvex

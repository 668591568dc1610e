// Numbers of weighing replies and records, the same in every locale of the host application.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tolvex {

// Text to number the way of atof: leading blanks, then the longest numeric prefix (decimal,
// hexadecimal, "inf" or "nan"); 0 for a text without one. Too large gives infinity, too small 0.
double textToDouble(const char* text);

// Truncates toward zero; clamped to 32 bits, 0 for what is no number.
std::int32_t truncated(double value);

// Prints like "%07.3f" (or with another count of decimals) at record + offset, without regard to
// the width of the field: the text and its NUL may run on, but end at recordSize.
void printWeight(char* record, std::size_t recordSize, std::size_t offset, double value,
                 int decimals);

}  // namespace tolvex

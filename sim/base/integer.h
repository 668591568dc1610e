// Whole numbers as requests carry them.
#pragma once

#include <optional>
#include <string_view>

namespace tolvex::sim {

/// Reads a whole number: an optional '-' and decimal digits, within 32 bits. Nothing else is a
/// number: no blanks, '+', fraction, exponent or other base.
std::optional<int> parseInteger(std::string_view text);

}  // namespace tolvex::sim

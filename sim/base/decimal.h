// Decimal numbers as people and commands write them.
#pragma once

#include <optional>
#include <string_view>

namespace tolvex::sim {

/// Reads a plain decimal number: an optional '-', digits, and optionally a '.' with more digits
/// ("12", "-0.5", "0.120"). Nothing else is a number: no blanks, '+', exponent, bare dot, "nan",
/// and no text of more than 15 characters, which is as much as a double holds exactly.
std::optional<double> parseDecimal(std::string_view text);

}  // namespace tolvex::sim

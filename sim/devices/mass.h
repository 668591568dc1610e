// Mass as whole milligrams. A scale counts divisions; with integers a half is a half, and no
// binary fraction decides whether 1.0005 kg rounds up.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tolvex::sim {

using Milligrams = std::int64_t;

constexpr Milligrams kMilligramsPerKilogram = 1'000'000;

/// Kilograms to the nearest milligram. `kg` lies within +-1e9.
constexpr Milligrams kilograms(double kg) {
  return static_cast<Milligrams>(kg * static_cast<double>(kMilligramsPerKilogram) +
                                 (kg < 0 ? -0.5 : 0.5));
}

/// Reads kilograms as parseDecimal() does, to the nearest milligram. Nothing beyond +-1e9 kg.
std::optional<Milligrams> parseKilograms(std::string_view text);

/// The nearest multiple of `division` (> 0); halves go away from zero.
Milligrams roundTo(Milligrams mass, Milligrams division);

/// Decimals of a kilogram value that `division` (> 0) needs: 3 for 0.005 kg, 0 for 1 kg.
int decimalsOf(Milligrams division);

/// Kilograms with exactly `decimals` (0 to 6) decimals, further ones cut: "0.120", "-1.500". Zero
/// has no sign.
std::string formatKilograms(Milligrams mass, int decimals);

/// Kilograms with as many decimals as the value needs: "15", "0.02".
std::string formatKilograms(Milligrams mass);

}  // namespace tolvex::sim

#include "devices/mass.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "base/decimal.h"

namespace tolvex::sim {

namespace {

constexpr int kDecimalsOfAMilligram = 6;
constexpr double kLargestKilograms = 1e9;

}  // namespace

std::optional<Milligrams> parseKilograms(std::string_view text) {
  const auto kg = parseDecimal(text);
  if (!kg || std::abs(*kg) > kLargestKilograms) return std::nullopt;
  return kilograms(*kg);
}

Milligrams roundTo(Milligrams mass, Milligrams division) {
  const Milligrams half = division / 2;
  return (mass + (mass < 0 ? -half : half)) / division * division;
}

int decimalsOf(Milligrams division) {
  int decimals = kDecimalsOfAMilligram;
  while (decimals > 0 && division % 10 == 0) {
    division /= 10;
    --decimals;
  }
  return decimals;
}

std::string formatKilograms(Milligrams mass, int decimals) {
  const Milligrams size = std::abs(mass);
  std::string fraction = std::to_string(size % kMilligramsPerKilogram);
  fraction.insert(0, static_cast<std::size_t>(kDecimalsOfAMilligram) - fraction.size(), '0');
  fraction.resize(static_cast<std::size_t>(decimals));

  std::string text = std::to_string(size / kMilligramsPerKilogram);
  if (decimals > 0) text += "." + fraction;
  const bool isZero = text.find_first_not_of("0.") == std::string::npos;
  return mass < 0 && !isZero ? "-" + text : text;
}

std::string formatKilograms(Milligrams mass) {
  return formatKilograms(mass, mass == 0 ? 0 : decimalsOf(std::abs(mass)));
}

}  // namespace tolvex::sim

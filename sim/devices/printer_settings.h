// What clients can set on a printer.
#pragma once

#include <array>
#include <cstddef>

namespace tolvex::sim {

enum class Setting {
  PaperWidth,
  GapType,
  Direction,
  TextWrapMode,
  LeftMargin,
  RightMargin,
  AutoPrint,
  PaperOffset,
  Contrast,
  PrintSpeed,
  Rollback,
  TakePaperSensor,
};

constexpr std::size_t kSettings = 12;

struct SettingRow {
  Setting setting;
  /// What operators call it, for example "left-margin". The text is static.
  const char* name;
  int smallest;
  int largest;
  int initial;
};

/// All settings in the order of their numbers. Lengths are in dots. The table is static.
const std::array<SettingRow, kSettings>& printerSettings();

/// One value for each setting, at first the initial ones.
class PrinterSettings {
 public:
  PrinterSettings();

  int operator[](Setting setting) const { return values_[static_cast<std::size_t>(setting)]; }

  /// Keeps a value if it is within the setting's bounds, and tells whether it is.
  bool set(Setting setting, int value);

 private:
  std::array<int, kSettings> values_{};
};

}  // namespace tolvex::sim

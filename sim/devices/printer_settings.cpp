#include "devices/printer_settings.h"

namespace tolvex::sim {

namespace {

constexpr int kWidestPaper = 640;  // 80 mm

// Wide enough for everything that drivers are known to send; a number beyond it is a mistake.
constexpr std::array<SettingRow, kSettings> kRows = {{
    {Setting::PaperWidth, "paper-width", 128, kWidestPaper, kWidestPaper},
    {Setting::GapType, "gap-type", 0, 9, 0},
    {Setting::Direction, "direction", 0, 1, 0},
    {Setting::TextWrapMode, "text-wrap-mode", 0, 1, 1},
    {Setting::LeftMargin, "left-margin", 0, kWidestPaper, 0},
    {Setting::RightMargin, "right-margin", 0, kWidestPaper, 0},
    {Setting::AutoPrint, "auto-print", 0, 1, 0},
    {Setting::PaperOffset, "paper-offset", -1000, 1000, 0},
    {Setting::Contrast, "contrast", 0, 100, 50},
    {Setting::PrintSpeed, "print-speed", 1, 300, 100},
    {Setting::Rollback, "rollback", 0, 1, 0},
    {Setting::TakePaperSensor, "take-paper-sensor", 0, 1, 0},
}};

}  // namespace

const std::array<SettingRow, kSettings>& printerSettings() { return kRows; }

PrinterSettings::PrinterSettings() {
  for (const SettingRow& row : kRows) values_[static_cast<std::size_t>(row.setting)] = row.initial;
}

bool PrinterSettings::set(Setting setting, int value) {
  const auto index = static_cast<std::size_t>(setting);
  if (value < kRows[index].smallest || value > kRows[index].largest) return false;
  values_[index] = value;
  return true;
}

}  // namespace tolvex::sim

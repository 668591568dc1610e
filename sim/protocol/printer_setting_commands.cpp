// The commands that set the printers up: each is one row, and one handler serves them all.
#include <algorithm>
#include <iterator>

#include "protocol/printer_commands.h"

namespace tolvex::sim {

namespace {

struct Row {
  std::string_view command;
  std::string_view printer;  // the member that names it
  std::string_view value;    // the member with the new value
  Setting setting;
};

constexpr Row kRows[] = {
    {"setpaperwidth", kPrinterType, "width", Setting::PaperWidth},
    {"setGapType", kPrinterType, "gapType", Setting::GapType},
    {"setdirection", kPrinterType, "direction", Setting::Direction},
    {"setTextWrapMode", kPrinterType, "WrapMode", Setting::TextWrapMode},
    {"setLeftMargin", kPrinterName, "leftMargin", Setting::LeftMargin},
    {"setRightMargin", kPrinterName, "rightMargin", Setting::RightMargin},
    {"setPrtAutoPrint", kPrinterName, "enable", Setting::AutoPrint},
    {"setPaperOffset", kPrinterName, "offset", Setting::PaperOffset},
    {"setcontrast", kPrinterName, "contrast", Setting::Contrast},
    {"setprintspeed", kPrinterName, "speed", Setting::PrintSpeed},
    {"setRollback", kPrinterName, "enable", Setting::Rollback},
    {"settakepapersensor", kPrinterName, "enable", Setting::TakePaperSensor},
};

Reply set(const CommandContext& context) {
  const std::string& command = context.request.text("cmd");
  const Row& row = *std::find_if(std::begin(kRows), std::end(kRows),
                                 [&](const Row& r) { return r.command == command; });
  const FoundPrinter found = findPrinter(context, row.printer);
  if (found.code != ResultCode::Ok) return found.code;
  const auto value = parseInteger(context.request.text(row.value));
  return value ? found.printer->set(row.setting, *value) : ResultCode::InvalidParam;
}

CommandTable makeSettingTable() {
  CommandTable table;
  for (const Row& row : kRows) table.push_back({row.command, {row.printer, row.value}, set});
  return table;
}

}  // namespace

const CommandTable& printerSettingCommands() {
  static const CommandTable table = makeSettingTable();
  return table;
}

}  // namespace tolvex::sim

// What can be wrong with a printer.
#pragma once

#include <array>
#include <cstddef>

#include "base/result_code.h"

namespace tolvex::sim {

enum class PrinterFault { Unplugged, Abnormal, IllegalHead, OutOfPaper, HeadHot, Busy };

constexpr std::size_t kPrinterFaults = 6;

struct PrinterFaultRow {
  PrinterFault fault;
  /// What operators call it, for example "out-of-paper". The text is static.
  const char* name;
  /// What a printer with this fault answers.
  ResultCode code;
};

/// All faults, gravest first: of several, a printer reports the one that stays longest unless
/// somebody comes and does something. The table is static.
const std::array<PrinterFaultRow, kPrinterFaults>& printerFaults();

}  // namespace tolvex::sim

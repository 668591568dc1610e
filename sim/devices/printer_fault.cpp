#include "devices/printer_fault.h"

namespace tolvex::sim {

const std::array<PrinterFaultRow, kPrinterFaults>& printerFaults() {
  static constexpr std::array<PrinterFaultRow, kPrinterFaults> kRows = {{
      {PrinterFault::Unplugged, "unplugged", ResultCode::PrinterNotFound},
      {PrinterFault::Abnormal, "abnormal", ResultCode::PrtStatusAbnormal},
      {PrinterFault::IllegalHead, "illegal-head", ResultCode::IllegalPrintHead},
      {PrinterFault::OutOfPaper, "out-of-paper", ResultCode::OutOfPaper},
      {PrinterFault::HeadHot, "hot", ResultCode::PrintHeadIsHot},
      {PrinterFault::Busy, "busy", ResultCode::PrinterIsBusy},
  }};
  return kRows;
}

}  // namespace tolvex::sim

#include "torture/scarce/export_calls.h"

#include <stdexcept>

#include "api/exports.h"

namespace tolvex::test {
namespace {

#define TOLVEX_CALL(name, answers, queues, ...)                            \
  {#name, Answers::answers, queues,                                        \
   [](const LoadedLibrary& library, [[maybe_unused]] CallBuffer& buffer) { \
     return library.find<decltype(&::name)>(#name)(__VA_ARGS__);           \
   }},
// One under its two names.
#define TOLVEX_TWINS(name, answers, queues, ...)  \
  TOLVEX_CALL(name, answers, queues, __VA_ARGS__) \
  TOLVEX_CALL(name##_stdcall, answers, queues, __VA_ARGS__)
#define TOLVEX_CONSTANT(name) TOLVEX_TWINS(name, kConstant, false, )

constexpr char kPrinter[] = "ticket printer";

const char* text() { return callTexts().longText.c_str(); }
// Short enough for a line once it is UTF-8.
const char* line() { return text() + callTexts().longText.size() - 1000; }
const char* image() { return callTexts().image.c_str(); }

}  // namespace

CallTexts& callTexts() {
  static CallTexts texts;
  return texts;
}

const std::vector<ExportCall>& exportCalls() {
  static const std::vector<ExportCall> calls = {
      // clang-format off
      // Weighing
      TOLVEX_TWINS(read_baseinfo, kVerdict, false, buffer.data())
      TOLVEX_TWINS(read_standard, kVerdict, false, buffer.data())
      TOLVEX_TWINS(send_zero, kVerdict, false, )
      TOLVEX_TWINS(set_tare_bykey, kVerdict, false, buffer.data())
      TOLVEX_TWINS(send_tare, kVerdict, false, buffer.data())
      TOLVEX_TWINS(send_pre_tare, kVerdict, false, buffer.data())
      TOLVEX_TWINS(clear_tare, kVerdict, false, buffer.data())
      TOLVEX_CALL(getLCVersion, kCode, false, buffer.data(), buffer.size())
      TOLVEX_CALL(setOverloadAlarm, kCode, false, 1)
      TOLVEX_CALL(setHighResWeightMode, kCode, false, 0)
      TOLVEX_CALL(getHighResWeightMode, kCode, false, )
      TOLVEX_CALL(sendRawCmdToLC, kCode, false, "anything", text(), buffer.data(), buffer.size(), 40000)
      // The print job
      TOLVEX_TWINS(PrintText, kVerdict, true, line(), 24)
      TOLVEX_TWINS(PrintTextByPaperWidth, kVerdict, true, text(), 24, 72)
      TOLVEX_TWINS(PrintBitmapFile, kVerdict, true, image(), 90)
      TOLVEX_CALL(PrintBitmapFileWithAlign, kVerdict, true, image(), 90, 0)
      TOLVEX_TWINS(BeginPrint, kVerdict, false, 8)
      // Past the queue
      TOLVEX_CALL(printTextById, kCode, false, "1.500 kg", 24, 1)
      TOLVEX_CALL(printTextByPaperWidthById, kCode, false, text(), 24, 72, 1)
      TOLVEX_CALL(printBitmapFileById, kCode, false, image(), 90, 1)
      TOLVEX_CALL(sendRawCmdToPrt, kCode, false, kPrinter, "anything", 7, text(), buffer.data(), buffer.size(), 40000)
      // Paper
      TOLVEX_TWINS(printBlanks, kVerdict, false, 20)
      TOLVEX_TWINS(feedPaper, kVerdict, false, )
      TOLVEX_CALL(feedPaperById, kVerdict, false, 1)
      TOLVEX_TWINS(cutPaper, kVerdict, false, )
      TOLVEX_CALL(cutPaperById, kCode, false, 1)
      TOLVEX_CALL(calibrateLabel, kVerdict, false, 0)
      TOLVEX_CALL(testPaper, kCode, false, 1)
      // Settings
      TOLVEX_CALL(setDefaultPaperWidth, kCode, false, 72, 1)
      TOLVEX_TWINS(SetDefaultPaperWidth, kCode, false, 72)
      TOLVEX_CALL(setGapType, kCode, false, 1, 0)
      TOLVEX_CALL(setPrinterDirection, kCode, false, 1, 1)
      TOLVEX_CALL(setTextWrapMode, kCode, false, 1, 1)
      TOLVEX_CALL(setLeftMargin, kCode, false, 3, kPrinter)
      TOLVEX_CALL(setRightMargin, kCode, false, 3, kPrinter)
      TOLVEX_CALL(setPaperOffset, kCode, false, 3, kPrinter)
      TOLVEX_CALL(setPrintContrast, kCode, false, 3, kPrinter)
      TOLVEX_CALL(setPrintSpeed, kCode, false, 3, kPrinter)
      TOLVEX_CALL(setPrtAutoPrint, kCode, false, 1, kPrinter)
      TOLVEX_CALL(setRollback, kCode, false, 1, kPrinter)
      TOLVEX_CALL(setTakeupPaperSensor, kVerdict, false, 1, kPrinter)
      // Information, the drawer, the configuration
      TOLVEX_TWINS(GetPrinterList, kVerdict, false, buffer.data(), buffer.size())
      TOLVEX_TWINS(GetPrinterStatus, kCode, false, 1)
      TOLVEX_CALL(getPrinterVersion, kVerdict, false, buffer.data(), buffer.size(), kPrinter)
      TOLVEX_TWINS(OpenCashDrawerEx, kVerdict, false, )
      TOLVEX_CALL(checkConnection, kConnection, false, )
      TOLVEX_CALL(getLastErrCode, kCode, false, )
      TOLVEX_CALL(getLogLevel, kCode, false, "print", buffer.data(), buffer.size())
      TOLVEX_CALL(setLogLevel, kCode, false, "loadcell", "3")
      TOLVEX_TWINS(SetServerIpForRemoteAccess, kVerdict, false, callTexts().address.c_str())
      // Without a device
      TOLVEX_CONSTANT(ClosePrinterEx)
      TOLVEX_CONSTANT(DisplayUpdate)
      TOLVEX_CONSTANT(OpenDisplay)
      TOLVEX_CONSTANT(OpenPrinter)
      TOLVEX_CONSTANT(SetDataRows)
      TOLVEX_CONSTANT(SetHeaderReserveRows)
      TOLVEX_CONSTANT(SetInvoiceParameter)
      TOLVEX_CONSTANT(SetPrintContrast)
      TOLVEX_CONSTANT(SetPrintOffset)
      TOLVEX_CONSTANT(SetPrintSpeed)
      TOLVEX_CONSTANT(SetRealPrintHeaderWidth)
      TOLVEX_CONSTANT(SetScaleType)
      TOLVEX_CONSTANT(SetTakeLabelSensor)
      TOLVEX_CONSTANT(SetTakeupMotorDirection)
      TOLVEX_CONSTANT(SetUSBPrinterDirection)
      TOLVEX_CONSTANT(SetUnitPrice)
      TOLVEX_CONSTANT(ShowBalance)
      TOLVEX_CONSTANT(ShowDisplayText)
      TOLVEX_CONSTANT(ShowOrHideForm)
      TOLVEX_CONSTANT(ShowProduct)
      TOLVEX_CONSTANT(switch_resolution)
      TOLVEX_CONSTANT(PrintLabelImage)
      TOLVEX_CONSTANT(Version)
      TOLVEX_CONSTANT(DisplayText)
      TOLVEX_CONSTANT(IncreaseResolution)
      TOLVEX_CONSTANT(SetClientName)
      // clang-format on
  };
  return calls;
}

const ExportCall& exportCall(const std::string& name) {
  for (const ExportCall& call : exportCalls()) {
    if (name == call.name) return call;
  }
  throw std::runtime_error("there is no export " + name);
}

}  // namespace tolvex::test

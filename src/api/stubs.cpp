// The exports without a device. They touch no state; arguments that an application passes lie where
// nobody looks.
#include "api/exports.h"

// One stub under its two names.
#define TOLVEX_STUB(name, verdict)   \
  int name(void) { return verdict; } \
  int name##_stdcall(void) { return verdict; }

TOLVEX_STUB(ClosePrinterEx, TOLVEX_OK)
TOLVEX_STUB(DisplayUpdate, TOLVEX_OK)
TOLVEX_STUB(OpenDisplay, TOLVEX_OK)
TOLVEX_STUB(OpenPrinter, TOLVEX_OK)
TOLVEX_STUB(SetDataRows, TOLVEX_OK)
TOLVEX_STUB(SetHeaderReserveRows, TOLVEX_OK)
TOLVEX_STUB(SetInvoiceParameter, TOLVEX_OK)
TOLVEX_STUB(SetPrintContrast, TOLVEX_OK)
TOLVEX_STUB(SetPrintOffset, TOLVEX_OK)
TOLVEX_STUB(SetPrintSpeed, TOLVEX_OK)
TOLVEX_STUB(SetRealPrintHeaderWidth, TOLVEX_OK)
TOLVEX_STUB(SetScaleType, TOLVEX_OK)
TOLVEX_STUB(SetTakeLabelSensor, TOLVEX_OK)
TOLVEX_STUB(SetTakeupMotorDirection, TOLVEX_OK)
TOLVEX_STUB(SetUSBPrinterDirection, TOLVEX_OK)
TOLVEX_STUB(SetUnitPrice, TOLVEX_OK)
TOLVEX_STUB(ShowBalance, TOLVEX_OK)
TOLVEX_STUB(ShowDisplayText, TOLVEX_OK)
TOLVEX_STUB(ShowOrHideForm, TOLVEX_OK)
TOLVEX_STUB(ShowProduct, TOLVEX_OK)
TOLVEX_STUB(switch_resolution, TOLVEX_OK)

TOLVEX_STUB(PrintLabelImage, TOLVEX_FAILED)

// No result was ever set by these; one that reads as success is the harmless choice.
TOLVEX_STUB(Version, TOLVEX_OK)
TOLVEX_STUB(DisplayText, TOLVEX_OK)
TOLVEX_STUB(IncreaseResolution, TOLVEX_OK)
TOLVEX_STUB(SetClientName, TOLVEX_OK)

// Closing a print job.
#include "api/call_frame.h"
#include "api/context.h"
#include "api/exports.h"
#include "printing/begin_print.h"

using namespace tolvex;

int BeginPrint(int jobType) {
  return guarded(kVerdictOfException, [&] { return runPrintJob(*libraryClient(), jobType); });
}

// Closing a print job.
#pragma once

#include <string>

namespace tolvex {

class VcoClientApi;

// The name of a job type in the log; the number itself where the table has none that fits.
std::string jobNameOf(int jobType);

// The printer that a job of this type goes to: 0 (labels), 1 (tickets, and whatever the table does
// not know) or 2 (the third one).
int printerTypeOf(int jobType);

// Sends what is queued and does what the job type asks for: confirms the job, feeds, cuts,
// calibrates, or nothing. Logs what came of it. Returns kExportOk or kExportFailed.
int runPrintJob(VcoClientApi& client, int jobType);

}  // namespace tolvex

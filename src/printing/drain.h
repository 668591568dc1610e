// Sending what was queued.
#pragma once

namespace tolvex {

class VcoClientApi;

// Sends one command for each queued record, in order, until one fails, and empties the queue
// whatever happens. Returns the code of the last command sent, "Unknown" when nothing was queued,
// and keeps it as the last error. Throws std::bad_alloc, with the queue emptied all the same.
unsigned drainPrintJob(VcoClientApi& client, int printerType);

}  // namespace tolvex

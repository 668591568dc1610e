// The one context of the process: the service's address, both connections, the command client.
#pragma once

namespace tolvex {

class VcoClientApi;

// The command client. The first call creates the whole context: the log, the address (from the INI
// file, unless one was chosen), both connections, which it opens, and the client. A connection that
// does not open is logged and makes nothing fail. Simultaneous first calls create one context.
// Throws std::bad_alloc when memory runs out on the way; a later call then tries again. Never null.
VcoClientApi* libraryClient();

// Takes a dotted IPv4 address as the service's, for a context that does not exist yet, and keeps
// the INI file from being read. Logs either outcome; returns whether the text is such an address.
// Null counts as no address.
bool chooseServerAddress(const char* address);

// Whether WeightInfo reads the high-resolution net weight.
bool highResolutionWeights();
void setHighResolutionWeights(bool on);

}  // namespace tolvex

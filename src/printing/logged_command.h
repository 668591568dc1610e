// The exports that log their entry and their outcome around one command, and nothing else.
#pragma once

#include "api/call_frame.h"
#include "api/context.h"
#include "service/result_codes.h"
#include "service/vco_client_api.h"

namespace tolvex {

// How such an export reads in the log. The wording differs from one to the next and is part of the
// log's format.
struct LoggedCommand {
  const char* name;
  bool showsClient;     // whether "[client]" stands before the name, on entry and on success
  const char* entry;    // "Enter" or "Entry"
  const char* failure;  // what stands before the code
  struct {
    unsigned entry, failure, success;
  } line;
};

// What follows "OK" in the line of success: a word, and text of at most so many bytes.
struct LogDetail {
  const char* before = "";
  const char* text = "";
  unsigned size = 0;
};

// None of these takes memory: a command that was carried out is not told as a failure because it
// could not be logged.
void logEntry(const LoggedCommand& command, const VcoClientApi& client);
void logFailure(const LoggedCommand& command, unsigned code);
void logSuccess(const LoggedCommand& command, const VcoClientApi& client, const LogDetail& detail);

// Runs such an export: command(client) returns the code, detail() what the success line ends with.
template <typename Send, typename Detail>
int loggedCommand(const LoggedCommand& command, Send&& send, Detail&& detail) {
  return guarded(kVerdictOfException, [&] {
    VcoClientApi* const client = libraryClient();
    logEntry(command, *client);
    const unsigned code = send(*client);
    if (code != result::kOk) {
      logFailure(command, code);
      return kExportFailed;
    }
    logSuccess(command, *client, detail());
    return kExportOk;
  });
}

template <typename Send>
int loggedCommand(const LoggedCommand& command, Send&& send) {
  return loggedCommand(command, send, [] { return LogDetail(); });
}

// The exports that answer with the command's code and log nothing.
template <typename Send>
int plainCommand(Send&& send) {
  return guarded(kCodeOfException, [&] { return static_cast<int>(send(*libraryClient())); });
}

}  // namespace tolvex

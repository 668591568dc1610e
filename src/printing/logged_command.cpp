#include "printing/logged_command.h"

#include <algorithm>
#include <climits>

#include "log/nlog.h"

namespace tolvex {
namespace {

// What a line begins with, in three pieces: "[", the client and "]", or nothing.
struct Head {
  Head(const LoggedCommand& command, const VcoClientApi& client) {
    if (!command.showsClient) return;
    open = "[";
    name = client.getClientName().c_str();
    close = "]";
  }
  const char* open = "";
  const char* name = "";
  const char* close = "";
};

}  // namespace

void logEntry(const LoggedCommand& command, const VcoClientApi& client) {
  const Head head(command, client);
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, command.line.entry, "%s%s%s[%s] %s",
            head.open, head.name, head.close, command.name, command.entry);
}

void logFailure(const LoggedCommand& command, unsigned code) {
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, command.line.failure, "[%s] %s%d",
            command.name, command.failure, static_cast<int>(code));
}

void logSuccess(const LoggedCommand& command, const VcoClientApi& client, const LogDetail& detail) {
  const Head head(command, client);
  const int most = static_cast<int>(std::min<unsigned>(detail.size, INT_MAX));
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, command.line.success,
            "%s%s%s[%s] OK%s%.*s", head.open, head.name, head.close, command.name, detail.before,
            most, detail.text);
}

}  // namespace tolvex

#include "printing/logged_command.h"

#include "log/nlog.h"

namespace tolvex {
namespace {

std::string head(const LoggedCommand& command, const VcoClientApi& client) {
  const std::string name = std::string("[") + command.name + "] ";
  return command.showsClient ? "[" + client.getClientName() + "]" + name : name;
}

}  // namespace

void logEntry(const LoggedCommand& command, const VcoClientApi& client) {
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, command.line.entry, "%s%s",
            head(command, client).c_str(), command.entry);
}

void logFailure(const LoggedCommand& command, unsigned code) {
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, command.line.failure, "[%s] %s%d",
            command.name, command.failure, static_cast<int>(code));
}

void logSuccess(const LoggedCommand& command, const VcoClientApi& client,
                const std::string& detail) {
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, command.line.success, "%sOK%s",
            head(command, client).c_str(), detail.c_str());
}

}  // namespace tolvex

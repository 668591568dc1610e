// The log level commands, which both halves of the service know under the same names.
#pragma once

#include <string_view>

#include "protocol/command.h"

namespace tolvex::sim {

/// Replies with the half's log level as "level". InvalidParam if "module" is not `module`, the
/// name that this half answers to.
Reply getLogLevel(const CommandContext& context, std::string_view module);

/// Sets the half's log level. InvalidParam for another module or a level that is not one digit
/// from 1 to 7.
Reply setLogLevel(const CommandContext& context, std::string_view module);

}  // namespace tolvex::sim

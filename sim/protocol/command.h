// What the command tables of the two halves are made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/clock.h"
#include "base/half.h"
#include "protocol/picture_loader.h"
#include "protocol/reply.h"
#include "protocol/request.h"

namespace tolvex::sim {

struct Devices;

/// What a command works on. The references outlive the call.
struct CommandContext {
  const Request& request;
  Devices& devices;
  /// Log level of the half that the request came to, "1" to "7".
  std::string& logLevel;
  const PictureLoader& loadPicture;
  TimePoint now;
};

/// One row of a command table.
struct Command {
  /// The value of "cmd", compared exactly.
  std::string_view name;
  /// Members that must be there before the handler is called.
  std::vector<std::string_view> required;
  Reply (*handle)(const CommandContext& context);
};

using CommandTable = std::vector<Command>;

/// The commands of the weighing port and of the printing port. The tables are static.
const CommandTable& weighingCommands();
const CommandTable& printingCommands();

/// The command with this name that the port of `half` has, null if it has none.
const Command* findCommand(Half half, std::string_view name);

}  // namespace tolvex::sim

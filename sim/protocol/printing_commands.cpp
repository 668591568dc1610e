// The commands of the printing port.
#include "devices/scale.h"
#include "protocol/command.h"
#include "protocol/log_level_commands.h"

namespace tolvex::sim {

namespace {

constexpr std::string_view kModule = "print";

// The alarm sounds at the scale, but its command has always travelled on the printing port.
Reply setOverloadAlarm(const CommandContext& context) {
  const std::string& enable = context.request.text("enable");
  if (enable != "0" && enable != "1") return ResultCode::InvalidParam;
  context.scale.setOverloadAlarm(enable == "1");
  return ResultCode::Ok;
}

Reply getLevel(const CommandContext& context) { return getLogLevel(context, kModule); }
Reply setLevel(const CommandContext& context) { return setLogLevel(context, kModule); }

}  // namespace

const CommandTable& printingCommands() {
  static const CommandTable table = {
      {"setOverloadAlarm", {"enable"}, setOverloadAlarm},
      {"getloglevel", {"module"}, getLevel},
      {"setloglevel", {"module", "level"}, setLevel},
  };
  return table;
}

}  // namespace tolvex::sim

#include "protocol/log_level_commands.h"

namespace tolvex::sim {

Reply getLogLevel(const CommandContext& context, std::string_view module) {
  if (context.request.text("module") != module) return ResultCode::InvalidParam;
  return Reply(ResultCode::Ok).add("level", context.logLevel);
}

Reply setLogLevel(const CommandContext& context, std::string_view module) {
  const std::string& level = context.request.text("level");
  const bool isLevel = level.size() == 1 && level[0] >= '1' && level[0] <= '7';
  if (context.request.text("module") != module || !isLevel) return ResultCode::InvalidParam;
  context.logLevel = level;
  return ResultCode::Ok;
}

}  // namespace tolvex::sim

// What the operator can do to the scale.
#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "console/console_command.h"

namespace tolvex::sim {

namespace {

constexpr int kFewestDecimals = 3;

// Loads are not shown with fewer decimals than weights, even if they end in zeros.
std::string loadText(Milligrams load) {
  const int needed = load == 0 ? 0 : decimalsOf(std::abs(load));
  return formatKilograms(load, std::max(kFewestDecimals, needed)) + " kg";
}

std::string putLoad(const ConsoleContext& context, Milligrams load) {
  context.devices.scale.setLoad(load, context.now);
  return "ok load " + loadText(load);
}

std::string load(const ConsoleContext& context, const ConsoleArguments& arguments) {
  const auto mass = parseKilograms(arguments[0]);
  if (!mass || std::abs(*mass) > Scale::kMaxLoad) {
    return "error: load needs a number of kilograms from -1000 to 1000, as in: load 0.482";
  }
  return putLoad(context, *mass);
}

std::string empty(const ConsoleContext& context, const ConsoleArguments&) {
  return putLoad(context, 0);
}

std::string invalid(const ConsoleContext& context, const ConsoleArguments& arguments) {
  const std::string& state = arguments[0];
  if (state != "on" && state != "off") {
    return "error: invalid needs on or off, as in: invalid on";
  }
  context.devices.scale.setInvalid(state == "on");
  return "ok invalid " + state;
}

std::string unplug(const ConsoleContext& context, const ConsoleArguments&) {
  context.devices.scale.unplug();
  return "ok unplugged";
}

std::string plug(const ConsoleContext& context, const ConsoleArguments&) {
  context.devices.scale.plug(context.now);
  return "ok plugged in";
}

const char* describe(TareKind kind) {
  switch (kind) {
    case TareKind::ByKey:
      return " by key";
    case TareKind::Preset:
      return " preset";
    case TareKind::None:
      break;
  }
  return "";
}

std::string status(const ConsoleContext& context, const ConsoleArguments&) {
  const Scale& scale = context.devices.scale;
  const Weight weight = scale.weigh(context.now);
  const int decimals = scale.config().decimals();
  std::ostringstream line;
  line << "ok gross " << formatKilograms(weight.gross, decimals)  //
       << ", net " << formatKilograms(weight.net, decimals)       //
       << ", tare " << formatKilograms(weight.tare, decimals) << describe(weight.tareKind)
       << (weight.stable ? ", stable" : ", moving")  //
       << (weight.zero ? ", at zero" : ", not at zero") << ", state " << toText(weight.result)
       << " " << message(weight.result);
  return line.str();
}

}  // namespace

const ConsoleTable& scaleConsoleCommands() {
  static const ConsoleTable table = {
      {"load", "KG", 1, 1, load},
      {"empty", "", 0, 0, empty},
      {"invalid", "on|off", 1, 1, invalid},
      {"unplug", "", 0, 0, unplug},
      {"plug", "", 0, 0, plug},
      {"status", "", 0, 0, status},
  };
  return table;
}

}  // namespace tolvex::sim

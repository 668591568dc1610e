// What the operator can do to the scale.
#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "base/decimal.h"
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

std::string settling(const ConsoleContext& context, const ConsoleArguments& arguments) {
  constexpr double kLongest = 60;
  const auto seconds = parseDecimal(arguments[0]);
  if (!seconds || *seconds < 0 || *seconds > kLongest) {
    return "error: settling needs a number of seconds from 0 to 60, as in: settling 2.5";
  }
  context.devices.scale.setSettling(Seconds(*seconds), context.now);
  return "ok settling " + arguments[0] + " s";
}

std::string noise(const ConsoleContext& context, const ConsoleArguments& arguments) {
  const auto mass = parseKilograms(arguments[0]);
  if (!mass || *mass < 0 || *mass > Scale::kMaxNoise) {
    return "error: noise needs a number of kilograms from 0 to 1, as in: noise 0.002";
  }
  context.devices.scale.setNoise(*mass);
  return "ok noise " + loadText(*mass);
}

std::string unstable(const ConsoleContext& context, const ConsoleArguments& arguments) {
  const std::string& state = arguments[0];
  if (state != "on" && state != "off") {
    return "error: unstable needs on or off, as in: unstable on";
  }
  context.devices.scale.setUnstable(state == "on");
  return "ok unstable " + state;
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

// What to do about a key that refuses, for the codes that do not depend on the key.
std::string advice(ResultCode code) {
  switch (code) {
    case ResultCode::WeightNotStable:
      return "; wait until status tells that it is stable";
    case ResultCode::UnderLoad:
      return "; put a load on the scale, as in: load 0.482";
    case ResultCode::OverLoad:
      return "; take load off the scale, as in: empty";
    case ResultCode::InvalidWeight:
      return "; mend the scale with: invalid off";
    case ResultCode::LcNotConnected:
      return "; connect the scale with: plug";
    default:
      return "";
  }
}

std::string refused(const char* key, ResultCode code, const std::string& limit) {
  return std::string("error: ") + key + " is refused, " + toText(code) + " " + message(code) +
         (code == ResultCode::CommandReturnFail ? "; " + limit : advice(code));
}

std::string tareText(const Scale& scale, TimePoint now) {
  const Weight weight = scale.weigh(now);
  return "ok tare " + formatKilograms(weight.tare, scale.config().decimals()) + " kg" +
         describe(weight.tareKind);
}

std::string zero(const ConsoleContext& context, const ConsoleArguments&) {
  const ResultCode code = context.devices.scale.setZero(context.now);
  if (code == ResultCode::Ok) return "ok zero";
  return refused("zero", code, "the load must lie within 2 % of the capacity, as in: load 0.1");
}

std::string tareByKey(const ConsoleContext& context) {
  Scale& scale = context.devices.scale;
  const ResultCode code = scale.tareByKey(context.now);
  if (code == ResultCode::Ok) return tareText(scale, context.now);
  return refused("tare", code, "it takes up to " + loadText(scale.config().maxTare));
}

// By key what lies on the scale, or as a number.
std::string tare(const ConsoleContext& context, const ConsoleArguments& arguments) {
  if (arguments.empty()) return tareByKey(context);
  Scale& scale = context.devices.scale;
  const auto mass = parseKilograms(arguments[0]);
  const ResultCode code = mass ? scale.presetTare(*mass) : ResultCode::InvalidParam;
  if (code == ResultCode::Ok) return tareText(scale, context.now);
  if (code != ResultCode::InvalidParam) return refused("tare", code, "");
  return "error: tare needs a number of kilograms from 0 to " +
         formatKilograms(scale.config().maxPreTare) + ", as in: tare 0.12";
}

std::string clearTare(const ConsoleContext& context, const ConsoleArguments&) {
  const ResultCode code = context.devices.scale.clearTare();
  return code == ResultCode::Ok ? tareText(context.devices.scale, context.now)
                                : refused("clear-tare", code, "");
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
  if (scale.noise() > 0) line << ", noise " << loadText(scale.noise());
  if (scale.isUnstable()) line << ", made unstable";
  return line.str();
}

}  // namespace

const ConsoleTable& scaleConsoleCommands() {
  static const ConsoleTable table = {
      {"load", "KG", 1, 1, load},
      {"empty", "", 0, 0, empty},
      {"invalid", "on|off", 1, 1, invalid},
      {"unstable", "on|off", 1, 1, unstable},
      {"noise", "KG", 1, 1, noise},
      {"settling", "SECONDS", 1, 1, settling},
      {"unplug", "", 0, 0, unplug},
      {"plug", "", 0, 0, plug},
      {"zero", "", 0, 0, zero},
      {"tare", "[KG]", 0, 1, tare},
      {"clear-tare", "", 0, 0, clearTare},
      {"status", "", 0, 0, status},
  };
  return table;
}

}  // namespace tolvex::sim

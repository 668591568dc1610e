// The commands of the weighing port.
#include <cstddef>
#include <string>

#include "base/version.h"
#include "devices/devices.h"
#include "protocol/command.h"
#include "protocol/log_level_commands.h"

namespace tolvex::sim {

namespace {

constexpr std::string_view kScaleModule = "loadcell";
// Clients of another major version use other commands and are turned away.
constexpr std::string_view kClientMajorVersion = "3";

std::string_view majorVersion(std::string_view version) {
  return version.substr(0, version.find('.'));
}

// Replies always describe three ranges; a scale with fewer has "0" in the others.
void addPerRange(Reply& reply, const ScaleConfig& config, const std::string& name,
                 Milligrams WeighingRange::*value) {
  for (std::size_t i = 0; i < 3; ++i) {
    const Milligrams mass = i < config.ranges.size() ? config.ranges[i].*value : 0;
    reply.add(name + std::to_string(i + 1), formatKilograms(mass));
  }
}

Reply getBaseInfo(const CommandContext& context) {
  if (majorVersion(context.request.text("VcoVersion")) != kClientMajorVersion) {
    return ResultCode::VersionIncompatible;
  }
  if (context.devices.scale.condition() == ResultCode::LcNotConnected)
    return ResultCode::LcNotConnected;
  const ScaleConfig& config = context.devices.scale.config();
  Reply reply(ResultCode::Ok);
  addPerRange(reply, config, "maxRange", &WeighingRange::max);
  // The colon is part of the value: it separates the smallest load from the capacities.
  reply.add("minRange", ":" + formatKilograms(config.minRange));
  reply.add("maxTare", formatKilograms(config.maxTare));
  reply.add("maxPreTare", formatKilograms(config.maxPreTare));
  addPerRange(reply, config, "resolution", &WeighingRange::division);
  reply.add("weightUnit", config.unit);
  reply.add("systemVersion", config.systemVersion);
  return reply;
}

const char* tareType(TareKind kind) {
  switch (kind) {
    case TareKind::ByKey:
      return "T";
    case TareKind::Preset:
      return "PT";
    case TareKind::None:
      break;
  }
  return "N";
}

// A weight that is still moving is sent along with its code; of the other states there is none.
Reply getWeight(const CommandContext& context) {
  const Weight weight = context.devices.scale.weigh(context.now);
  Reply reply(weight.result);
  if (weight.result != ResultCode::Ok && weight.result != ResultCode::WeightNotStable) return reply;
  const int decimals = context.devices.scale.config().decimals();
  return reply.add("net", formatKilograms(weight.net, decimals))
      .add("tare", formatKilograms(weight.tare, decimals))
      .add("zero", weight.zero ? "1" : "0")
      .add("tareType", tareType(weight.tareKind))
      .add("highResNet", formatKilograms(weight.highResNet, decimals + 1))
      .add("weightUnit", context.devices.scale.config().unit);
}

Reply setZero(const CommandContext& context) { return context.devices.scale.setZero(context.now); }

// The tare commands confirm the tare that is now in force.
Reply tareReply(ResultCode code, const Scale& scale) {
  if (code != ResultCode::Ok) return code;
  return Reply(code).add("tare", formatKilograms(scale.tare(), scale.config().decimals()));
}

Reply setPreTare(const CommandContext& context) {
  const std::string& text = context.request.text("tareValue");
  const auto tare = parseKilograms(text);
  // "-0" is refused with the other negative numbers.
  if (!tare || text.front() == '-') return ResultCode::InvalidParam;
  return tareReply(context.devices.scale.presetTare(*tare), context.devices.scale);
}

Reply setTareByKey(const CommandContext& context) {
  return tareReply(context.devices.scale.tareByKey(context.now), context.devices.scale);
}

Reply clearTare(const CommandContext& context) {
  return tareReply(context.devices.scale.clearTare(), context.devices.scale);
}

Reply getVersion(const CommandContext&) { return Reply(ResultCode::Ok).add("version", version()); }

// Says whether the service reaches the scale; a fault of the scale itself is no matter here.
Reply checkConnection(const CommandContext& context) {
  return context.devices.scale.isPluggedIn() ? ResultCode::Ok : ResultCode::LcNotConnected;
}

Reply getScaleLevel(const CommandContext& context) { return getLogLevel(context, kScaleModule); }
Reply setScaleLevel(const CommandContext& context) { return setLogLevel(context, kScaleModule); }

}  // namespace

const CommandTable& weighingCommands() {
  static const CommandTable table = {
      {"getbaseinfo", {"VcoVersion"}, getBaseInfo},
      {"getweight", {}, getWeight},
      {"setzero", {}, setZero},
      {"setpretare", {"tareValue"}, setPreTare},
      {"settarebykey", {}, setTareByKey},
      {"clear_tare", {}, clearTare},
      {"getLCVersion", {}, getVersion},
      {"checkConnection", {}, checkConnection},
      {"getloglevel", {"module"}, getScaleLevel},
      {"setloglevel", {"module", "level"}, setScaleLevel},
  };
  return table;
}

}  // namespace tolvex::sim

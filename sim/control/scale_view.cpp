// The scale and the drawer as JSON.
#include <nlohmann/json.hpp>

#include "control/views.h"

namespace tolvex::sim {

namespace {

double kilogramsOf(Milligrams mass) {
  return static_cast<double>(mass) / static_cast<double>(kMilligramsPerKilogram);
}

Json kilogramsShown(Milligrams mass) { return plainNumber(kilogramsOf(mass)); }

const char* stateOf(ResultCode result) {
  switch (result) {
    case ResultCode::Ok:
      return "stable";
    case ResultCode::WeightNotStable:
      return "moving";
    case ResultCode::OverLoad:
      return "over load";
    case ResultCode::UnderLoad:
      return "under load";
    case ResultCode::LcNotConnected:
      return "disconnected";
    default:
      return "invalid";
  }
}

// What stands in the window of the scale.
std::string displayOf(const Weight& weight, int decimals) {
  switch (weight.result) {
    case ResultCode::Ok:
    case ResultCode::WeightNotStable:
      return formatKilograms(weight.net, decimals);
    case ResultCode::OverLoad:
    case ResultCode::UnderLoad:
      return "------";
    case ResultCode::LcNotConnected:
      return "";
    default:
      return "Err";
  }
}

const char* tareKindOf(TareKind kind) {
  switch (kind) {
    case TareKind::ByKey:
      return "key";
    case TareKind::Preset:
      return "preset";
    case TareKind::None:
      break;
  }
  return "none";
}

Json readingView(const Weight& weight, int decimals) {
  return {{"result", static_cast<int>(weight.result)},
          {"text", message(weight.result)},
          {"state", stateOf(weight.result)},
          {"gross_kg", formatKilograms(weight.gross, decimals)},
          {"net_kg", formatKilograms(weight.net, decimals)},
          {"tare_kg", formatKilograms(weight.tare, decimals)},
          {"tare_kind", tareKindOf(weight.tareKind)},
          {"stable", weight.stable},
          {"zero", weight.zero},
          {"display", displayOf(weight, decimals)}};
}

Json rangesView(const ScaleConfig& config) {
  Json ranges = Json::array();
  for (const WeighingRange& range : config.ranges) {
    ranges.push_back(
        {{"max_kg", kilogramsShown(range.max)}, {"division_kg", kilogramsShown(range.division)}});
  }
  return ranges;
}

}  // namespace

Json scaleView(const Scale& scale, TimePoint now) {
  const ScaleConfig& config = scale.config();
  return {{"load_kg", kilogramsShown(scale.load())},
          {"connected", scale.isPluggedIn()},
          {"invalid", scale.isInvalid()},
          {"unstable", scale.isUnstable()},
          {"settling_s", plainNumber(scale.settling().count())},
          {"noise_kg", kilogramsShown(scale.noise())},
          {"overload_alarm", scale.overloadAlarm()},
          {"reading", readingView(scale.weigh(now), config.decimals())},
          {"unit", config.unit},
          {"ranges", rangesView(config)},
          {"min_kg", kilogramsShown(config.minRange)},
          {"max_tare_kg", kilogramsShown(config.maxTare)},
          {"max_preset_tare_kg", kilogramsShown(config.maxPreTare)}};
}

Json drawerView(const CashDrawer& drawer) {
  return {{"open", drawer.isOpen()}, {"openings", drawer.openings()}};
}

}  // namespace tolvex::sim

// What can be set of the scale and the drawer.
#include "control/members.h"

namespace tolvex::sim {

namespace {

struct ScaleNow {
  Scale* scale;
  TimePoint now;
};

Milligrams massOf(const Json& kg) { return kilograms(kg.get<double>()); }

void setConnected(ScaleNow& target, const Json& value) {
  if (value.get<bool>()) {
    target.scale->plug(target.now);
  } else {
    target.scale->unplug();
  }
}

void setInvalid(ScaleNow& target, const Json& value) {
  target.scale->setInvalid(value.get<bool>());
}

void setSettling(ScaleNow& target, const Json& value) {
  target.scale->setSettling(Seconds(value.get<double>()), target.now);
}

void setNoise(ScaleNow& target, const Json& value) { target.scale->setNoise(massOf(value)); }

void setUnstable(ScaleNow& target, const Json& value) {
  target.scale->setUnstable(value.get<bool>());
}

void setLoad(ScaleNow& target, const Json& value) {
  target.scale->setLoad(massOf(value), target.now);
}

double inKilograms(Milligrams mass) {
  return static_cast<double>(mass) / static_cast<double>(kMilligramsPerKilogram);
}

// The load comes last, so that it settles as the others say.
const std::vector<Member<ScaleNow>>& scaleMembers() {
  constexpr double kLongestSettling = 60;
  constexpr double kMostNoise = 1;
  static const double most = inKilograms(Scale::kMaxLoad);
  static const std::vector<Member<ScaleNow>> table = {
      {{"connected", FieldType::Flag, "true"}, setConnected},
      {{"invalid", FieldType::Flag, "false"}, setInvalid},
      {{"settling_s", FieldType::Number, "0.5", 0, kLongestSettling}, setSettling},
      {{"noise_kg", FieldType::Number, "0.001", 0, kMostNoise}, setNoise},
      {{"unstable", FieldType::Flag, "false"}, setUnstable},
      {{"load_kg", FieldType::Number, "0.482", -most, most}, setLoad},
  };
  return table;
}

void setOpen(CashDrawer*& drawer, const Json& value) {
  if (value.get<bool>()) {
    drawer->open();
  } else {
    drawer->close();
  }
}

const std::vector<Member<CashDrawer*>>& drawerMembers() {
  static const std::vector<Member<CashDrawer*>> table = {
      {{"open", FieldType::Flag, "false"}, setOpen},
  };
  return table;
}

}  // namespace

void planScale(Scale& scale, const Json& patch, TimePoint now, Plan& plan) {
  planMembers(scaleMembers(), "a scale", ScaleNow{&scale, now}, patch, plan);
}

void planDrawer(CashDrawer& drawer, const Json& patch, Plan& plan) {
  planMembers(drawerMembers(), "a drawer", &drawer, patch, plan);
}

}  // namespace tolvex::sim

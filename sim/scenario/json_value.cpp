#include "scenario/json_value.h"

#include <algorithm>
#include <cmath>

#include "base/json_pointer.h"
#include "base/list.h"
#include "base/printable.h"
#include "control/control_error.h"
#include "control/json.h"
#include "scenario/refusal.h"

namespace tolvex::sim {

namespace {

using nlohmann::json;

constexpr std::size_t kMaxShownBytes = 80;
constexpr int kMaxValues = 100'000;
constexpr int kMaxLevels = 64;

// A number as people write it: without the digits that a double has beyond them.
std::string shown(double number) { return json(number).dump(); }

std::string shown(const json& value) {
  const auto text = value.dump(-1, ' ', false, json::error_handler_t::replace);
  return printable(text, kMaxShownBytes);
}

// Text in one line, however wild a name is.
std::string placeOf(std::string_view member) {
  return printable(pointerTo(member), kMaxShownBytes);
}

}  // namespace

std::optional<JsonValue> JsonValue::find(std::string_view member) const {
  if (!isObject()) return std::nullopt;
  const auto found = json().find(member);
  if (found == json().end()) return std::nullopt;
  return JsonValue(*found, place_ + placeOf(member));
}

void JsonValue::requireObject() const {
  if (!isObject()) refuse(shown(json()) + " is no object", "Write an object: {...}.");
}

void JsonValue::allow(std::initializer_list<std::string_view> members) const {
  forEachMember([&](const std::string& name, const JsonValue& value) {
    if (std::find(members.begin(), members.end(), name) != members.end()) return;
    std::string list;
    for (const std::string_view member : members) addToList(list, member);
    value.refuse("there is no such member", "Members are: " + list + ".");
  });
}

void JsonValue::forEachMember(
    const std::function<void(const std::string& name, JsonValue)>& use) const {
  requireObject();
  for (const auto& [name, value] : json().items()) {
    use(name, JsonValue(value, place_ + placeOf(name)));
  }
}

void JsonValue::forEachElement(const std::function<void(JsonValue)>& use) const {
  if (!isArray()) refuse(shown(json()) + " is no list", "Write a list: [...].");
  std::size_t index = 0;
  for (const auto& value : json()) {
    use(JsonValue(value, place_ + "/" + std::to_string(index++)));
  }
}

std::string JsonValue::text() const {
  if (!json().is_string()) refuse(shown(json()) + " is no text", "Write it in quotation marks.");
  return json().get<std::string>();
}

long long JsonValue::integer(long long least, long long most) const {
  const bool isWhole = json().is_number_integer();
  const bool fits =
      isWhole && (json().is_number_unsigned() ? json().get<std::uint64_t>() <=
                                                    static_cast<std::uint64_t>(std::max(most, 0LL))
                                              : json().get<std::int64_t>() <= most);
  if (!fits || json().get<std::int64_t>() < least) {
    refuse(
        shown(json()) + " is not allowed here",
        "Write a whole number from " + std::to_string(least) + " to " + std::to_string(most) + ".");
  }
  return json().get<std::int64_t>();
}

double JsonValue::number(double least, double most) const {
  const double value = json().is_number() ? json().get<double>() : std::nan("");
  if (!(value >= least && value <= most)) {
    refuse(shown(json()) + " is not allowed here",
           "Write a number from " + shown(least) + " to " + shown(most) + ".");
  }
  return value;
}

void JsonValue::refuse(const std::string& what, const std::string& remedy) const {
  throw Refusal(place_, what, remedy);
}

json readJson(std::string_view text) {
  try {
    return json(readWithin({kMaxValues, kMaxLevels}, text));
  } catch (const ControlError& error) {
    throw Refusal(error.place(), error.what(), error.remedy());
  } catch (const json::parse_error& error) {
    std::string reason = error.what();
    const auto detail = reason.find(": ", reason.find("parse error at "));
    if (detail != std::string::npos) reason = reason.substr(detail + 2);
    throw Refusal(positionIn(text, error.byte), "this is no JSON (" + printable(reason, 300) + ")",
                  "Mend it there or just before.");
  }
}

}  // namespace tolvex::sim

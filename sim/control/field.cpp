#include "control/field.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "base/decimal.h"
#include "base/list.h"
#include "control/control_error.h"

namespace tolvex::sim {

namespace {

std::string listOf(const std::vector<std::string>& words) {
  std::string list;
  for (const std::string& word : words) addToList(list, word);
  return list;
}

std::string number(double value) { return textOf(plainNumber(value)); }

std::string range(const Field& field) {
  return "from " + number(field.least) + " to " + number(field.most);
}

// What a good value is, in the words of an error message.
std::string demand(const Field& field) {
  const std::string orNull = field.nullable ? ", or null" : "";
  switch (field.type) {
    case FieldType::Flag:
      return "true or false" + orNull;
    case FieldType::Number:
      return "a number " + range(field) + orNull;
    case FieldType::Whole:
      return "a whole number " + range(field) + orNull;
    case FieldType::Choice:
      return "one of " + listOf(field.choices) + orNull;
    case FieldType::Text:
      break;
  }
  return "a text of " + number(field.least) + " to " + number(field.most) + " bytes" + orNull;
}

bool isWithin(const Field& field, double value) {
  return value >= field.least && value <= field.most;
}

bool isGood(const Field& field, const Json& value) {
  if (value.is_null()) return field.nullable;
  switch (field.type) {
    case FieldType::Flag:
      return value.is_boolean();
    case FieldType::Number:
      return value.is_number() && isWithin(field, value.get<double>());
    case FieldType::Whole:
      return value.is_number() && isWithin(field, value.get<double>()) &&
             std::trunc(value.get<double>()) == value.get<double>();
    case FieldType::Choice:
      return value.is_string() &&
             std::count(field.choices.begin(), field.choices.end(), value.get<std::string>()) > 0;
    case FieldType::Text:
      break;
  }
  return value.is_string() &&
         isWithin(field, static_cast<double>(value.get_ref<const std::string&>().size()));
}

ControlError refusal(const Field& field, const std::string& value, const std::string& example) {
  return badRequest(field.name + " is " + value + ", but it has to be " + demand(field),
                    "Send " + demand(field) + ", as in " + example + ".");
}

bool isNumeric(FieldType type) { return type == FieldType::Number || type == FieldType::Whole; }

}  // namespace

void check(const Field& field, const Json& value) {
  if (isGood(field, value)) return;
  throw refusal(field, shown(value), "{" + textOf(field.name) + ": " + field.example + "}")
      .in(field.name);
}

Json queryValue(const Field& field, const std::string& text) {
  Json value = text;
  if (isNumeric(field.type)) {
    if (const auto parsed = parseDecimal(text)) value = plainNumber(*parsed);
  }
  if (isGood(field, value)) return value;
  throw refusal(field, shown(value), "?" + field.name + "=" + field.example);
}

void checkObject(const Json& value, std::string_view what, const std::vector<std::string>& names) {
  const std::string remedy = "Send an object with any of " + listOf(names) + ".";
  if (!value.is_object()) {
    throw badRequest("there is " + shown(value) + " where " + std::string(what) + " has to be",
                     remedy);
  }
  for (const auto& [name, member] : value.items()) {
    if (std::count(names.begin(), names.end(), name) > 0) continue;
    throw badRequest(shown(name) + " is no member that can be set of " + std::string(what), remedy)
        .in(name);
  }
}

}  // namespace tolvex::sim

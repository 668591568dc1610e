#include "schema_check.h"

#include <algorithm>
#include <array>

namespace tolvex::sim {

namespace {

using nlohmann::json;

bool isOfType(const json& value, const std::string& type) {
  if (type == "null") return value.is_null();
  if (type == "boolean") return value.is_boolean();
  if (type == "string") return value.is_string();
  if (type == "integer") return value.is_number_integer();
  if (type == "number") return value.is_number();
  if (type == "array") return value.is_array();
  return type == "object" && value.is_object();
}

bool isOfTypes(const json& value, const json& types) {
  if (types.is_string()) return isOfType(value, types);
  return std::any_of(types.begin(), types.end(),
                     [&](const json& type) { return isOfType(value, type); });
}

std::string unknownWord(const json& schema) {
  const std::array<const char*, 13> known = {"$ref",        "additionalProperties",
                                             "description", "enum",
                                             "items",       "maximum",
                                             "minimum",     "oneOf",
                                             "minLength",   "maxLength",
                                             "properties",  "required",
                                             "type"};
  for (const auto& [word, value] : schema.items()) {
    if (std::count(known.begin(), known.end(), word) == 0) return word;
  }
  return "";
}

std::string objectProblem(const json& document, const json& schema, const json& value,
                          const std::string& place) {
  const json none = json::object();
  const json& properties = schema.contains("properties") ? schema.at("properties") : none;
  for (const auto& [name, member] : value.items()) {
    if (properties.contains(name)) {
      const std::string problem =
          schemaProblem(document, properties.at(name), member, place + "/" + name);
      if (!problem.empty()) return problem;
    } else if (!schema.value("additionalProperties", true)) {
      return place + "/" + name + " is not described";
    }
  }
  for (const json& name : schema.value("required", json::array())) {
    if (!value.contains(name.get<std::string>())) return place + " has no " + name.dump();
  }
  return "";
}

std::string boundsProblem(const json& schema, const json& value, const std::string& place) {
  const std::string wrong = place + " is " + value.dump();
  if (value.is_number()) {
    if (schema.contains("minimum") && value < schema.at("minimum")) return wrong;
    if (schema.contains("maximum") && value > schema.at("maximum")) return wrong;
  }
  if (schema.contains("enum")) {
    const json& all = schema.at("enum");
    if (std::find(all.begin(), all.end(), value) == all.end()) return wrong;
  }
  return "";
}

std::string choiceProblem(const json& document, const json& choices, const json& value,
                          const std::string& place) {
  const auto fitting = std::count_if(choices.begin(), choices.end(), [&](const json& choice) {
    return schemaProblem(document, choice, value, place).empty();
  });
  return fitting == 1 ? "" : place + " fits " + std::to_string(fitting) + " of its choices";
}

}  // namespace

const json& resolved(const json& document, const json& schema) {
  if (!schema.contains("$ref")) return schema;
  return document.at(json::json_pointer(schema.at("$ref").get<std::string>().substr(1)));
}

std::string schemaProblem(const json& document, const json& schema, const json& value,
                          const std::string& place) {
  if (schema.contains("$ref")) {
    return schemaProblem(document, resolved(document, schema), value, place);
  }
  if (const std::string word = unknownWord(schema); !word.empty()) {
    return place + " has a schema with " + word;
  }
  if (schema.contains("oneOf")) return choiceProblem(document, schema.at("oneOf"), value, place);
  if (schema.contains("type") && !isOfTypes(value, schema.at("type"))) {
    return place + " is " + value.dump();
  }
  if (std::string problem = boundsProblem(schema, value, place); !problem.empty()) return problem;
  if (value.is_object()) return objectProblem(document, schema, value, place);
  if (value.is_array() && schema.contains("items")) {
    for (std::size_t i = 0; i < value.size(); ++i) {
      std::string problem =
          schemaProblem(document, schema.at("items"), value.at(i), place + "/" + std::to_string(i));
      if (!problem.empty()) return problem;
    }
  }
  return "";
}

}  // namespace tolvex::sim

// Values against schemas, as far as openapi.json needs it.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace tolvex::sim {

/// What is wrong with `value`, with its place; empty if it is as the schema says. `document` is
/// what references point into. A word of JSON Schema that the check does not know is wrong, too.
std::string schemaProblem(const nlohmann::json& document, const nlohmann::json& schema,
                          const nlohmann::json& value, const std::string& place = "");

/// What a reference stands for; anything else stands for itself.
const nlohmann::json& resolved(const nlohmann::json& document, const nlohmann::json& schema);

}  // namespace tolvex::sim

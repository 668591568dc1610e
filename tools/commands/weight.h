// The records of the scale, in words and as JSON.
#pragma once

#include <exports.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "library/service.h"

namespace tolvex::ctl {

/// One reading of the scale.
struct Weight {
  double net = 0;
  double tare = 0;
  bool isStable = false;
  bool isAtZero = false;
  bool isTareActive = false;
};

/// The weight in a record of read_standard, nothing for the all-zero record of an invalid weight.
std::optional<Weight> weightIn(const tolvex_weight& record);

/// Reads the scale. Throws a Failure: under load (1003), over load (1004), no valid weight (1006),
/// and whatever else the service answers.
Weight readWeight(Service& service);

/// Reads the scale's base information. Throws a Failure when there is none.
tolvex_base_info readBaseInfo(Service& service);

/// The unit of weight in the base information, for example "kg".
std::string unitOf(const tolvex_base_info& info);

/// The members of the base information, all in its unit.
ordered_json toJson(const tolvex_base_info& info);
ordered_json toJson(const Weight& weight, const std::string& unit);

/// "net 1.5 kg, tare 0 kg, stable".
std::string toText(const Weight& weight, const std::string& unit);

/// A number without needless digits: "1.5".
std::string toText(double number);

}  // namespace tolvex::ctl

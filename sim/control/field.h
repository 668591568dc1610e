// What a member of a body or a parameter of a query may be.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "control/json.h"

namespace tolvex::sim {

enum class FieldType { Flag, Number, Whole, Choice, Text };

/// One member or parameter with its bounds.
struct Field {
  std::string name;
  FieldType type;
  /// A good value as JSON, for error messages ("0.482", "\"gap\"").
  std::string example;
  /// Bounds of a number; of a text those of its length in bytes.
  double least = 0;
  double most = 0;
  /// The values of a choice.
  std::vector<std::string> choices = {};
  /// Whether null stands for something.
  bool nullable = false;
};

/// Throws ControlError, with the field's place, unless `value` is one that the field may have.
void check(const Field& field, const Json& value);

/// The value of a field that came as the text of a query parameter, checked.
Json queryValue(const Field& field, const std::string& text);

/// Throws ControlError unless `value` is an object of which all members are among `names`. `what`
/// is what the object stands for, "a scale".
void checkObject(const Json& value, std::string_view what, const std::vector<std::string>& names);

}  // namespace tolvex::sim

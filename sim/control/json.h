// JSON as it comes in and goes out.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace tolvex::sim {

/// Members stay in the order in which they were added, as people read them.
using Json = nlohmann::ordered_json;

constexpr int kMaxJsonValues = 5000;
constexpr int kMaxJsonDepth = 20;

/// How much a document may have, at most.
struct JsonLimits {
  int values = kMaxJsonValues;
  int depth = kMaxJsonDepth;
};

/// Reads a document. Throws Json::parse_error for what is no JSON, and ControlError for too much of
/// it, for a number that is too large and for a member that stands twice (with its place).
Json readWithin(const JsonLimits& limits, std::string_view text);

/// "line 3, column 2": where a byte is that parse_error names, as editors count.
std::string positionIn(std::string_view text, std::size_t byte);

/// Reads a body. Throws ControlError with the place of what is no JSON, of a member that
/// occurs twice, and for more than kMaxJsonValues values or kMaxJsonDepth levels.
Json parseJson(std::string_view text);

/// In one line without a line end. Bytes that are not UTF-8 become U+FFFD.
std::string textOf(const Json& json);

/// A value in an error message: in full when it is short, else what it is ("a list").
std::string shown(const Json& value);

/// A number without a fraction where it has none: 40 rather than 40.0.
Json plainNumber(double value);

}  // namespace tolvex::sim

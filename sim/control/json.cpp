#include "control/json.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

#include "control/control_error.h"

namespace tolvex::sim {

namespace {

constexpr std::size_t kMaxShown = 60;
constexpr const char* kJsonRemedy =
    "Send one JSON object with names and texts in double quotes, as in {\"load_kg\": 0.482}.";

// Keeps a document from costing more than its reader could ever need, and a name from standing
// twice. Knows where it is.
class Watch {
 public:
  explicit Watch(const JsonLimits& limits) : limits_(limits) {}

  bool operator()(int depth, Json::parse_event_t event, const Json& parsed) {
    using Event = Json::parse_event_t;
    if (depth > limits_.depth) throw tooMuch("is nested too deeply");
    if (event == Event::key) takeName(parsed.get_ref<const std::string&>());
    if (event == Event::object_end || event == Event::array_end) levels_.pop_back();
    if (event == Event::value || event == Event::object_start || event == Event::array_start) {
      if (++values_ > limits_.values) throw tooMuch("has too many values");
      if (!levels_.empty()) ++levels_.back().values;
    }
    if (event == Event::object_start) levels_.push_back({false, 0, {}, ""});
    if (event == Event::array_start) levels_.push_back({true, 0, {}, ""});
    return true;
  }

  /// The error, at the value that comes next.
  ControlError here(ControlError error) const {
    bool isNext = true;
    for (auto level = levels_.rbegin(); level != levels_.rend(); ++level) {
      const std::size_t index = isNext ? level->values : level->values - 1;
      error = error.in(level->isList ? std::to_string(index) : level->name);
      isNext = false;
    }
    return error;
  }

 private:
  // An object or a list that is being read.
  struct Level {
    bool isList;
    std::size_t values;           // that have begun
    std::set<std::string> names;  // of an object
    std::string name;             // the latest of them
  };

  ControlError tooMuch(const std::string& what) const {
    return badRequest("the JSON " + what, "Send no more than " + std::to_string(limits_.values) +
                                              " values on " + std::to_string(limits_.depth) +
                                              " levels.");
  }

  void takeName(const std::string& name) {
    Level& level = levels_.back();
    level.name = name;
    if (level.names.insert(name).second) return;
    throw here(badRequest(shown(name) + " stands twice in one object", "Leave one of them out."));
  }

  const JsonLimits& limits_;
  std::vector<Level> levels_;
  int values_ = 0;
};

}  // namespace

std::string positionIn(std::string_view text, std::size_t byte) {
  std::size_t line = 1;
  std::size_t column = 1;
  for (std::size_t i = 0; i + 1 < byte && i < text.size(); ++i) {
    column = text[i] == '\n' ? 1 : column + 1;
    line += text[i] == '\n' ? 1U : 0U;
  }
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

Json readWithin(const JsonLimits& limits, std::string_view text) {
  Watch watch(limits);
  try {
    return Json::parse(text, [&watch](int depth, Json::parse_event_t event, Json& parsed) {
      return watch(depth, event, parsed);
    });
  } catch (const Json::out_of_range&) {
    throw watch.here(
        badRequest("the JSON has a number that is too large", "Send numbers of less than 1e300."));
  }
}

Json parseJson(std::string_view text) {
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
    throw badRequest("there is no JSON", kJsonRemedy);
  }
  try {
    return readWithin({}, text);
  } catch (const Json::parse_error& error) {
    throw badRequest("this is not JSON from " + positionIn(text, error.byte) + " on", kJsonRemedy);
  }
}

std::string textOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string shown(const Json& value) {
  if (value.is_array()) return "a list";
  if (value.is_object()) return "an object";
  const std::string text = textOf(value);
  return text.size() <= kMaxShown ? text : "a text of " + std::to_string(text.size()) + " bytes";
}

Json plainNumber(double value) {
  constexpr double kLargest = 1e15;
  if (std::trunc(value) == value && std::abs(value) < kLargest) {
    return static_cast<std::int64_t>(value);
  }
  return value;
}

}  // namespace tolvex::sim

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

// Keeps a body from costing more than its devices could ever need, and a name from standing twice.
class Watch {
 public:
  bool operator()(int depth, Json::parse_event_t event, const Json& parsed) {
    using Event = Json::parse_event_t;
    if (depth > kMaxJsonDepth) throw tooMuch("is nested too deeply");
    if (event == Event::object_start) names_.emplace_back();
    if (event == Event::object_end) names_.pop_back();
    if (event == Event::key) takeName(parsed.get_ref<const std::string&>());
    if (event == Event::value || event == Event::object_start || event == Event::array_start) {
      if (++values_ > kMaxJsonValues) throw tooMuch("has too many values");
    }
    return true;
  }

 private:
  static ControlError tooMuch(const std::string& what) {
    return badRequest("the JSON " + what, "Send no more than " + std::to_string(kMaxJsonValues) +
                                              " values on " + std::to_string(kMaxJsonDepth) +
                                              " levels.");
  }

  void takeName(const std::string& name) {
    if (names_.back().insert(name).second) return;
    throw badRequest(shown(name) + " stands twice in one object", "Leave one of them out.");
  }

  std::vector<std::set<std::string>> names_;
  int values_ = 0;
};

// Line and column as editors count them, of the byte at which reading stopped.
std::string positionIn(std::string_view text, std::size_t byte) {
  std::size_t line = 1;
  std::size_t column = 1;
  for (std::size_t i = 0; i + 1 < byte && i < text.size(); ++i) {
    column = text[i] == '\n' ? 1 : column + 1;
    line += text[i] == '\n' ? 1U : 0U;
  }
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

}  // namespace

Json parseJson(std::string_view text) {
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
    throw badRequest("there is no JSON", kJsonRemedy);
  }
  try {
    return Json::parse(
        text, [watch = Watch()](int depth, Json::parse_event_t event, Json& parsed) mutable {
          return watch(depth, event, parsed);
        });
  } catch (const Json::parse_error& error) {
    throw badRequest("this is not JSON from " + positionIn(text, error.byte) + " on", kJsonRemedy);
  } catch (const Json::out_of_range&) {
    throw badRequest("the JSON has a number that is too large", "Send numbers of less than 1e300.");
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

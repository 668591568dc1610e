// A request as the commands see it: named texts.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tolvex::sim {

/// One parsed request. All values of the protocol are JSON strings, so a member of any other type
/// counts as missing.
class Request {
 public:
  /// Nothing unless `json` is one well-formed JSON object in UTF-8. Of members that occur twice,
  /// the last one counts.
  static std::optional<Request> parse(std::string_view json);

  /// The member's text, or null if it is missing. Valid as long as the request.
  const std::string* find(std::string_view member) const;

  /// The text of a member that is known to be there; throws std::out_of_range otherwise.
  const std::string& text(std::string_view member) const;

 private:
  std::map<std::string, std::string, std::less<>> members_;
};

}  // namespace tolvex::sim

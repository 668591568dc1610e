// What a request asks for: its target taken apart and decoded.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tolvex::sim {

struct HttpTarget {
  /// Host and port of a target in full ("http://127.0.0.1:53280/api"); empty when it begins with
  /// the path, as nearly all do.
  std::string authority;
  /// Decoded, begins with '/'.
  std::string path;
  /// Decoded, '+' is a blank; of names that occur twice the first.
  std::map<std::string, std::string> query;
  /// The first name that occurs twice in the query; nothing if none does.
  std::optional<std::string> repeated;
};

/// Nothing when the target is neither a path nor an http address, or when an escape in it is none
/// ("%4"), or when what it means is not UTF-8 or has control characters.
std::optional<HttpTarget> parseTarget(std::string_view target);

}  // namespace tolvex::sim

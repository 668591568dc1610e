// The head of an HTTP request, as received.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolvex::sim {

/// Whether two ASCII texts are the same but for capital and small letters.
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// Small letters instead of capital ones of ASCII.
std::string lowerCase(std::string_view text);

struct HttpHead {
  std::string method;     // "GET"
  std::string target;     // as sent: "/api/jobs?limit=3"
  unsigned version = 11;  // 10: HTTP/1.0, 11: HTTP/1.1
  std::vector<std::pair<std::string, std::string>> fields;

  /// The values of all fields of this name, in order; the name in any case.
  std::vector<std::string_view> all(std::string_view name) const;

  /// The value of the first field of this name; empty when there is none.
  std::string_view first(std::string_view name) const;

  /// Whether one of the comma-separated words of a field is `word`, in any case, as in
  /// "Connection: keep-alive, Upgrade".
  bool lists(std::string_view name, std::string_view word) const;
};

/// The type of the body without its parameters, in small letters: "application/json".
std::string contentTypeOf(const HttpHead& head);

/// Whether the request asks for a WebSocket.
bool wantsWebSocket(const HttpHead& head);

}  // namespace tolvex::sim

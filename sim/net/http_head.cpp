#include "net/http_head.h"

#include <algorithm>

namespace tolvex::sim {

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string_view trimmed(std::string_view text) {
  const auto begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

}  // namespace

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

std::string lowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

std::vector<std::string_view> HttpHead::all(std::string_view name) const {
  std::vector<std::string_view> values;
  for (const auto& [field, value] : fields) {
    if (equalIgnoringCase(field, name)) values.emplace_back(value);
  }
  return values;
}

std::string_view HttpHead::first(std::string_view name) const {
  const auto values = all(name);
  return values.empty() ? std::string_view() : values.front();
}

bool HttpHead::lists(std::string_view name, std::string_view word) const {
  for (std::string_view value : all(name)) {
    while (!value.empty()) {
      const auto comma = std::min(value.find(','), value.size());
      if (equalIgnoringCase(trimmed(value.substr(0, comma)), word)) return true;
      value.remove_prefix(std::min(comma + 1, value.size()));
    }
  }
  return false;
}

std::string contentTypeOf(const HttpHead& head) {
  const std::string_view value = head.first("Content-Type");
  return lowerCase(trimmed(value.substr(0, value.find(';'))));
}

bool wantsWebSocket(const HttpHead& head) {
  return head.lists("Connection", "upgrade") && head.lists("Upgrade", "websocket");
}

}  // namespace tolvex::sim

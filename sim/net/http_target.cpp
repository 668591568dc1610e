#include "net/http_target.h"

#include <algorithm>

#include "base/utf8.h"
#include "net/http_head.h"

namespace tolvex::sim {

namespace {

constexpr std::string_view kScheme = "http://";

int digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

bool isText(std::string_view text) {
  while (!text.empty()) {
    const std::string_view rest = text;
    const char32_t character = takeCharacter(text);
    // U+FFFD itself is three bytes; a byte that is no UTF-8 is taken alone.
    if (character == kReplacementCharacter && rest.size() - text.size() == 1) return false;
    if (character < 0x20 || (character >= 0x7F && character < 0xA0)) return false;
  }
  return true;
}

enum class Plus { Plus, Blank };

std::optional<std::string> decode(std::string_view text, Plus plus) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '+' && plus == Plus::Blank) {
      result += ' ';
    } else if (text[i] != '%') {
      result += text[i];
    } else {
      if (i + 2 >= text.size()) return std::nullopt;
      const int high = digit(text[i + 1]);
      const int low = digit(text[i + 2]);
      if (high < 0 || low < 0) return std::nullopt;
      result += static_cast<char>(high * 16 + low);
      i += 2;
    }
  }
  if (!isText(result)) return std::nullopt;
  return result;
}

// Takes off the text up to the separator, and the separator.
std::string_view take(std::string_view& text, char separator) {
  const auto end = std::min(text.find(separator), text.size());
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

}  // namespace

std::optional<HttpTarget> parseTarget(std::string_view target) {
  HttpTarget result;
  if (equalIgnoringCase(target.substr(0, kScheme.size()), kScheme)) {
    target.remove_prefix(kScheme.size());
    const auto end = std::min(target.find_first_of("/?"), target.size());
    result.authority = target.substr(0, end);
    target.remove_prefix(end);
    if (result.authority.empty()) return std::nullopt;
  }
  const std::string_view path = take(target, '?');
  const bool isPath = !path.empty() && path.front() == '/';
  if (!isPath && (result.authority.empty() || !path.empty())) return std::nullopt;
  const auto decoded = decode(isPath ? path : "/", Plus::Plus);
  if (!decoded) return std::nullopt;
  result.path = *decoded;
  while (!target.empty()) {
    std::string_view pair = take(target, '&');
    if (pair.empty()) continue;
    const auto name = decode(take(pair, '='), Plus::Blank);
    const auto value = decode(pair, Plus::Blank);
    if (!name || !value) return std::nullopt;
    const bool isNew = result.query.emplace(*name, *value).second;
    if (!isNew && !result.repeated) result.repeated = name;
  }
  return result;
}

}  // namespace tolvex::sim

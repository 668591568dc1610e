#include "exchange/faulty_reply.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "base/integer.h"

namespace tolvex::sim {

std::string withNumberAsResult(std::string_view reply) {
  using Json = nlohmann::ordered_json;
  Json object = Json::parse(reply, nullptr, false);
  if (!object.is_object()) return std::string(reply);
  const auto result = object.find("result");
  if (result != object.end() && result->is_string()) {
    *result = parseInteger(result->get_ref<const std::string&>()).value_or(0);
  }
  return object.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string padded(std::string_view reply, std::size_t bytes) {
  const std::size_t end = std::min(reply.rfind('}'), reply.size());
  const bool isEmpty = reply.substr(0, end).find(':') == std::string_view::npos;
  const std::string begin = std::string(isEmpty ? "" : ",") + R"("padding":")";
  const std::size_t others = reply.size() + begin.size() + 1;
  std::string text(reply.substr(0, end));
  text.reserve(std::max(bytes, others));
  text += begin;
  text.append(bytes > others ? bytes - others : 0, 'x');
  text += '"';
  text += reply.substr(end);
  return text;
}

std::string garbage(std::size_t bytes) {
  // A byte that is never UTF-8, a NUL, an end of a line, quotation marks and braces that do not match.
  constexpr std::string_view kPattern("\xFF\"}{?\0\r\n\xC3(]", 11);
  std::string text;
  text.reserve(bytes);
  for (std::size_t i = 0; i < bytes; ++i) text += kPattern[i % kPattern.size()];
  return text;
}

}  // namespace tolvex::sim

#include "net/http_error.h"

#include <cstddef>
#include <nlohmann/json.hpp>

#include "base/printable.h"

namespace tolvex::sim {

HttpResponse httpError(int status, const std::string& what, const std::string& remedy) {
  using Json = nlohmann::ordered_json;
  const Json body = {{"error", {{"what", what}, {"remedy", remedy}}}};
  HttpResponse response;
  response.status = status;
  response.body = body.dump(-1, ' ', false, Json::error_handler_t::replace);
  return response;
}

std::string inQuotes(std::string_view text) {
  constexpr std::size_t kMost = 100;
  return "\"" + printable(text, kMost) + "\"";
}

}  // namespace tolvex::sim

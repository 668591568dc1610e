#include "protocol/reply.h"

#include <nlohmann/json.hpp>

namespace tolvex::sim {

Reply::Reply(ResultCode result) { add("result", toText(result)); }

Reply& Reply::add(std::string name, std::string value) {
  members_.emplace_back(std::move(name), std::move(value));
  return *this;
}

std::string Reply::json() const {
  using Json = nlohmann::ordered_json;
  Json object = Json::object();
  for (const auto& [name, value] : members_) object[name] = value;
  return object.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace tolvex::sim

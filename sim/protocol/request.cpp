#include "protocol/request.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace tolvex::sim {

std::optional<Request> Request::parse(std::string_view json) {
  const auto document = nlohmann::json::parse(json, nullptr, false);
  if (!document.is_object()) return std::nullopt;
  Request request;
  for (const auto& [name, value] : document.items()) {
    if (value.is_string()) request.members_[name] = value.get<std::string>();
  }
  return request;
}

const std::string* Request::find(std::string_view member) const {
  const auto found = members_.find(member);
  return found == members_.end() ? nullptr : &found->second;
}

const std::string& Request::text(std::string_view member) const {
  const std::string* value = find(member);
  if (value == nullptr) throw std::out_of_range("request has no " + std::string(member));
  return *value;
}

}  // namespace tolvex::sim

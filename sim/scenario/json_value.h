// JSON from people, read with the place of each value at hand.
#pragma once

#include <functional>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace tolvex::sim {

/// One value of a document and its JSON pointer. The document must outlive it. Each of the readers
/// throws Refusal for a value that is not as it should be.
class JsonValue {
 public:
  JsonValue(const nlohmann::json& value, std::string place)
      : value_(value), place_(std::move(place)) {}

  const nlohmann::json& json() const { return value_; }
  const std::string& place() const { return place_; }
  bool isObject() const { return json().is_object(); }
  bool isArray() const { return json().is_array(); }

  /// The member of an object, or nothing.
  std::optional<JsonValue> find(std::string_view member) const;

  /// Refuses what is no object; and an object with other members.
  void requireObject() const;
  void allow(std::initializer_list<std::string_view> members) const;

  /// Calls `use` for each member of an object or element of an array, in their order.
  void forEachMember(const std::function<void(const std::string& name, JsonValue)>& use) const;
  void forEachElement(const std::function<void(JsonValue)>& use) const;

  std::string text() const;
  long long integer(long long least, long long most) const;
  double number(double least, double most) const;

  [[noreturn]] void refuse(const std::string& what, const std::string& remedy) const;

 private:
  std::reference_wrapper<const nlohmann::json> value_;
  std::string place_;
};

/// Reads a document in UTF-8. Refuses what is no JSON, with line and column as the place; a member
/// that stands twice, and numbers and documents that are too large.
nlohmann::json readJson(std::string_view text);

}  // namespace tolvex::sim

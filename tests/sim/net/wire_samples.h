// What goes over the wire in several tests, in both directions.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolvex::sim {

inline constexpr char kCheck[] = R"({"cmd":"checkConnection"})";
inline constexpr char kOk[] = R"({"result":"0"})";
inline constexpr char kLevel[] = R"({"cmd":"getloglevel","module":"print"})";
/// The reply to what is no request.
inline constexpr char kUnreadable[] = R"({"result":"7"})";

inline std::string repeat(std::string_view text, std::size_t times) {
  std::string all;
  all.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

}  // namespace tolvex::sim

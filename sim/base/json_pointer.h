// Places in JSON documents.
#pragma once

#include <string>
#include <string_view>

namespace tolvex::sim {

/// The part of a JSON pointer that leads to a member: "/" and its name, in which "~" and "/" have a
/// form of their own.
inline std::string pointerTo(std::string_view member) {
  std::string text = "/";
  for (const char c : member) {
    if (c == '~') {
      text += "~0";
    } else if (c == '/') {
      text += "~1";
    } else {
      text += c;
    }
  }
  return text;
}

}  // namespace tolvex::sim

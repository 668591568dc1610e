// Enumerations in one line of text.
#pragma once

#include <string>
#include <string_view>

namespace tolvex::sim {

/// Appends an item to a list of items with separators between them.
inline void addToList(std::string& list, std::string_view item, std::string_view separator = ", ") {
  if (!list.empty()) list += separator;
  list += item;
}

}  // namespace tolvex::sim

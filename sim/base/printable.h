// Foreign bytes made fit for one line of a terminal or a log.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolvex::sim {

/// Returns `text` with everything a terminal could take as a command written as \xNN: control
/// characters (CR and LF too), what turns the direction of writing, and bytes that are not UTF-8. Other UTF-8 text stays readable.
/// A backslash stays as it is, because JSON is full of them. Text of more than `maxBytes` bytes is
/// cut there and ends with its full length, as in "... (70000 bytes)".
std::string printable(std::string_view text, std::size_t maxBytes);

}  // namespace tolvex::sim

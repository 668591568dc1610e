#pragma once

#include <string>
#include <string_view>

namespace tolvex::ctl {

/// Foreign bytes made fit for a terminal: control characters (line ends too), what turns the
/// direction of writing, and bytes that are not UTF-8 become \xNN. Other UTF-8 text stays as it is.
std::string printable(std::string_view text);

/// Whether the text is well-formed UTF-8 to its end.
bool isUtf8(std::string_view text);

}  // namespace tolvex::ctl

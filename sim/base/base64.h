// Bytes as text, as URIs carry them.
#pragma once

#include <string>
#include <string_view>

namespace tolvex::sim {

/// RFC 4648, section 4, with padding and without line ends.
std::string base64Of(std::string_view bytes);

}  // namespace tolvex::sim

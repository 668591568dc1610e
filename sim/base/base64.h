// Bytes as text, as URIs carry them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolvex::sim {

/// RFC 4648, section 4, with padding and without line ends.
std::string base64Of(std::string_view bytes);

/// The bytes of such a text; nothing for what is none.
std::optional<std::string> bytesOfBase64(std::string_view text);

}  // namespace tolvex::sim

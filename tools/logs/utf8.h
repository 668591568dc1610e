// UTF-8, character by character.
#pragma once

#include <cstddef>
#include <string_view>

namespace tolvex::ctl {

// The length in bytes of the well-formed UTF-8 character at the front; 0 where none begins there
// (overlong forms and surrogates are none) and for an empty text.
std::size_t utf8CharacterSize(std::string_view bytes);

}  // namespace tolvex::ctl

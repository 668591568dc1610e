// UTF-8, character by character.
#pragma once

#include <string>
#include <string_view>

namespace tolvex::sim {

/// Stands for bytes that are not UTF-8.
constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Takes the first character off `text`, which is not empty. A byte that belongs to no well-formed
/// character (an overlong form or a surrogate included) is taken alone, as U+FFFD.
char32_t takeCharacter(std::string_view& text);

/// True for text that is well-formed to its end.
bool isUtf8(std::string_view text);

/// Appends the character, one of Unicode's.
void appendUtf8(std::string& text, char32_t character);

}  // namespace tolvex::sim

// Whether texts reach the paper as they are.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "doctor/report.h"

namespace tolvex::ctl {

// The characters beyond ASCII that a code page of one or two bytes can express, each in UTF-8.
// `convert` turns 8-bit text into UTF-8 as the library does, with U+FFFD for what is no character.
// Nullopt for UTF-8, which expresses all.
using Conversion = std::string (*)(const char* text);
std::optional<std::set<std::string>> charactersOf(Conversion convert);

// The characters of a text (UTF-8) beyond ASCII that are not in the set, each once.
std::string lostCharacters(std::string_view text, const std::set<std::string>& characters);

// Tries the languages' letters and the commonest signs of receipts.
std::vector<Finding> checkCodePage(const std::string& name, Conversion convert,
                                   const std::string& advice);

}  // namespace tolvex::ctl

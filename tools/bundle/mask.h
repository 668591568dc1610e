// Takes texts of receipts out of what goes to support.
//
// Only what is known to hold no such text stays: when in doubt, it is masked. A mask keeps length and
// layout in bytes: every letter, and every byte beyond ASCII, becomes 'x' and every digit '9'.
// Weights, result codes, printer names, paths of files and the library's own words stay.
#pragma once

#include <string>
#include <string_view>

namespace tolvex::ctl {

// The whole text, masked.
std::string maskText(std::string_view text);

// A request or reply, or as much of it as a cut record has. Strings are masked unless their member is
// known to be harmless or they are short numbers; the JSON stays JSON.
std::string maskJson(std::string_view json);

// A line of the log without its end. A line without a header belongs to a text of several lines, and
// is masked.
std::string maskLogLine(std::string_view line);

}  // namespace tolvex::ctl

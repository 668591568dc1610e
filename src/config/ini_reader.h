// The INI file beside the host executable, as a flat map.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tolvex::config {

// "section.key" -> value. A key before the first section line begins with the full stop.
using IniMap = std::map<std::string, std::string>;

// Reads INI text (bytes; lines end in LF or CR LF). Every line is one of: empty; a comment, whose
// first character is ';'; a section, "[name]" filling the whole line; an entry, split at its first
// '='. Nothing is trimmed, names are compared exactly, a later entry replaces an earlier one, and a
// line without '=' is a key with an empty value.
IniMap parseIni(std::string_view text);

// Reads the file at a path in UTF-8. Nothing when it cannot be opened for reading: that is ordinary, and
// no exception, since those of a DLL do not get far on every stack that a host application calls from.
std::optional<IniMap> readIniFile(const std::string& path);

// The value of a key, empty when the map has none.
std::string lookUp(const IniMap& entries, const std::string& key);

}  // namespace tolvex::config

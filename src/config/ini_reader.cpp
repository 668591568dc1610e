#include "config/ini_reader.h"

#include "platform/file.h"

namespace tolvex::config {
namespace {

void readLine(std::string_view line, std::string& section, IniMap& entries) {
  if (line.empty() || line.front() == ';') return;
  if (line.front() == '[' && line.back() == ']') {
    section = line.substr(1, line.size() - 2);
    return;
  }
  const std::size_t equals = line.find('=');
  std::string key = section + '.';
  key += line.substr(0, equals);
  entries[key] = equals == std::string_view::npos ? std::string_view() : line.substr(equals + 1);
}

}  // namespace

IniMap parseIni(std::string_view text) {
  IniMap entries;
  std::string section;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    const bool ended = end != std::string_view::npos;
    if (ended && !line.empty() && line.back() == '\r') line.remove_suffix(1);
    readLine(line, section, entries);
    text.remove_prefix(ended ? end + 1 : text.size());
  }
  return entries;
}

std::optional<IniMap> readIniFile(const std::string& path) {
  std::string text;
  if (!platform::readFile(path.c_str(), text)) return std::nullopt;
  return parseIni(text);
}

std::string lookUp(const IniMap& entries, const std::string& key) {
  const auto entry = entries.find(key);
  return entry != entries.end() ? entry->second : std::string();
}

}  // namespace tolvex::config

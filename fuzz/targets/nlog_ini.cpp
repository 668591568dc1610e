#include <string>
#include <utility>
#include <vector>

#include "log/log_config.h"
#include "support/json_model.h"
#include "support/target.h"

namespace tolvex::fuzz {
namespace {

using Entries = std::vector<std::pair<std::string, int>>;

std::string withoutBlanksAround(std::string text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  while (!text.empty() && isBlank(text.front())) text.erase(0, 1);
  while (!text.empty() && isBlank(text.back())) text.pop_back();
  return text;
}

// The rules of docs/configuration.md, one after another.
void addEntry(std::string line, Entries& entries) {
  if (line.rfind("\xEF\xBB\xBF", 0) == 0) line.erase(0, 3);
  line = withoutBlanksAround(line);
  if (line.empty() || line[0] == ';' || line[0] == '#') return;
  if (line[0] == '[' && line.back() == ']') return;
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos) return;
  const std::string module = withoutBlanksAround(line.substr(0, equals));
  const std::string value = withoutBlanksAround(line.substr(equals + 1));
  if (module.empty() || value.empty()) return;
  const int level = numberIn(value);
  if (level != 0 && level != 5 && level <= 7) entries.emplace_back(module, level);
}

Entries expectedOf(std::string_view text) {
  Entries entries;
  std::string line;
  for (const char c : text) {
    if (c != '\n') {
      line += c;
      continue;
    }
    addEntry(line, entries);
    line.clear();
  }
  addEntry(line, entries);
  return entries;
}

}  // namespace

void targets::nlog_ini(std::string_view input) {
  Entries entries;
  readThresholds(input, [&](const Threshold& threshold) {
    const bool lies =
        threshold.module.data() >= input.data() &&
        threshold.module.data() + threshold.module.size() <= input.data() + input.size();
    require(lies, "a module's name is a part of the file");
    entries.emplace_back(threshold.module, threshold.level);
  });
  require(entries == expectedOf(input), "each line is read by the rules");
}

}  // namespace tolvex::fuzz

#include "log/log_config.h"

#include "log/decimal.h"

namespace tolvex {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \r\n\t";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool holdsNoEntry(std::string_view line) {
  if (line.empty() || line.front() == ';' || line.front() == '#') return true;
  return line.front() == '[' && line.back() == ']';
}

bool canBeStored(int level) {
  return level != 0 && level <= kHighestLevel && level != kDefaultThreshold;
}

}  // namespace

bool readThreshold(std::string_view line, Threshold& threshold) {
  if (line.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    line.remove_prefix(kByteOrderMark.size());
  }
  line = trimmed(line);
  if (holdsNoEntry(line)) return false;
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return false;
  threshold.module = trimmed(line.substr(0, equals));
  const std::string_view value = trimmed(line.substr(equals + 1));
  if (threshold.module.empty() || value.empty()) return false;
  threshold.level = textToInt(value);
  return canBeStored(threshold.level);
}

}  // namespace tolvex

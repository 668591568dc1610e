#include "logs/log_filter.h"

#include <algorithm>
#include <cctype>

namespace tolvex::ctl {
namespace {

struct LevelWord {
  std::string_view word;
  std::string_view levels;
};

constexpr LevelWord kWords[] = {
    {"failure", "57"}, {"failures", "57"}, {"trace", "6"}, {"traffic", "2"}, {"all", "1234567"}};

char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

std::string lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

bool isLevel(char c) { return c >= '1' && c <= '7'; }

// The digits of the levels that one word names; empty for a word that names none.
std::string levelsOf(const std::string& word) {
  if (word.size() == 1 && isLevel(word[0])) return word;
  if (word.size() == 3 && isLevel(word[0]) && word[1] == '-' && isLevel(word[2])) {
    std::string range;
    for (char level = word[0]; level <= word[2]; ++level) range += level;
    return range;
  }
  for (const LevelWord& row : kWords) {
    if (row.word == word) return std::string(row.levels);
  }
  if (word.size() != 1) return {};
  const int level =
      levelOfLetter(static_cast<char>(std::toupper(static_cast<unsigned char>(word[0]))));
  return level == 0 ? "" : std::to_string(level);
}

bool contains(std::string_view text, std::string_view part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(),
                     [](char a, char b) { return lower(a) == lower(b); }) != text.end();
}

}  // namespace

bool LogFilter::passes(const LogRecord& record) const {
  const bool chosen = std::find(levels.begin(), levels.end(), true) != levels.end();
  if (chosen && !levels[static_cast<std::size_t>(record.level)]) return false;
  const auto isOfRecord = [&](const std::string& module) {
    return lowered(module) == lowered(record.module);
  };
  if (!modules.empty() && std::none_of(modules.begin(), modules.end(), isOfRecord)) return false;
  if (since && record.order < *since) return false;
  if (until && record.order > *until) return false;
  return text.empty() || contains(record.text, text);
}

bool addLevels(std::string_view words, std::array<bool, 8>& levels) {
  std::string found;
  for (;;) {
    const std::size_t comma = words.find(',');
    const std::string named = levelsOf(lowered(words.substr(0, comma)));
    if (named.empty()) return false;
    found += named;
    if (comma == std::string_view::npos) break;
    words.remove_prefix(comma + 1);
  }
  for (const char level : found) levels[static_cast<std::size_t>(level - '0')] = true;
  return true;
}

}  // namespace tolvex::ctl

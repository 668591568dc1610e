#include "explain/code_table.h"

#include <exports.h>

#include <algorithm>
#include <cctype>

namespace tolvex::ctl {
namespace {

constexpr std::size_t kMostSuggestions = 3;

std::vector<CodeEntry> tableOfHeader() {
#define TOLVEX_ROW(code, NAME, Name, text, meaning, remedy) \
  {code, "TOLVEX_RESULT_" #NAME, #Name, text, meaning, remedy, true},
#define TOLVEX_ANSWER_ROW(constant, text, meaning, remedy) \
  {constant, #constant, #constant, text, meaning, remedy, false},
  return {TOLVEX_RESULT_CODES(TOLVEX_ROW) TOLVEX_ANSWERS(TOLVEX_ANSWER_ROW)};
#undef TOLVEX_ANSWER_ROW
#undef TOLVEX_ROW
}

// What counts in a name: letters and digits, in lower case.
std::string essence(std::string_view name) {
  std::string result;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) != 0) result += static_cast<char>(std::tolower(byte));
  }
  return result;
}

// The constant without what all of them have in front.
std::string_view shortConstant(const CodeEntry& entry) {
  constexpr std::string_view result = "TOLVEX_RESULT_";
  constexpr std::string_view any = "TOLVEX_";
  return entry.constant.substr(entry.isResultCode ? result.size() : any.size());
}

// How many characters have to be put in, taken out or changed to make the one word of the other.
std::size_t distance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  for (std::size_t j = 0; j <= other.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const std::size_t changed = diagonal + (one[i - 1] == other[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
    }
  }
  return row[other.size()];
}

// How far a name is from a word: a word that is part of a name is close to it.
std::size_t strangeness(const std::string& word, const std::string& name) {
  if (word.size() >= 3 && name.find(word) != std::string::npos) return 1;
  return distance(word, name);
}

}  // namespace

const std::vector<CodeEntry>& codeTable() {
  static const std::vector<CodeEntry>* const table = new std::vector<CodeEntry>(tableOfHeader());
  return *table;
}

const CodeEntry* findResultCode(int code) {
  for (const CodeEntry& entry : codeTable()) {
    // The first answer of -1 is the unreadable reply.
    const bool asCode = entry.isResultCode || code == TOLVEX_UNREADABLE_REPLY;
    if (asCode && entry.code == code) return &entry;
  }
  return nullptr;
}

std::string resultName(int code) {
  if (code == TOLVEX_UNREADABLE_REPLY) return "UnreadableReply";
  const CodeEntry* const entry = findResultCode(code);
  return entry != nullptr ? std::string(entry->name) : "service's own code";
}

std::vector<const CodeEntry*> findByNumber(int code) {
  std::vector<const CodeEntry*> found;
  for (const CodeEntry& entry : codeTable()) {
    if (entry.code == code) found.push_back(&entry);
  }
  return found;
}

std::vector<const CodeEntry*> findByName(std::string_view name) {
  const std::string wanted = essence(name);
  std::vector<const CodeEntry*> found;
  if (wanted.empty()) return found;
  for (const CodeEntry& entry : codeTable()) {
    if (wanted == essence(entry.name) || wanted == essence(entry.constant) ||
        wanted == essence(entry.text) || wanted == essence(shortConstant(entry))) {
      found.push_back(&entry);
    }
  }
  return found;
}

std::vector<std::string> similarNames(std::string_view word) {
  const std::string wanted = essence(word).substr(0, 64);
  std::vector<std::pair<std::size_t, std::string>> ranked;
  for (const CodeEntry& entry : codeTable()) {
    const std::string name = essence(shortConstant(entry));
    const std::size_t strange = strangeness(wanted, name);
    if (!wanted.empty() && strange <= std::max<std::size_t>(1, name.size() / 3)) {
      ranked.emplace_back(strange, entry.name);
    }
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> names;
  for (auto& candidate : ranked) {
    if (names.size() < kMostSuggestions) names.push_back(std::move(candidate.second));
  }
  return names;
}

}  // namespace tolvex::ctl

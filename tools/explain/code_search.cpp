#include "explain/code_search.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <limits>
#include <utility>

namespace tolvex::ctl {
namespace {

constexpr std::size_t kMostSuggestions = 3;
constexpr std::size_t kLongestWord = 64;
constexpr std::size_t kMostDigits = 10;
constexpr std::int64_t kMinusOneUnsigned = std::numeric_limits<std::uint32_t>::max();

// What counts in a name: letters and digits, in lower case.
std::string essence(std::string_view name) {
  std::string result;
  for (const char c : name.substr(0, kLongestWord)) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) != 0) result += static_cast<char>(std::tolower(byte));
  }
  return result;
}

// An answer's name without what all of them have in front.
std::string_view shortName(const CodeText& row) {
  constexpr std::string_view any = "TOLVEX_";
  const std::string_view name = row.name;
  return name.substr(0, any.size()) == any ? name.substr(any.size()) : name;
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

int digitOf(char c, int base) {
  const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  const int digit = lower >= '0' && lower <= '9'   ? lower - '0'
                    : lower >= 'a' && lower <= 'f' ? lower - 'a' + 10
                                                   : base;
  return digit < base ? digit : -1;
}

}  // namespace

std::optional<int> numberIn(std::string_view text) {
  const bool negative = !text.empty() && text.front() == '-';
  if (negative) text.remove_prefix(1);
  const bool hexadecimal = text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X";
  if (hexadecimal) text.remove_prefix(2);
  if (text.empty() || text.size() > kMostDigits) return {};
  std::int64_t value = 0;
  for (const char c : text) {
    const int digit = digitOf(c, hexadecimal ? 16 : 10);
    if (digit < 0) return {};
    value = value * (hexadecimal ? 16 : 10) + digit;
  }
  if (negative) value = -value;
  if (value == kMinusOneUnsigned) value = -1;
  if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()) return {};
  return static_cast<int>(value);
}

std::vector<const CodeText*> allRows() {
  std::vector<const CodeText*> rows;
  for (const CodeText& row : resultCodes()) rows.push_back(&row);
  for (const CodeText& row : answers()) rows.push_back(&row);
  return rows;
}

std::vector<const CodeText*> findByNumber(int code) {
  std::vector<const CodeText*> found = allRows();
  found.erase(std::remove_if(found.begin(), found.end(),
                             [code](const CodeText* row) { return row->code != code; }),
              found.end());
  return found;
}

std::vector<const CodeText*> findByName(std::string_view name) {
  const std::string wanted = essence(name);
  std::vector<const CodeText*> found;
  if (wanted.empty()) return found;
  for (const CodeText* row : allRows()) {
    if (wanted == essence(row->name) || wanted == essence(row->text) ||
        wanted == essence(shortName(*row)) || wanted == essence(constantOf(*row))) {
      found.push_back(row);
    }
  }
  return found;
}

std::vector<std::string> similarNames(std::string_view word) {
  const std::string wanted = essence(word);
  std::vector<std::pair<std::size_t, std::string>> ranked;
  for (const CodeText* row : allRows()) {
    const std::string name = essence(shortName(*row));
    const std::size_t strange = strangeness(wanted, name);
    if (!wanted.empty() && strange <= std::max<std::size_t>(1, name.size() / 3)) {
      ranked.emplace_back(strange, row->name);
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

bool isResultCode(const CodeText& row) {
  const std::vector<CodeText>& codes = resultCodes();
  return std::any_of(codes.begin(), codes.end(),
                     [&row](const CodeText& code) { return &code == &row; });
}

std::string constantOf(const CodeText& row) {
  return (isResultCode(row) ? "TOLVEX_RESULT_" : "") + std::string(row.name);
}

}  // namespace tolvex::ctl

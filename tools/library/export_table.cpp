#include "library/export_table.h"

#include <exports.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace tolvex::ctl {
namespace {

template <typename Argument>
constexpr ArgumentKind kindOf() {
  if constexpr (std::is_same_v<Argument, const char*>) {
    return ArgumentKind::Text;
  } else if constexpr (std::is_same_v<Argument, char*>) {
    return ArgumentKind::Buffer;
  } else if constexpr (std::is_same_v<Argument, int>) {
    return ArgumentKind::Number;
  } else {
    static_assert(std::is_same_v<Argument, unsigned>, "call does not know this kind of argument");
    return ArgumentKind::Unsigned;
  }
}

template <typename Argument>
Argument taken(const ArgumentValue& value) {
  if constexpr (kindOf<Argument>() == ArgumentKind::Text) {
    return value.text;
  } else if constexpr (kindOf<Argument>() == ArgumentKind::Buffer) {
    return value.buffer;
  } else {
    return static_cast<Argument>(value.number);
  }
}

template <typename Function>
struct Caller;

template <typename... Arguments>
struct Caller<int(Arguments...)> {
  static std::vector<ArgumentKind> kinds() { return {kindOf<Arguments>()...}; }

  static int call(void* function, const ArgumentValue* values) {
    return callEach(function, values, std::index_sequence_for<Arguments...>());
  }

 private:
  template <std::size_t... indices>
  static int callEach(void* function, [[maybe_unused]] const ArgumentValue* values,
                      std::index_sequence<indices...>) {
    return reinterpret_cast<int (*)(Arguments...)>(function)(taken<Arguments>(values[indices])...);
  }
};

// The last word of each declaration between the commas.
std::vector<std::string> namesIn(std::string_view parameters) {
  std::vector<std::string> names;
  if (parameters == "void") return names;
  while (!parameters.empty()) {
    const std::size_t comma = parameters.find(',');
    const std::string_view one = parameters.substr(0, comma);
    names.emplace_back(one.substr(one.find_last_of(" *") + 1));
    parameters.remove_prefix(comma == std::string_view::npos ? parameters.size() : comma + 1);
  }
  return names;
}

ExportRow row(const char* name, const char* group, const char* parameters,
              const std::vector<ArgumentKind>& kinds,
              int (*call)(void* function, const ArgumentValue* values)) {
  ExportRow made{name, group, std::string("int ") + name + "(" + parameters + ")", {}, call};
  const std::vector<std::string> names = namesIn(parameters);
  bool afterBuffer = false;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    made.parameters.push_back({names.at(i), kinds[i], afterBuffer && names[i] == "size"});
    afterBuffer = kinds[i] == ArgumentKind::Buffer;
  }
  return made;
}

std::string lowered(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

// How many characters have to be changed, added or left out to make the one the other.
std::size_t distance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

const std::vector<ExportRow>& exportTable() {
  static const std::vector<ExportRow> rows = {
#define TOLVEX_EXPORT_ROW(name, group, parameters)                                         \
  row(#name, group, parameters, Caller<std::remove_pointer_t<decltype(&::name)>>::kinds(), \
      &Caller<std::remove_pointer_t<decltype(&::name)>>::call),
#include "export_rows.inc"
#undef TOLVEX_EXPORT_ROW
  };
  return rows;
}

const ExportRow* findExport(std::string_view name) {
  const auto& rows = exportTable();
  const auto found = std::find_if(rows.begin(), rows.end(), [name](const ExportRow& candidate) {
    return candidate.name == name;
  });
  return found != rows.end() ? &*found : nullptr;
}

std::string similarExport(std::string_view name) {
  constexpr std::size_t kFarthest = 4;
  constexpr std::size_t kLongest = 64;
  if (name.size() > kLongest) return "";
  std::string best;
  std::size_t least = std::min(kFarthest, name.size() / 2 + 1);
  for (const ExportRow& candidate : exportTable()) {
    const std::size_t changes = distance(lowered(name), lowered(candidate.name));
    if (changes >= least) continue;
    least = changes;
    best = candidate.name;
  }
  return best;
}

}  // namespace tolvex::ctl

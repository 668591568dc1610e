#include "calls.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "api/exports.h"

namespace tolvex::test {
namespace {

template <typename Type>
constexpr Kind kindOf() {
  if constexpr (std::is_same_v<Type, const char*>) {
    return Kind::kText;
  } else if constexpr (std::is_same_v<Type, char*>) {
    return Kind::kBuffer;
  } else if constexpr (std::is_same_v<Type, int>) {
    return Kind::kInt;
  } else {
    static_assert(std::is_same_v<Type, unsigned>, "an argument of a new kind");
    return Kind::kUnsigned;
  }
}

template <typename Type>
Type as(const Argument& argument) {
  if constexpr (std::is_pointer_v<Type>) {
    return argument.address;
  } else {
    return static_cast<Type>(argument.number);
  }
}

template <auto function>
struct Caller;

template <typename... Types, int (*function)(Types...)>
struct Caller<function> {
  static std::vector<Kind> kinds() { return {kindOf<Types>()...}; }
  static int call(const Argument* arguments) {
    return callEach(arguments, std::index_sequence_for<Types...>());
  }

 private:
  template <std::size_t... indices>
  static int callEach([[maybe_unused]] const Argument* arguments, std::index_sequence<indices...>) {
    return function(as<Types>(arguments[indices])...);
  }
};

// The last word of each declaration between the commas.
std::vector<Parameter> parametersOf(const std::string& declarations,
                                    const std::vector<Kind>& kinds) {
  std::vector<Parameter> parameters;
  std::size_t begin = 0;
  for (const Kind kind : kinds) {
    const std::size_t end = std::min(declarations.find(',', begin), declarations.size());
    const std::string one = declarations.substr(begin, end - begin);
    parameters.push_back({one.substr(one.find_last_of(" *") + 1), kind});
    begin = end + 1;
  }
  return parameters;
}

}  // namespace

const std::vector<ExportUnderTest>& everyExport() {
  static const std::vector<ExportUnderTest> all = {
#define TOLVEX_EXPORT_ROW(name, group, parameters) \
  {#name, parametersOf(parameters, Caller<&::name>::kinds()), &Caller<&::name>::call},
#include "export_rows.inc"
#undef TOLVEX_EXPORT_ROW
  };
  return all;
}

}  // namespace tolvex::test

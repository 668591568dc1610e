// All exports that the public header declares, with what a call by name needs to know of them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolvex::ctl {

enum class ArgumentKind {
  Text,      // a NUL-terminated text that goes in
  Buffer,    // the caller's, which comes back filled
  Number,    // int
  Unsigned,  // unsigned int
};

struct Parameter {
  std::string name;
  ArgumentKind kind;
  bool isSizeOfBuffer = false;  // of the buffer right before it
};

/// One argument of a call: the member that its parameter's kind asks for.
struct ArgumentValue {
  const char* text = nullptr;
  char* buffer = nullptr;
  std::int64_t number = 0;
};

struct ExportRow {
  std::string name;
  std::string group;      // the header's section, for example "Weighing"
  std::string signature;  // "int PrintText(const char *text, unsigned int fontSize)"
  std::vector<Parameter> parameters;

  /// Calls the function at the address, which has to be this export, with as many values as it has
  /// parameters.
  int (*call)(void* function, const ArgumentValue* values);
};

/// In the header's order.
const std::vector<ExportRow>& exportTable();

/// The row of an export, null when there is none of this name.
const ExportRow* findExport(std::string_view name);

/// The export whose name is closest to one that there is none of, empty when none is close.
std::string similarExport(std::string_view name);

}  // namespace tolvex::ctl

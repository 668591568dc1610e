// Every export of the public header, to be called with values.
#pragma once

#include <string>
#include <vector>

#include "model.h"

namespace tolvex::test {

// What a value is to the call: where it lies in memory.
struct Argument {
  char* address = nullptr;
  int number = 0;
};

struct Parameter {
  std::string name;
  Kind kind;
};

struct ExportUnderTest {
  std::string name;
  std::vector<Parameter> parameters;
  int (*call)(const Argument* arguments);
};

const std::vector<ExportUnderTest>& everyExport();

}  // namespace tolvex::test

// Every export with one call of it that works.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "support/loaded_library.h"

namespace tolvex::test {

// What a call is given to write to, filled beforehand; the last byte is a NUL.
struct CallBuffer {
  CallBuffer() { bytes.fill('#'), bytes.back() = '\0'; }
  std::array<char, 2100> bytes;
  char* data() { return bytes.data(); }
  unsigned size() const { return 2050; }
  std::string text() const { return std::string(bytes.data(), bytes.size()); }
};

// What an export answers, and so how it tells a failure.
enum class Answers {
  kVerdict,     // 240, or 255
  kCode,        // 0, or a code
  kConnection,  // 1, or 0
  kConstant,    // whatever happens
};

struct ExportCall {
  const char* name;
  Answers answers;
  bool queues;  // for BeginPrint
  int (*run)(const LoadedLibrary& library, CallBuffer& buffer);
};

// What the calls refer to.
struct CallTexts {
  std::string address;  // of the service
  std::string image;    // a file
  std::string longText;
};
CallTexts& callTexts();

const std::vector<ExportCall>& exportCalls();
const ExportCall& exportCall(const std::string& name);

}  // namespace tolvex::test

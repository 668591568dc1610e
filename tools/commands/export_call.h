// One call of an export by its name, with words of the command line as its arguments.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "app/context.h"
#include "library/export_table.h"

namespace tolvex::ctl {

/// An argument as it was understood, of whatever kind its parameter is.
struct CallArgument {
  bool isNull = false;
  std::string text;  // a text, or what a buffer holds at first
  std::int64_t number = 0;
  std::size_t room = 0;  // bytes of a buffer
};

/// A call that can be made: as many arguments as the export has parameters.
struct ExportCall {
  const ExportRow* row = nullptr;
  std::vector<CallArgument> arguments;
};

/// What came of it.
struct CallOutcome {
  int value = 0;
  int lastError = 0;
  std::vector<std::string> buffers;  // as many as parameters, empty where there is no buffer
};

/// Understands a call: the export's name, then a word for each parameter that is not a buffer and
/// not null. Buffers are the program's own; one that is called "text" takes a word, too, which it
/// holds at first. `nulls` names the parameters to pass null for. Throws a Failure (Usage) that
/// names the export's signature.
ExportCall understandCall(const std::vector<std::string>& words,
                          const std::set<std::string>& nulls);

/// Makes the call, within the time limit.
CallOutcome makeCall(const ExportCall& call, Context& context);

/// What the value that the export returned is: a code or an answer of the header's tables, or a
/// number that stands for itself.
struct CallVerdict {
  const CodeText* meaning = nullptr;  // null: the number stands for itself
  ExitCode exit = ExitCode::Fine;
};
CallVerdict verdictOf(const ExportCall& call, const CallOutcome& outcome);

/// The call with its arguments as a line of text: PrintText(text = "Hello", fontSize = 28).
std::string toText(const ExportCall& call);

}  // namespace tolvex::ctl

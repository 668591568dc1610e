#include "commands/export_call.h"

#include <algorithm>
#include <limits>
#include <memory>

#include "app/time_limit.h"
#include "base/printable.h"
#include "base/whole_number.h"

namespace tolvex::ctl {
namespace {

constexpr std::size_t kRoomWithoutSize = 4096;  // more than any export without a size writes
constexpr std::int64_t kMostRoom = 1 << 20;

std::string signatureLine(const ExportRow& row) {
  return "It is declared as " + row.signature + ".";
}

[[noreturn]] void refuse(const std::string& message, const ExportRow& row) {
  throw Failure(ExitCode::Usage, message,
                signatureLine(row) +
                    " Give a word for each parameter in turn; buffers (char *) are left out.");
}

const ExportRow& rowNamed(const std::string& name) {
  const ExportRow* const row = findExport(name);
  if (row != nullptr) return *row;
  const std::string similar = similarExport(name);
  throw Failure(ExitCode::Usage, "the library has no export \"" + printable(name) + "\"",
                (similar.empty() ? "" : "Did you mean " + similar + "? ") +
                    "tolvexctl call --list shows them all.");
}

bool takesWord(const Parameter& parameter) {
  return parameter.kind != ArgumentKind::Buffer || parameter.name == "text";
}

void checkNulls(const ExportRow& row, const std::set<std::string>& nulls) {
  for (const std::string& name : nulls) {
    const auto named =
        std::find_if(row.parameters.begin(), row.parameters.end(),
                     [&name](const Parameter& parameter) { return parameter.name == name; });
    const bool isPointer = named != row.parameters.end() && (named->kind == ArgumentKind::Text ||
                                                             named->kind == ArgumentKind::Buffer);
    if (!isPointer) refuse(row.name + " has no text or buffer \"" + printable(name) + "\"", row);
  }
}

std::int64_t numberIn(const std::string& word, const Parameter& parameter, const ExportRow& row) {
  const bool isUnsigned = parameter.kind == ArgumentKind::Unsigned;
  std::int64_t least = std::numeric_limits<int>::min();
  std::int64_t most = std::numeric_limits<int>::max();
  if (isUnsigned) {
    least = 0;
    most = parameter.isSizeOfBuffer ? kMostRoom : std::numeric_limits<unsigned>::max();
  }
  const auto number = parseWholeNumber(word);
  if (!number || *number < least || *number > most) {
    refuse("\"" + printable(word) + "\" is no whole number from " + std::to_string(least) + " to " +
               std::to_string(most) + " for " + parameter.name + " of " + row.name,
           row);
  }
  return *number;
}

CallArgument argumentOf(const Parameter& parameter, const std::string& word, const ExportRow& row) {
  CallArgument argument;
  switch (parameter.kind) {
    case ArgumentKind::Text:
      argument.text = word;
      break;
    case ArgumentKind::Buffer:
      argument.text = word.substr(0, kRoomWithoutSize - 1);
      argument.room = kRoomWithoutSize;
      break;
    case ArgumentKind::Number:
    case ArgumentKind::Unsigned:
      argument.number = numberIn(word, parameter, row);
  }
  return argument;
}

// The arguments and what they point to, for a call that may outlive everything else.
struct OwnedCall {
  void* address;
  const ExportRow* row;
  std::vector<CallArgument> arguments;
  std::vector<std::string> buffers;

  int make() {
    std::vector<ArgumentValue> values(arguments.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
      values[i].number = arguments[i].number;
      if (arguments[i].isNull) continue;
      values[i].text = arguments[i].text.c_str();
      values[i].buffer = buffers[i].data();
    }
    return row->call(address, values.data());
  }
};

// What these return says yes or no, or nothing.
bool standsForItself(const std::string& name) {
  static const std::set<std::string> names = {"checkConnection",
                                              "getHighResWeightMode",
                                              "Version",
                                              "Version_stdcall",
                                              "DisplayText",
                                              "DisplayText_stdcall",
                                              "IncreaseResolution",
                                              "IncreaseResolution_stdcall",
                                              "SetClientName",
                                              "SetClientName_stdcall"};
  return names.count(name) != 0;
}

bool readsWeight(const ExportRow& row) { return row.name.rfind("read_standard", 0) == 0; }

}  // namespace

ExportCall understandCall(const std::vector<std::string>& words,
                          const std::set<std::string>& nulls) {
  ExportCall call;
  const ExportRow& row = rowNamed(words.at(0));
  call.row = &row;
  checkNulls(row, nulls);
  std::size_t next = 1;
  for (const Parameter& parameter : row.parameters) {
    const bool isNull = nulls.count(parameter.name) != 0;
    std::string word;
    if (takesWord(parameter) && !isNull) {
      if (next == words.size()) refuse(row.name + " lacks its argument " + parameter.name, row);
      word = words[next++];
    }
    const bool isEmpty = isNull || (parameter.kind == ArgumentKind::Buffer && word.empty());
    CallArgument argument = isEmpty ? CallArgument() : argumentOf(parameter, word, row);
    argument.isNull = isNull;
    if (parameter.kind == ArgumentKind::Buffer) argument.room = kRoomWithoutSize;
    if (parameter.isSizeOfBuffer) {
      call.arguments.back().room = static_cast<std::size_t>(argument.number);
    }
    call.arguments.push_back(std::move(argument));
  }
  if (next < words.size()) {
    refuse(row.name + " takes no further argument \"" + printable(words[next]) + "\"", row);
  }
  return call;
}

CallOutcome makeCall(const ExportCall& call, Context& context) {
  Service& service = context.service();
  auto owned = std::make_shared<OwnedCall>();
  owned->address = context.library().findOrThrow(call.row->name.c_str());
  owned->row = call.row;
  owned->arguments = call.arguments;
  owned->buffers.resize(call.arguments.size());
  for (std::size_t i = 0; i < call.arguments.size(); ++i) {
    owned->buffers[i] = call.arguments[i].text;
    owned->buffers[i].resize(std::max(call.arguments[i].room, call.arguments[i].text.size() + 1));
  }
  const Answer answer = service.perform([owned] { return owned->make(); });
  CallOutcome outcome{answer.value, answer.lastError, std::move(owned->buffers)};
  for (std::size_t i = 0; i < outcome.buffers.size(); ++i) {
    outcome.buffers[i].resize(call.arguments[i].isNull ? 0 : call.arguments[i].room);
  }
  return outcome;
}

CallVerdict verdictOf(const ExportCall& call, const CallOutcome& outcome) {
  if (standsForItself(call.row->name)) return {};
  if (readsWeight(*call.row) && outcome.value < 0) {
    const int code =
        outcome.value == TOLVEX_UNDER_LOAD ? TOLVEX_RESULT_UNDER_LOAD : TOLVEX_RESULT_OVER_LOAD;
    const auto& rows = answers();
    const auto row = std::find_if(rows.rbegin(), rows.rend(), [&](const CodeText& candidate) {
      return candidate.code == outcome.value;
    });
    return {&*row, exitOf(code)};
  }
  CallVerdict verdict{findCode(outcome.value), exitOf(outcome.value)};
  if (outcome.value == TOLVEX_OK) verdict.exit = ExitCode::Fine;
  if (outcome.value == TOLVEX_FAILED && outcome.lastError != TOLVEX_RESULT_OK) {
    verdict.exit = exitOf(outcome.lastError);
  }
  return verdict;
}

std::string toText(const ExportCall& call) {
  std::string text = call.row->name + "(";
  for (std::size_t i = 0; i < call.arguments.size(); ++i) {
    const Parameter& parameter = call.row->parameters[i];
    const CallArgument& argument = call.arguments[i];
    if (i > 0) text += ", ";
    text += parameter.name;
    if (argument.isNull) {
      text += " = null";
    } else if (parameter.kind == ArgumentKind::Text) {
      text += " = \"" + printable(argument.text) + "\"";
    } else if (parameter.kind != ArgumentKind::Buffer) {
      text += " = " + std::to_string(argument.number);
    }
  }
  return text + ")";
}

}  // namespace tolvex::ctl

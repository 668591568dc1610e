#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "base/printable.h"
#include "commands/commands.h"
#include "commands/export_call.h"
#include "commands/weight.h"

namespace tolvex::ctl {
namespace {

constexpr char kCallExamples[] =
    "  tolvexctl call GetPrinterStatus 100\n"
    "  tolvexctl call GetPrinterList 256                    buffers are left out, their size is "
    "not\n"
    "  tolvexctl call PrintText 'Hello' 28 + BeginPrint 8   in one process, one after the other\n"
    "  tolvexctl call sendRawCmdToLC checkConnection 2048 5000 --null parameters\n"
    "  tolvexctl call setHighResWeightMode -- -1            after -- a word may begin with '-'\n"
    "  tolvexctl call --list\n";

// What stands between two calls.
constexpr char kAndThen[] = "+";

struct CallOptions {
  bool list = false;
  std::vector<std::string> words;
  std::vector<std::string> nulls;
};

std::vector<std::string> exportNames() {
  std::vector<std::string> names;
  for (const ExportRow& row : exportTable()) names.push_back(row.name);
  return names;
}

ExitCode list(Output& out) {
  ordered_json value = {{"exports", ordered_json::array()}};
  std::string text;
  std::string group;
  for (const ExportRow& row : exportTable()) {
    value["exports"].push_back(
        {{"name", row.name}, {"group", row.group}, {"signature", row.signature}});
    if (row.group != group) {
      if (!group.empty()) text += '\n';
      group = row.group;
      text += out.paint(Colour::Strong, group) + '\n';
    }
    text += "  " + row.signature + '\n';
  }
  out.result(value, text);
  return ExitCode::Fine;
}

// \+ stands for the text +, \\+ for \+, and so on.
std::vector<std::string> withoutEscapes(std::vector<std::string> words) {
  for (std::string& word : words) {
    const std::size_t backslashes = std::min(word.find_first_not_of('\\'), word.size());
    if (backslashes > 0 && word.substr(backslashes) == kAndThen) word.erase(0, 1);
  }
  return words;
}

std::vector<ExportCall> understand(const CallOptions& options) {
  if (options.words.empty()) {
    throw Failure(ExitCode::Usage, "call needs the name of an export",
                  "tolvexctl call --list shows them all.");
  }
  const std::set<std::string> nulls(options.nulls.begin(), options.nulls.end());
  std::vector<ExportCall> calls;
  auto begin = options.words.begin();
  for (;;) {
    const auto end = std::find(begin, options.words.end(), kAndThen);
    if (begin == end) {
      throw Failure(ExitCode::Usage, "there is no export beside a +",
                    "Write a + between two calls only. The text + is written \\+.");
    }
    calls.push_back(understandCall(withoutEscapes({begin, end}), nulls));
    if (end == options.words.end()) return calls;
    begin = end + 1;
  }
}

// Without the zeros at the end, which the caller made.
std::string written(const std::string& buffer) {
  const std::size_t last = buffer.find_last_not_of('\0');
  return buffer.substr(0, last == std::string::npos ? 0 : last + 1);
}

std::string hex(const std::string& bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (!text.empty()) text += ' ';
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0x0Fu];
  }
  return text;
}

// The record of a weighing export, null for any other buffer and for a call that failed.
ordered_json recordIn(const ExportCall& call, const CallOutcome& outcome,
                      const std::string& buffer) {
  if (outcome.value != TOLVEX_OK || buffer.empty()) return nullptr;
  if (call.row->name.rfind("read_standard", 0) == 0) {
    tolvex_weight record;
    std::memcpy(&record, buffer.data(), sizeof(record));
    const auto weight = weightIn(record);
    return weight ? toJson(*weight, "") : ordered_json(nullptr);
  }
  if (call.row->name.rfind("read_baseinfo", 0) == 0) {
    tolvex_base_info record;
    std::memcpy(&record, buffer.data(), sizeof(record));
    return toJson(record);
  }
  return nullptr;
}

// What the buffers hold, each by the name of its parameter.
ordered_json buffersOf(const ExportCall& call, const CallOutcome& outcome) {
  ordered_json buffers = ordered_json::object();
  for (std::size_t i = 0; i < outcome.buffers.size(); ++i) {
    const Parameter& parameter = call.row->parameters[i];
    if (parameter.kind != ArgumentKind::Buffer || call.arguments[i].isNull) continue;
    const std::string bytes = written(outcome.buffers[i]);
    ordered_json& buffer = buffers[parameter.name];
    buffer = {{"text", textIn(bytes)}, {"hex", hex(bytes)}};
    const ordered_json record = recordIn(call, outcome, outcome.buffers[i]);
    if (!record.is_null()) buffer["record"] = record;
  }
  return buffers;
}

ordered_json outcomeAsJson(const ExportCall& call, const CallOutcome& outcome) {
  const CallVerdict verdict = verdictOf(call, outcome);
  ordered_json value = {{"export", call.row->name}, {"result", outcome.value},
                        {"name", nullptr},          {"meaning", nullptr},
                        {"remedy", nullptr},        {"last_error", outcome.lastError}};
  if (verdict.meaning != nullptr) {
    value["name"] = verdict.meaning->name;
    value["meaning"] = verdict.meaning->meaning;
    value["remedy"] = verdict.meaning->remedy;
  }
  value["buffers"] = buffersOf(call, outcome);
  return value;
}

std::string explained(int code) {
  const CodeText* const row = findCode(code);
  std::string text = codeLine(code) + '\n';
  if (row != nullptr) text += std::string("  ") + row->meaning + "\n  fix: " + row->remedy + '\n';
  return text;
}

// A text in a record may end in the middle of a character.
std::string recordAsText(const ordered_json& record) {
  return printable(record.dump(-1, ' ', false, ordered_json::error_handler_t::replace));
}

std::string outcomeAsText(const ExportCall& call, const CallOutcome& outcome,
                          const ordered_json& value) {
  const CallVerdict verdict = verdictOf(call, outcome);
  std::string text = toText(call) + " -> " + std::to_string(outcome.value);
  if (verdict.meaning != nullptr) {
    text += std::string(" ") + verdict.meaning->name + ": " + verdict.meaning->meaning;
  }
  text += '\n';
  if (outcome.value == TOLVEX_FAILED) text += "  last error: " + explained(outcome.lastError);
  for (const auto& [name, buffer] : value["buffers"].items()) {
    text += "  " + name + ": \"" + printable(buffer["text"].get<std::string>()) + "\"\n";
    const auto digits = buffer["hex"].get<std::string>();
    if (!digits.empty()) text += "    " + digits + '\n';
    if (buffer.contains("record")) text += "    " + recordAsText(buffer["record"]) + '\n';
  }
  return text;
}

// The calls stop at the first that fails: what comes after it counts on it.
ExitCode call(Context& context, const CallOptions& options) {
  if (options.list) return list(context.out);
  ordered_json made = ordered_json::array();
  std::string text;
  ExitCode exit = ExitCode::Fine;
  for (const ExportCall& each : understand(options)) {
    const CallOutcome outcome = makeCall(each, context);
    made.push_back(outcomeAsJson(each, outcome));
    text += outcomeAsText(each, outcome, made.back());
    exit = verdictOf(each, outcome).exit;
    if (exit != ExitCode::Fine) break;
  }
  context.out.result({{"ok", exit == ExitCode::Fine}, {"calls", made}, {"exit", exit}}, text);
  return exit;
}

}  // namespace

void addCall(CLI::App& app, Registry& registry) {
  CLI::App* const command =
      Registry::addCommand(app, "call", "Call any export of the library", kCallExamples);
  auto options = std::make_shared<CallOptions>();
  CLI::Option* const words =
      command
          ->add_option("EXPORT", options->words,
                       "The export and its arguments; + begins a further call")
          ->option_text("ARG...");
  registry.offers(words, exportNames());
  command->add_option("--null", options->nulls, "Parameter to pass null for, by its name")
      ->type_name("NAME")
      ->allow_extra_args(false);
  command->add_flag("--list", options->list, "Show all exports as they are declared");
  registry.does(command, [options](Context& context) { return call(context, *options); });
}

}  // namespace tolvex::ctl

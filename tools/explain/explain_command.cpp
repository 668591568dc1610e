#include "explain/explain_command.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "base/printable.h"
#include "explain/code_search.h"

namespace tolvex::ctl {
namespace {

constexpr char kExplainCommandExamples[] =
    "  tolvexctl explain 2006             a number from the log or from getLastErrCode()\n"
    "  tolvexctl explain 2006 1007        several of them\n"
    "  tolvexctl explain out of paper     a name or a text, in any spelling\n"
    "  tolvexctl explain 0xff             as the log writes it\n"
    "  tolvexctl explain -1               an unreadable reply\n"
    "  tolvexctl explain --all            all of them\n";

struct Options {
  std::vector<std::string> words;
  bool all = false;
};

ordered_json toJson(const CodeText& row) {
  return {{"code", row.code},    {"kind", isResultCode(row) ? "result code" : "answer"},
          {"name", row.name},    {"constant", constantOf(row)},
          {"text", row.text},    {"meaning", row.meaning},
          {"remedy", row.remedy}};
}

std::string toText(const CodeText& row, const Output& out) {
  const std::string head = std::to_string(row.code) + ' ' + row.name + " (" + row.text + ')';
  return out.paint(Colour::Strong, head) + "\n  constant: " + constantOf(row) +
         "\n  meaning:  " + row.meaning + "\n  remedy:   " + row.remedy + '\n';
}

std::string joined(const std::vector<std::string>& words, const char* separator) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : separator) + word;
  return text;
}

[[noreturn]] void refuse(const std::string& asked) {
  const std::vector<std::string> similar = similarNames(asked);
  const std::string list =
      "tolvexctl explain --all lists all codes. A number that is not there is "
      "the service's own: read its log.";
  throw Failure(ExitCode::Failed, "there is no code or name \"" + printable(asked) + "\"",
                similar.empty() ? list : "Do you mean " + joined(similar, ", ") + "? " + list);
}

std::vector<const CodeText*> rowsFor(const std::string& asked) {
  const std::optional<int> number = numberIn(asked);
  std::vector<const CodeText*> rows = number ? findByNumber(*number) : findByName(asked);
  if (rows.empty()) refuse(asked);
  return rows;
}

// Several numbers are several questions, other words make up one name.
std::vector<const CodeText*> find(const Options& options) {
  if (options.all) return allRows();
  const bool areNumbers =
      std::all_of(options.words.begin(), options.words.end(),
                  [](const std::string& word) { return numberIn(word).has_value(); });
  if (!areNumbers) return rowsFor(joined(options.words, " "));
  std::vector<const CodeText*> rows;
  for (const std::string& word : options.words) {
    for (const CodeText* row : rowsFor(word)) rows.push_back(row);
  }
  return rows;
}

ExitCode runExplain(Context& context, const Options& options) {
  if (!options.all && options.words.empty()) {
    throw Failure(ExitCode::Usage, "explain needs a code, a name or --all",
                  "As in tolvexctl explain 2006.");
  }
  ordered_json codes = ordered_json::array();
  std::string text;
  for (const CodeText* row : find(options)) {
    codes.push_back(toJson(*row));
    text += (text.empty() ? "" : "\n") + toText(*row, context.out);
  }
  context.out.result({{"codes", codes}}, text);
  return ExitCode::Fine;
}

}  // namespace

void addExplain(CLI::App& app, Registry& registry) {
  CLI::App* const command =
      Registry::addCommand(app, "explain", "Tell what a result code means, and what to do about it",
                           kExplainCommandExamples);
  const auto options = std::make_shared<Options>();
  command->add_option("code", options->words, "A number, a name or a text")->type_name("CODE|NAME");
  command->add_flag("--all", options->all, "All codes and answers");
  registry.does(command, [options](Context& context) { return runExplain(context, *options); });
}

}  // namespace tolvex::ctl

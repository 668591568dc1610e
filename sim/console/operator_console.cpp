#include "console/operator_console.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <utility>
#include <vector>

#include "base/printable.h"
#include "devices/scale.h"

namespace tolvex::sim {

namespace {

constexpr int kFewestDecimals = 3;
constexpr std::size_t kMaxEchoBytes = 40;

struct Context {
  Scale& scale;
  const std::function<void()>& quit;
  TimePoint now;
};

// Handlers get their one argument, or an empty text if the row has none.
struct Row {
  const char* name;
  const char* argument;
  std::string (*handle)(const Context& context, const std::string& argument);
};

std::string usage(const Row& row) {
  return std::string(row.name) + (*row.argument == '\0' ? "" : " ") + row.argument;
}

// Loads are not shown with fewer decimals than weights, even if they end in zeros.
std::string loadText(Milligrams load) {
  const int needed = load == 0 ? 0 : decimalsOf(std::abs(load));
  return formatKilograms(load, std::max(kFewestDecimals, needed)) + " kg";
}

std::string putLoad(const Context& context, Milligrams load) {
  context.scale.setLoad(load, context.now);
  return "ok load " + loadText(load);
}

std::string load(const Context& context, const std::string& argument) {
  const auto mass = parseKilograms(argument);
  if (!mass || std::abs(*mass) > Scale::kMaxLoad) {
    return "error: load needs a number of kilograms from -1000 to 1000, as in: load 0.482";
  }
  return putLoad(context, *mass);
}

std::string empty(const Context& context, const std::string&) { return putLoad(context, 0); }

std::string invalid(const Context& context, const std::string& argument) {
  if (argument != "on" && argument != "off") {
    return "error: invalid needs on or off, as in: invalid on";
  }
  context.scale.setInvalid(argument == "on");
  return "ok invalid " + argument;
}

std::string unplug(const Context& context, const std::string&) {
  context.scale.unplug();
  return "ok unplugged";
}

std::string plug(const Context& context, const std::string&) {
  context.scale.plug(context.now);
  return "ok plugged in";
}

const char* describe(TareKind kind) {
  switch (kind) {
    case TareKind::ByKey:
      return " by key";
    case TareKind::Preset:
      return " preset";
    case TareKind::None:
      break;
  }
  return "";
}

std::string status(const Context& context, const std::string&) {
  const Weight weight = context.scale.weigh(context.now);
  const int decimals = context.scale.config().decimals();
  std::ostringstream line;
  line << "ok gross " << formatKilograms(weight.gross, decimals)  //
       << ", net " << formatKilograms(weight.net, decimals)       //
       << ", tare " << formatKilograms(weight.tare, decimals) << describe(weight.tareKind)
       << (weight.stable ? ", stable" : ", moving")  //
       << (weight.zero ? ", at zero" : ", not at zero") << ", state " << toText(weight.result)
       << " " << message(weight.result);
  return line.str();
}

std::string quit(const Context& context, const std::string&) {
  context.quit();
  return "ok stopping";
}

std::string help(const Context& context, const std::string& argument);

constexpr Row kRows[] = {
    {"load", "KG", load},   {"empty", "", empty}, {"invalid", "on|off", invalid},
    {"unplug", "", unplug}, {"plug", "", plug},   {"status", "", status},
    {"help", "", help},     {"quit", "", quit},
};

std::string listOfCommands() {
  std::string list;
  for (const Row& row : kRows) list += (list.empty() ? "" : ", ") + usage(row);
  return list;
}

std::string help(const Context&, const std::string&) { return "ok commands: " + listOfCommands(); }

std::vector<std::string> splitWords(std::string_view line) {
  std::istringstream stream{std::string(line)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

}  // namespace

OperatorConsole::OperatorConsole(Scale& scale, std::function<void()> quit)
    : scale_(scale), quit_(std::move(quit)) {}

std::string OperatorConsole::execute(std::string_view line, TimePoint now) {
  const std::vector<std::string> words = splitWords(line);
  if (words.empty()) return "";
  const auto row = std::find_if(std::begin(kRows), std::end(kRows),
                                [&](const Row& candidate) { return candidate.name == words[0]; });
  if (row == std::end(kRows)) {
    return "error: unknown command \"" + printable(words[0], kMaxEchoBytes) +
           "\"; the commands are: " + listOfCommands();
  }
  const std::size_t expected = *row->argument == '\0' ? 1 : 2;
  if (words.size() != expected) return "error: the command is: " + usage(*row);
  return row->handle({scale_, quit_, now}, expected == 2 ? words[1] : "");
}

}  // namespace tolvex::sim

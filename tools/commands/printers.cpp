#include "commands/printers.h"

#include <memory>
#include <optional>

#include "base/printable.h"
#include "base/reply_size.h"
#include "commands/commands.h"
#include "commands/printer_options.h"

namespace tolvex::ctl {
namespace {

constexpr unsigned kPrinterTypes[] = {0, 1, 2};

// ---- printers ----

// The firmware in a reply, the reply itself when it has another shape.
std::string firmwareOf(Service& service, const std::string& printer) {
  const Answer answer = service.read(TOLVEX_EXPORT(getPrinterVersion), kReplySize, printer);
  Service::checkVerdict("read the version of " + printer, answer);
  const std::string reply = textIn(answer.bytes);
  const ordered_json value = ordered_json::parse(reply, nullptr, false);
  const bool hasVersion =
      value.is_object() && value.contains("version") && value["version"].is_string();
  return hasVersion ? value["version"].get<std::string>() : reply;
}

ExitCode printers(Context& context, bool withVersions) {
  ordered_json list = ordered_json::array();
  std::string text;
  for (const std::string& name : listPrinters(context.service())) {
    ordered_json printer = {{"name", name}};
    text += printable(name);
    if (withVersions) {
      const std::string firmware = firmwareOf(context.service(), name);
      printer["firmware"] = firmware;
      text += "  " + printable(firmware);
    }
    text += '\n';
    list.push_back(printer);
  }
  context.out.result({{"printers", list}}, text);
  return ExitCode::Fine;
}

// ---- status ----

struct Status {
  unsigned printer;
  int code;
};

// Of the printer asked for, or of all that the service has.
std::vector<Status> readStatus(Service& service, const std::optional<unsigned>& printer) {
  std::vector<Status> all;
  if (printer) return {{*printer, service.call(TOLVEX_EXPORT(GetPrinterStatus), *printer).value}};
  for (const unsigned type : kPrinterTypes) {
    const int code = service.call(TOLVEX_EXPORT(GetPrinterStatus), type).value;
    if (code != TOLVEX_RESULT_PRINTER_NOT_FOUND) all.push_back({type, code});
    // Without the service the others would take as long to say the same.
    if (exitOf(code) == ExitCode::Unreachable) break;
  }
  return all;
}

std::string statusAsText(const Status& status, Output& out) {
  const CodeText* const row = findCode(status.code);
  const std::string name =
      std::to_string(status.printer) + " " + printerName(status.printer) + ": ";
  if (status.code == TOLVEX_RESULT_OK) return name + out.paint(Colour::Good, "ready") + '\n';
  std::string text = name + out.paint(Colour::Bad, codeLine(status.code)) + '\n';
  if (row != nullptr) text += std::string("  ") + row->meaning + '\n';
  return text + "  fix: " + remedyOf(status.code) + '\n';
}

ExitCode status(Context& context, const std::optional<unsigned>& printer) {
  ordered_json list = ordered_json::array();
  std::string text;
  ExitCode exit = ExitCode::Fine;
  for (const Status& each : readStatus(context.service(), printer)) {
    ordered_json value = {{"type", each.printer}, {"ready", each.code == TOLVEX_RESULT_OK}};
    value.update(toJson(each.code));
    list.push_back(value);
    text += statusAsText(each, context.out);
    if (each.code != TOLVEX_RESULT_OK) exit = exitOf(each.code);
  }
  context.out.result({{"ok", exit == ExitCode::Fine}, {"printers", list}, {"exit", exit}}, text);
  return exit;
}

}  // namespace

std::vector<std::string> listPrinters(Service& service) {
  const Answer answer = service.read(TOLVEX_EXPORT(GetPrinterList), kReplySize);
  Service::checkReading("list the printers", answer);
  std::vector<std::string> names;
  const std::string text = textIn(answer.bytes);
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t comma = std::min(text.find(',', begin), text.size());
    if (comma > begin) names.push_back(text.substr(begin, comma - begin));
    begin = comma + 1;
  }
  return names;
}

void addPrinters(CLI::App& app, Registry& registry) {
  CLI::App* const command =
      Registry::addCommand(app, "printers", "List the names of the printers",
                           "  tolvexctl printers\n  tolvexctl printers --versions --json\n");
  auto withVersions = std::make_shared<bool>(false);
  command->add_flag("--versions", *withVersions, "With the version of each one's firmware");
  registry.does(command,
                [withVersions](Context& context) { return printers(context, *withVersions); });
}

void addStatus(CLI::App& app, Registry& registry) {
  CLI::App* const command =
      Registry::addCommand(app, "status", "Show whether the printers are ready, and if not, why",
                           "  tolvexctl status                all of them\n"
                           "  tolvexctl status --printer 1    the ticket printer\n");
  auto printer = std::make_shared<std::optional<unsigned>>();
  addPrinterType(*command, registry, *printer, "Printer type: 0 label, 1 ticket, 2, 100");
  registry.does(command, [printer](Context& context) { return status(context, *printer); });
}

}  // namespace tolvex::ctl

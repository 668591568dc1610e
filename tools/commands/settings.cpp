// The settings of printers, service and scale: a row each.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/printable.h"
#include "base/whole_number.h"
#include "commands/checks.h"
#include "commands/commands.h"
#include "commands/export_call.h"
#include "commands/printer_options.h"

namespace tolvex::ctl {
namespace {

constexpr unsigned kLevelSize = 4096;  // a reply has at most 2048 bytes
constexpr std::int64_t kMostUnsigned = 4294967295;

enum class Whose { PrinterType, PrinterName, Nobody };

struct Setting {
  const char* word;
  const char* exportName;  // its first parameter is the value, its second the printer
  const char* description;
  Whose whose;
  bool isSwitch;  // on or off, sent as 1 or 0
};

constexpr Setting kSettings[] = {
    {"width", "setDefaultPaperWidth", "Width of the paper in mm", Whose::PrinterType, false},
    {"gap-type", "setGapType", "How labels are told apart, a number", Whose::PrinterType, false},
    {"direction", "setPrinterDirection", "Which way round is printed, a number", Whose::PrinterType,
     false},
    {"wrap", "setTextWrapMode", "What becomes of lines that are too long, a number",
     Whose::PrinterType, false},
    {"left-margin", "setLeftMargin", "Left margin", Whose::PrinterName, false},
    {"right-margin", "setRightMargin", "Right margin", Whose::PrinterName, false},
    {"offset", "setPaperOffset", "Where on the paper printing begins", Whose::PrinterName, false},
    {"contrast", "setPrintContrast", "How dark is printed", Whose::PrinterName, false},
    {"speed", "setPrintSpeed", "How fast is printed", Whose::PrinterName, false},
    {"autoprint", "setPrtAutoPrint", "Automatic printing", Whose::PrinterName, true},
    {"rollback", "setRollback", "Rolling the paper back", Whose::PrinterName, true},
    {"takeup-sensor", "setTakeupPaperSensor", "The sensor for taken paper", Whose::PrinterName,
     true},
    {"overload-alarm", "setOverloadAlarm", "The scale's alarm at overload", Whose::Nobody, true},
};

constexpr char kSettingsExamples[] =
    "  tolvexctl settings width 58 --printer 1\n"
    "  tolvexctl settings contrast 60 --printer Label     names are those of tolvexctl printers\n"
    "  tolvexctl settings takeup-sensor on --printer Label\n"
    "  tolvexctl settings log-level print                 what is set\n"
    "  tolvexctl settings log-level print 2\n";

struct SettingOptions {
  std::string value;
  std::optional<unsigned> type;
  std::string name;
};

CLI::Validator switchCheck() {
  return CLI::Validator(
      [](const std::string& text) -> std::string {
        return text == "on" || text == "off" ? "" : "\"" + text + "\" is neither on nor off";
      },
      "");
}

std::int64_t numberOf(const std::string& value) {
  if (value == "on") return 1;
  return value == "off" ? 0 : parseWholeNumber(value).value();
}

ExportCall callFor(const Setting& setting, const SettingOptions& options) {
  ExportCall call;
  call.row = findExport(setting.exportName);
  call.arguments.resize(call.row->parameters.size());
  call.arguments[0].number = numberOf(options.value);
  if (setting.whose == Whose::PrinterType) {
    call.arguments[1].number = options.type.value_or(TOLVEX_DEFAULT_PRINTER);
  } else if (setting.whose == Whose::PrinterName) {
    call.arguments[1].text = options.name;
  }
  return call;
}

std::string whoseName(const Setting& setting, const SettingOptions& options) {
  switch (setting.whose) {
    case Whose::PrinterType:
      return printerName(options.type.value_or(TOLVEX_DEFAULT_PRINTER));
    case Whose::PrinterName:
      return printable(options.name);
    case Whose::Nobody:
      break;
  }
  return "the scale";
}

ExitCode set(Context& context, const Setting& setting, const SettingOptions& options) {
  const ExportCall call = callFor(setting, options);
  const CallOutcome outcome = makeCall(call, context);
  const std::string purpose =
      std::string("set ") + setting.word + " of " + whoseName(setting, options);
  if (outcome.value != TOLVEX_OK && outcome.value != TOLVEX_RESULT_OK) {
    const bool isVerdict = outcome.value == TOLVEX_FAILED;
    Service::checkCode(purpose, isVerdict && outcome.lastError != TOLVEX_RESULT_OK
                                    ? outcome.lastError
                                    : outcome.value);
  }
  ordered_json value = {{"setting", setting.word}, {"value", call.arguments[0].number}};
  if (setting.whose == Whose::PrinterType) value["printer"] = call.arguments[1].number;
  if (setting.whose == Whose::PrinterName) value["printer"] = options.name;
  context.out.result(value, std::string(setting.word) + " of " + whoseName(setting, options) +
                                " is set to " + options.value + ".\n");
  return ExitCode::Fine;
}

void addSetting(CLI::App& settings, Registry& registry, const Setting& setting) {
  CLI::App* const command = settings.add_subcommand(setting.word, setting.description);
  auto options = std::make_shared<SettingOptions>();
  CLI::Option* const value = command->add_option("VALUE", options->value, setting.description);
  value->option_text(" ")->required();
  if (setting.isSwitch) {
    value->check(switchCheck());
    registry.offers(value, {"on", "off"});
  } else {
    value->check(numberCheck(0, kMostUnsigned));
  }
  if (setting.whose == Whose::PrinterType) {
    addPrinterType(*command, registry, options->type,
                   "Printer type: 0 label, 1 ticket, 2, 100; default 100");
  } else if (setting.whose == Whose::PrinterName) {
    command
        ->add_option("--printer", options->name,
                     "Name of the printer; tolvexctl printers lists them")
        ->type_name("NAME")
        ->required();
  }
  registry.does(command,
                [options, &setting](Context& context) { return set(context, setting, *options); });
}

// ---- The service's log level ----

struct LevelOptions {
  std::string module;
  std::string level;
};

ExitCode logLevel(Context& context, const LevelOptions& options) {
  Service& service = context.service();
  std::string level = options.level;
  if (level.empty()) {
    // The module comes before the buffer, unlike in every other export.
    auto buffer = std::make_shared<std::string>(kLevelSize, '\0');
    auto* const read = context.library().get(TOLVEX_EXPORT(getLogLevel));
    const Answer answer = service.perform([read, buffer, module = options.module] {
      return read(module.c_str(), buffer->data(), kLevelSize);
    });
    Service::checkReadingCode("read the log level of " + options.module, answer.value);
    level = textIn(*buffer);
  } else {
    service.code("set the log level of " + options.module, TOLVEX_EXPORT(setLogLevel),
                 options.module, level);
  }
  context.out.result({{"module", options.module}, {"level", level}},
                     options.module + " " + printable(level) + '\n');
  return ExitCode::Fine;
}

void addLogLevel(CLI::App& settings, Registry& registry) {
  CLI::App* const command =
      settings.add_subcommand("log-level", "What the service logs, shown or set");
  auto options = std::make_shared<LevelOptions>();
  CLI::Option* const module =
      command->add_option("MODULE", options->module, "Part of the service: print or loadcell");
  module->option_text(" ")->required()->check(CLI::IsMember({"print", "loadcell"}).description(""));
  registry.offers(module, {"print", "loadcell"});
  command->add_option("LEVEL", options->level, "The level to set; without it, the one in force")
      ->option_text(" ");
  registry.does(command, [options](Context& context) { return logLevel(context, *options); });
}

}  // namespace

void addSettings(CLI::App& app, Registry& registry) {
  CLI::App* const command = Registry::addCommand(
      app, "settings", "Set printers, scale and the service's log", kSettingsExamples);
  command->require_subcommand(0, 1);
  for (const Setting& setting : kSettings) addSetting(*command, registry, setting);
  addLogLevel(*command, registry);
  for (CLI::App* const setting : command->get_subcommands([](CLI::App*) { return true; })) {
    setting->footer(std::string("Examples:\n") + kSettingsExamples);
  }
}

}  // namespace tolvex::ctl

#include <string>

#include "base/printable.h"
#include "base/reply_size.h"
#include "commands/commands.h"
#include "commands/weight.h"

namespace tolvex::ctl {
namespace {

// The service's reply with its version, as it came; a text that is no JSON stays a text.
ordered_json serviceVersion(Service& service) {
  const Answer answer = service.read(TOLVEX_EXPORT(getLCVersion), kReplySize);
  Service::checkCode("read the service's version", answer.value);
  const std::string reply = textIn(answer.bytes);
  ordered_json value = ordered_json::parse(reply, nullptr, false);
  if (!value.is_object()) return reply;
  value.erase("result");
  return value;
}

std::string shown(const ordered_json& value) {
  if (value.is_string()) return printable(value.get<std::string>());
  return printable(value.dump(-1, ' ', false, ordered_json::error_handler_t::replace));
}

std::string rangesText(const ordered_json& scale, const std::string& unit) {
  std::string text;
  for (const ordered_json& range : scale["ranges"]) {
    if (range["max"] == 0) continue;
    if (!text.empty()) text += "; ";
    text.append(toText(range["max"].get<double>())).append(unit);
    text.append(" in ").append(toText(range["resolution"].get<double>())).append(unit);
  }
  return text;
}

std::string scaleText(const ordered_json& scale) {
  const std::string name = printable(scale["unit"].get<std::string>());
  const std::string unit = name.empty() ? "" : " " + name;
  const auto amount = [&](const char* member) {
    return toText(scale[member].get<double>()) + unit;
  };
  return "scale     to " + rangesText(scale, unit) + "; from " + amount("min") + "\n" +
         "tare      to " + amount("max_tare") + ", preset to " + amount("max_preset_tare") + "\n" +
         "firmware  " + shown(scale["system_version"]) + "\n";
}

ExitCode info(Context& context) {
  const ordered_json scale = toJson(readBaseInfo(context.service()));
  const ordered_json service = serviceVersion(context.service());
  const Library& library = context.library();
  const std::string version = library.version();
  const ordered_json value = {{"scale", scale},
                              {"service", service},
                              {"library", {{"path", library.path()}, {"version", version}}}};
  const bool hasVersion = service.is_object() && service.contains("version");
  context.out.result(value, scaleText(scale) + "service   " +
                                shown(hasVersion ? service["version"] : service) + "\n" +
                                "library   " + (version.empty() ? "" : version + ", ") +
                                printable(library.path()) + "\n");
  return ExitCode::Fine;
}

}  // namespace

void addInfo(CLI::App& app, Registry& registry) {
  registry.does(
      Registry::addCommand(app, "info", "Show what scale, service and library say of themselves",
                           "  tolvexctl info\n  tolvexctl info --json\n"),
      info);
}

}  // namespace tolvex::ctl

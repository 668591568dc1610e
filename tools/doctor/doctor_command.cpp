#include "doctor/doctor_command.h"

#include <array>
#include <cstdlib>
#include <memory>

#include "base/printable.h"
#include "base/version.h"
#include "bundle/bundle.h"
#include "doctor/examination.h"
#include "logs/log_ring.h"
#include "logs/log_time.h"
#include "platform/system.h"

namespace tolvex::ctl {
namespace {

constexpr char kDoctorCommandExamples[] =
    "  tolvexctl doctor                             what is wrong, and how to mend it\n"
    "  tolvexctl doctor --app C:\\Shop\\Shop.exe       with this application's library and INI "
    "file\n"
    "  tolvexctl doctor --host 192.168.1.20         the service on another machine\n"
    "  tolvexctl doctor --skip scale                for a till that has no scale\n"
    "  tolvexctl doctor --fix                       make the log folder if it is missing\n"
    "  tolvexctl doctor --bundle support.zip        report, INI file and masked log for support\n";

constexpr std::array<const char*, 12> kVariables = {
    "LC_ALL",          "LC_CTYPE", "LANG",     "XDG_STATE_HOME", "HOME", "TZ",
    "LD_LIBRARY_PATH", "TERM",     "NO_COLOR", "SystemRoot",     "OS",   "PROCESSOR_ARCHITECTURE"};

struct Options {
  DoctorOptions doctor;
  std::string bundle;
  bool force = false;
};

std::string environmentText() {
  std::string text;
  for (const char* name : kVariables) {
    const char* const value = std::getenv(name);
    text += std::string(name) + (value != nullptr ? "=" + printable(value) : " is not set") + '\n';
  }
  return text;
}

// The library as the report found it; null where it was not found.
ordered_json libraryOf(const Report& report) {
  for (const Finding& finding : report.layers.front().findings) {
    if (finding.facts.contains("path")) return finding.facts;
  }
  return nullptr;
}

std::string versionsText(const Report& report) {
  const ordered_json value = {{"tolvexctl", version()},
                              {"library", libraryOf(report)},
                              {"system", platform::systemName()},
                              {"code_page", platform::codePageName()},
                              {"made_at", logTimeText(currentLogTime(), 'T')}};
  return value.dump(2, ' ', false, ordered_json::error_handler_t::replace) + '\n';
}

BundleContents contentsOf(Context& context, const Examination& examination, const Report& report) {
  BundleContents contents;
  const std::string json =
      toJson(report).dump(2, ' ', false, ordered_json::error_handler_t::replace) + '\n';
  contents.files = {{"report.txt", toText(report, plainPaint)},
                    {"report.json", json},
                    {"versions.json", versionsText(report)},
                    {"environment.txt", environmentText()},
                    {"library-messages.txt", context.out.libraryMessages()}};
  contents.iniPath = examination.iniPath();
  contents.logFolders = logFolders();
  return contents;
}

ExitCode runDoctor(Context& context, const Options& options) {
  if (!options.bundle.empty()) checkBundlePath(options.bundle, options.force);
  Examination examination(context, options.doctor);
  const Report report = examination.run();
  const auto paint = [&context](Colour colour, const std::string& text) {
    return context.out.paint(colour, text);
  };
  std::string text = toText(report, paint);
  ordered_json value = toJson(report);
  if (!options.bundle.empty()) {
    try {
      writeBundle(options.bundle, contentsOf(context, examination, report));
    } catch (const Failure&) {
      // What was found may be why: a full disk.
      if (!context.out.json()) context.out.result({}, text);
      throw;
    }
    text +=
        "\nThe bundle for support is " + options.bundle + ". Texts of receipts are masked in it.\n";
    value["bundle"] = options.bundle;
  }
  context.out.result(value, text);
  return report.exit();
}

}  // namespace

void addDoctor(CLI::App& app, Registry& registry) {
  CLI::App* const command = Registry::addCommand(
      app, "doctor", "Find out what is wrong, layer by layer, and how to mend it",
      kDoctorCommandExamples);
  const auto options = std::make_shared<Options>();
  command->add_flag("--fix", options->doctor.fix, "Make the log folder if it is missing");
  CLI::Option* const skip =
      command->add_option("--skip", options->doctor.skip, "Leave layers out, several with commas")
          ->delimiter(',')
          ->type_name("LAYER")
          ->check(CLI::IsMember(layerNames()));
  registry.offers(skip, layerNames());
  CLI::Option* const bundle =
      command
          ->add_option("--bundle", options->bundle,
                       "Write report, INI file, versions and log to a ZIP file for support")
          ->type_name("FILE");
  command->add_flag("--force", options->force, "Replace that file if it is there")->needs(bundle);
  registry.does(command, [options](Context& context) { return runDoctor(context, *options); });
}

}  // namespace tolvex::ctl

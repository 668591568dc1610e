// What is done with the paper, beside printing, and the drawer.
#include <memory>
#include <optional>
#include <string>

#include "commands/checks.h"
#include "commands/commands.h"
#include "commands/printer_options.h"

namespace tolvex::ctl {
namespace {

constexpr unsigned kLabelPrinter = 0;
constexpr unsigned kTicketPrinter = 1;

struct FeedOptions {
  std::optional<unsigned> distance;
  std::optional<unsigned> printer;
};

ExitCode feed(Context& context, const FeedOptions& options) {
  Service& service = context.service();
  if (options.distance) {
    service.verdict("feed the paper", TOLVEX_EXPORT(printBlanks), *options.distance);
  } else if (options.printer) {
    service.verdict("feed the paper", TOLVEX_EXPORT(feedPaperById), *options.printer);
  } else {
    service.verdict("feed the paper", TOLVEX_EXPORT(feedPaper));
  }
  context.out.result({{"fed", true}}, "Fed.\n");
  return ExitCode::Fine;
}

void addFeed(CLI::App& app, Registry& registry) {
  CLI::App* const command = Registry::addCommand(app, "feed", "Feed blank paper",
                                                 "  tolvexctl feed\n"
                                                 "  tolvexctl feed --distance 40\n"
                                                 "  tolvexctl feed --printer 0\n");
  auto options = std::make_shared<FeedOptions>();
  CLI::Option* const distance =
      command
          ->add_option("--distance", options->distance,
                       "How far, 1 to 1000 in the service's unit, on the default printer")
          ->type_name("N")
          ->check(numberCheck(1, 1000));
  addPrinterType(*command, registry, options->printer, "Printer type: 0 label, 1 ticket, 2, 100")
      ->excludes(distance);
  registry.does(command, [options](Context& context) { return feed(context, *options); });
}

void addCut(CLI::App& app, Registry& registry) {
  CLI::App* const command = Registry::addCommand(app, "cut", "Cut the paper",
                                                 "  tolvexctl cut\n  tolvexctl cut --printer 1\n");
  auto printer = std::make_shared<std::optional<unsigned>>();
  addPrinterType(*command, registry, *printer,
                 "Printer type: 0 label, 1 ticket, 2, 100; default the default printer");
  registry.does(command, [printer](Context& context) {
    if (*printer) {
      context.service().code("cut the paper", TOLVEX_EXPORT(cutPaperById), **printer);
    } else {
      context.service().verdict("cut the paper", TOLVEX_EXPORT(cutPaper));
    }
    context.out.result({{"cut", true}}, "Cut.\n");
    return ExitCode::Fine;
  });
}

struct CalibrateOptions {
  std::string what = "label";
  std::optional<unsigned> printer;
};

ExitCode calibrate(Context& context, const CalibrateOptions& options) {
  Service& service = context.service();
  const bool isLabel = options.what == "label";
  const unsigned printer = options.printer.value_or(isLabel ? kLabelPrinter : kTicketPrinter);
  if (isLabel) {
    service.verdict("measure the gap between the labels", TOLVEX_EXPORT(calibrateLabel), printer);
  } else {
    service.code("calibrate the sensor for the end of the paper", TOLVEX_EXPORT(testPaper),
                 printer);
  }
  context.out.result(
      {{"calibrated", options.what}, {"printer", printer}},
      std::string(isLabel ? "Gap between the labels" : "Sensor for the paper's end") +
          " calibrated on " + printerName(printer) + ".\n");
  return ExitCode::Fine;
}

void addCalibrate(CLI::App& app, Registry& registry) {
  CLI::App* const command = Registry::addCommand(
      app, "calibrate",
      "Measure the gap between labels, or calibrate the sensor for the paper's end",
      "  tolvexctl calibrate                      the gap between the labels\n"
      "  tolvexctl calibrate paper --printer 1    the sensor for the end of the paper\n");
  auto options = std::make_shared<CalibrateOptions>();
  CLI::Option* const what =
      command->add_option("WHAT", options->what, "label or paper; default label")
          ->option_text(" ")
          ->check(CLI::IsMember({"label", "paper"}).description(""));
  registry.offers(what, {"label", "paper"});
  addPrinterType(*command, registry, options->printer,
                 "Printer type; default 0 for labels, 1 for paper");
  registry.does(command, [options](Context& context) { return calibrate(context, *options); });
}

ExitCode openDrawer(Context& context) {
  context.service().verdict("open the drawer", TOLVEX_EXPORT(OpenCashDrawerEx));
  context.out.result({{"opened", true}}, "The drawer is open.\n");
  return ExitCode::Fine;
}

}  // namespace

void addPaperCommands(CLI::App& app, Registry& registry) {
  addFeed(app, registry);
  addCut(app, registry);
  addCalibrate(app, registry);
  registry.does(Registry::addCommand(app, "drawer", "Open the cash drawer", "  tolvexctl drawer\n"),
                openDrawer);
}

}  // namespace tolvex::ctl

// Text and images on paper.
#include <memory>
#include <optional>
#include <string>

#include "commands/checks.h"
#include "commands/commands.h"
#include "commands/input_text.h"
#include "commands/job_type.h"
#include "commands/printer_options.h"

namespace tolvex::ctl {
namespace {

constexpr unsigned kOrdinaryFont = 28;
constexpr unsigned kDefaultAngle = 0;

// Where what is printed goes: through a job of the library, or at once.
struct Way {
  std::string job = "8";
  bool direct = false;
  bool keepUncut = false;
  std::optional<unsigned> printer;

  int jobType() const { return parseJobType(job).value(); }
  unsigned printerType() const { return printer.value_or(TOLVEX_DEFAULT_PRINTER); }
};

struct PrintOptions {
  std::string file;
  unsigned font = kOrdinaryFont;
  std::optional<unsigned> width;
  Way way;
};

struct ImageOptions {
  std::string file;
  unsigned angle = kDefaultAngle;
  std::string align = "center";
  Way way;
};

void addWay(CLI::App& command, Registry& registry, Way& way) {
  CLI::Option* const job =
      command
          .add_option(
              "--job", way.job,
              "Job type of BeginPrint, by number or name; default 8, the ticket printer with "
              "a cut at the end")
          ->type_name("TYPE")
          ->check(jobTypeCheck());
  registry.offers(job, jobTypeNames());
  CLI::Option* const direct =
      command.add_flag("--direct", way.direct, "Send it at once, past the job, and cut")
          ->excludes(job);
  addPrinterType(command, registry, way.printer,
                 "With --direct: printer type 0 label, 1 ticket, 2, 100; default 100")
      ->needs(direct);
  command.add_flag("--no-cut", way.keepUncut, "With --direct: do not cut")->needs(direct);
}

void endJob(Context& context, const std::string& purpose, const Way& way) {
  context.service().verdict(purpose, TOLVEX_EXPORT(BeginPrint), way.jobType());
  const std::string name = jobTypeName(way.jobType());
  context.out.result({{"printed", true}, {"job", name}}, "Printed, job " + name + ".\n");
}

void endDirect(Context& context, const Way& way) {
  if (!way.keepUncut) {
    context.service().code("cut the paper", TOLVEX_EXPORT(cutPaperById), way.printerType());
  }
  context.out.result(
      {{"printed", true}, {"printer", way.printerType()}, {"cut", !way.keepUncut}},
      "Printed on " + printerName(way.printerType()) + (way.keepUncut ? ".\n" : ", and cut.\n"));
}

// ---- print ----

// Each line is sent as it is; what went out before a line that fails is with the printer already.
void printDirect(Service& service, const PrintOptions& options, const std::string& text) {
  const unsigned printer = options.way.printerType();
  std::size_t number = 0;
  for (const std::string& line : linesOf(text)) {
    const std::string purpose = "print line " + std::to_string(++number);
    if (options.width) {
      service.code(purpose, TOLVEX_EXPORT(printTextByPaperWidthById), line, options.font,
                   *options.width, printer);
    } else {
      service.code(purpose, TOLVEX_EXPORT(printTextById), line, options.font, printer);
    }
  }
}

void queue(Service& service, const PrintOptions& options, const std::string& text) {
  const std::string ansi = inAnsi(text);
  Service::checkVerdict("queue the text",
                        options.width ? service.call(TOLVEX_EXPORT(PrintTextByPaperWidth), ansi,
                                                     options.font, *options.width)
                                      : service.call(TOLVEX_EXPORT(PrintText), ansi, options.font));
}

ExitCode print(Context& context, const PrintOptions& options) {
  const std::string text = readText(options.file);
  if (!options.width) checkLineLengths(text);
  if (options.way.direct) {
    printDirect(context.service(), options, text);
    endDirect(context, options.way);
  } else {
    queue(context.service(), options, text);
    endJob(context, "print the text", options.way);
  }
  return ExitCode::Fine;
}

// ---- image ----

unsigned alignment(const std::string& name) {
  if (name == "left") return 0;
  return name == "right" ? 2 : 1;
}

ExitCode printImage(Context& context, const ImageOptions& options) {
  const std::string path = imagePath(options.file);
  const std::string& host = context.globals.host;
  if (!host.empty() && host.rfind("127.", 0) != 0) {
    context.out.note("The service opens the image itself: on its machine, as " + path);
  }
  Service& service = context.service();
  if (options.way.direct) {
    service.code("print the image", TOLVEX_EXPORT(printBitmapFileById), path, options.angle,
                 options.way.printerType());
    endDirect(context, options.way);
  } else {
    Service::checkVerdict("queue the image",
                          service.call(TOLVEX_EXPORT(PrintBitmapFileWithAlign), inAnsi(path),
                                       options.angle, alignment(options.align)));
    endJob(context, "print the image", options.way);
  }
  return ExitCode::Fine;
}

}  // namespace

void addPrint(CLI::App& app, Registry& registry) {
  CLI::App* const command = Registry::addCommand(
      app, "print", "Print a text file (UTF-8)",
      "  tolvexctl print receipt.txt\n"
      "  echo 'Hello' | tolvexctl print -                     from standard input\n"
      "  tolvexctl print receipt.txt --font 24 --width 72     lines of any length, 72 mm wide\n"
      "  tolvexctl print label.txt --job dot_lbl              on the label printer\n"
      "  tolvexctl print thai.txt --direct --printer 1        what the code page lacks, too\n");
  auto options = std::make_shared<PrintOptions>();
  command->add_option("FILE", options->file, "File to print; - reads standard input")
      ->option_text(" ")
      ->required();
  command->add_option("--font", options->font, "Height of the characters in dots, 12 to 72")
      ->type_name("DOTS")
      ->check(numberCheck(12, 72))
      ->capture_default_str();
  command
      ->add_option("--width", options->width,
                   "Width of the paper in mm, 1 to 80, into which lines are broken")
      ->type_name("MM")
      ->check(numberCheck(1, 80));
  addWay(*command, registry, options->way);
  registry.does(command, [options](Context& context) { return print(context, *options); });
}

void addImage(CLI::App& app, Registry& registry) {
  CLI::App* const command =
      Registry::addCommand(app, "image", "Print an image file, which the service opens",
                           "  tolvexctl image logo.bmp\n"
                           "  tolvexctl image label.bmp --angle 90 --job img_lbl\n"
                           "  tolvexctl image logo.bmp --direct --printer 1 --no-cut\n");
  auto options = std::make_shared<ImageOptions>();
  command->add_option("FILE", options->file, "File of the image")->option_text(" ")->required();
  CLI::Option* const angle =
      command->add_option("--angle", options->angle, "0, 90, 180 or 270 degrees")
          ->type_name("DEGREES")
          ->check(CLI::IsMember({0, 90, 180, 270}).description(""));
  registry.offers(angle, {"0", "90", "180", "270"});
  CLI::Option* const align =
      command->add_option("--align", options->align, "left, center or right; kept, but not sent")
          ->type_name("SIDE")
          ->check(CLI::IsMember({"left", "center", "right"}).description(""));
  registry.offers(align, {"left", "center", "right"});
  addWay(*command, registry, options->way);
  registry.does(command, [options](Context& context) { return printImage(context, *options); });
}

}  // namespace tolvex::ctl

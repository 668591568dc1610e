#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "base/duration.h"
#include "commands/checks.h"
#include "commands/commands.h"
#include "commands/weight.h"

namespace tolvex::ctl {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

constexpr milliseconds kWatchInterval{500};
constexpr milliseconds kStableInterval{200};
constexpr milliseconds kLongestWaitForStable{10000};

constexpr char kWeighExamples[] =
    "  tolvexctl weigh                          once\n"
    "  tolvexctl weigh --stable --timeout 5s    once it is stable, at most 5 s from now\n"
    "  tolvexctl weigh --watch --interval 1s    on and on, until Ctrl+C\n"
    "  tolvexctl weigh --count 10 --json        ten times, a JSON object a line\n";

struct WeighOptions {
  bool watch = false;
  bool stable = false;
  bool highResolution = false;
  std::optional<unsigned> count;
  std::string interval;
};

// What a reading showed: a weight, or why there is none.
struct Reading {
  std::optional<Weight> weight;
  std::optional<Failure> failure;
};

using Test = bool (*)(const Failure& failure);

// Whoever watches sees the scale being unplugged, too, and plugged in again.
bool isTheScales(const Failure& failure) {
  return failure.exit == ExitCode::DeviceError && failure.code.has_value();
}

// A scale that has no weight now may have one in a moment.
bool mayPass(const Failure& failure) {
  switch (failure.code.value_or(TOLVEX_RESULT_OK)) {
    case TOLVEX_RESULT_UNDER_LOAD:
    case TOLVEX_RESULT_OVER_LOAD:
    case TOLVEX_RESULT_INVALID_WEIGHT:
    case TOLVEX_RESULT_WEIGHT_NOT_STABLE:
      return true;
    default:
      return false;
  }
}

// Any failure but those that are to be tolerated is the end.
Reading readOnce(Service& service, Test isTolerated) {
  try {
    return {readWeight(service), std::nullopt};
  } catch (const Failure& failure) {
    if (!isTolerated(failure)) throw;
    return {std::nullopt, failure};
  }
}

std::string unitOfScale(Service& service) { return unitOf(readBaseInfo(service)); }

Weight waitForStable(Service& service, milliseconds limit, milliseconds interval) {
  const auto end = Clock::now() + limit;
  for (;;) {
    const Reading reading = readOnce(service, mayPass);
    if (reading.weight && reading.weight->isStable) return *reading.weight;
    if (Clock::now() + interval >= end) {
      if (reading.failure) throw Failure(*reading.failure);
      throw Failure("no stable weight within " + toText(limit), TOLVEX_RESULT_WEIGHT_NOT_STABLE);
    }
    std::this_thread::sleep_for(interval);
  }
}

void tell(Output& out, const Reading& reading, const std::string& unit) {
  if (reading.weight) {
    const std::string text = toText(*reading.weight, unit);
    out.line(toJson(*reading.weight, unit),
             out.paint(reading.weight->isStable ? Colour::Good : Colour::Warning, text) + '\n');
    return;
  }
  ordered_json value = {{"ok", false}};
  value.update(toJson(*reading.failure->code));
  out.line(value, out.paint(Colour::Bad, codeLine(*reading.failure->code)) + '\n');
}

// Count nothing: without end.
ExitCode watch(Context& context, const std::optional<unsigned>& count, milliseconds interval) {
  const std::string unit = unitOfScale(context.service());
  ExitCode exit = ExitCode::Fine;
  for (unsigned done = 1;; ++done) {
    const Reading reading = readOnce(context.service(), isTheScales);
    tell(context.out, reading, unit);
    if (reading.failure) exit = reading.failure->exit;
    if (count && done == *count) return exit;
    std::this_thread::sleep_for(interval);
  }
}

ExitCode weigh(Context& context, const WeighOptions& options) {
  Service& service = context.service();
  const auto interval = parseDuration(options.interval);
  if (options.highResolution) service.call(TOLVEX_EXPORT(setHighResWeightMode), 1);
  if (options.watch || options.count) {
    return watch(context, options.count, interval.value_or(kWatchInterval));
  }
  const std::string unit = unitOfScale(service);
  const Weight weight =
      options.stable
          ? waitForStable(service, context.globals.timeout.value_or(kLongestWaitForStable),
                          interval.value_or(kStableInterval))
          : readWeight(service);
  context.out.result(toJson(weight, unit), toText(weight, unit) + '\n');
  return ExitCode::Fine;
}

}  // namespace

void addWeigh(CLI::App& app, Registry& registry) {
  CLI::App* const command =
      Registry::addCommand(app, "weigh", "Read the scale, once or on and on", kWeighExamples);
  auto options = std::make_shared<WeighOptions>();
  CLI::Option* const stable =
      command->add_flag("--stable", options->stable,
                        "Wait for a stable weight, at most --timeout (10 s if not given)");
  CLI::Option* const watching =
      command->add_flag("--watch", options->watch, "Read on and on, a line each");
  CLI::Option* const count =
      command->add_option("--count", options->count, "Read so many times, a line each")
          ->type_name("N")
          ->check(CLI::Range(1, 1000000000).description(""));
  stable->excludes(watching)->excludes(count);
  command->add_option("--interval", options->interval, "Time between readings, such as 500ms or 2s")
      ->type_name("TIME")
      ->check(durationCheck());
  command->add_flag("--high-res", options->highResolution,
                    "Read the net weight in high resolution");
  registry.does(command, [options](Context& context) { return weigh(context, *options); });
}

}  // namespace tolvex::ctl

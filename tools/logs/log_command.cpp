#include "logs/log_command.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <thread>

#include "base/printable.h"
#include "commands/checks.h"
#include "logs/log_filter.h"
#include "logs/log_follower.h"
#include "logs/log_ring.h"

namespace tolvex::ctl {
namespace {

constexpr char kLogCommandExamples[] =
    "  tolvexctl log                                  all records, oldest first\n"
    "  tolvexctl log -n 20                            the last 20\n"
    "  tolvexctl log -f                               what is written from now on, until Ctrl+C\n"
    "  tolvexctl log --level failures --since 10m     failures of the last ten minutes\n"
    "  tolvexctl log --since \"2026-01-01 08:00\" --until \"2026-01-01 09:00\"\n"
    "  tolvexctl log --module Socket --grep 10061     of the transport, with this text\n"
    "  tolvexctl log --dir D:\\from-the-shop --json    files from elsewhere, an object a line\n";

// How often files are looked at that somebody follows.
constexpr std::chrono::milliseconds kPause(200);

constexpr std::int64_t kMostRecords = 1000000000;

struct Options {
  LogFilter filter;
  std::string dir;
  std::optional<std::size_t> last;
  std::optional<std::size_t> count;
  bool follow = false;
};

Colour colourOf(int level) {
  switch (level) {
    case 5:
    case 7:
      return Colour::Bad;
    case 6:
      return Colour::Strong;
    default:
      return Colour::Faint;
  }
}

ordered_json toJson(const LogRecord& record) {
  const ordered_json none = nullptr;
  const bool dated = record.time.has_value();
  return {{"time", dated ? ordered_json(logTimeText(*record.time, 'T')) : none},
          {"level", record.level != 0 ? ordered_json(record.level) : none},
          {"letter", dated ? ordered_json(std::string(1, letterOfLevel(record.level))) : none},
          {"line", dated ? ordered_json(record.line) : none},
          {"module", dated ? ordered_json(record.module) : none},
          {"text", record.text},
          {"file", record.file}};
}

// The text with what a terminal would obey made visible; further lines are indented.
std::string shownText(const std::string& text) {
  std::string shown;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    shown += (begin == 0 ? "" : "\n    ") + printable(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return shown;
}

std::string toText(const LogRecord& record, const Output& out) {
  if (!record.time) return out.paint(Colour::Faint, shownText(record.text)) + '\n';
  const std::string level = std::string("[") + letterOfLevel(record.level) + ']';
  const std::string module = record.module.empty() ? "" : ' ' + printable(record.module);
  return out.paint(Colour::Faint, logTimeText(*record.time, ' ')) + ' ' +
         out.paint(colourOf(record.level), level + module + ": ") + shownText(record.text) + '\n';
}

// A long log is shown record by record: only what goes out is made.
void show(Output& out, const LogRecord& record) {
  if (out.json()) {
    out.line(toJson(record), "");
  } else {
    out.line({}, toText(record, out));
  }
}

// Shows what is there. Returns whether that was as much as was asked for.
bool showPast(Output& out, const Options& options, const std::vector<LogFile>& files,
              std::size_t& shown) {
  LogRing ring(files);
  std::deque<LogRecord> last;
  while (std::optional<LogRecord> record = ring.next()) {
    if (!options.filter.passes(*record)) continue;
    if (options.last) {
      last.push_back(std::move(*record));
      if (last.size() > *options.last) last.pop_front();
      continue;
    }
    show(out, *record);
    if (++shown == options.count) return true;
  }
  for (const LogRecord& record : last) {
    show(out, record);
    if (++shown == options.count) return true;
  }
  return false;
}

// Until as many records were shown as was asked for; else until the program is ended.
void follow(Output& out, const Options& options, LogFollower& follower, std::size_t& shown) {
  for (;;) {
    for (const LogRecord& record : follower.poll()) {
      if (!options.filter.passes(record)) continue;
      show(out, record);
      if (++shown == options.count) return;
    }
    std::this_thread::sleep_for(kPause);
  }
}

std::string named(const std::vector<std::string>& folders) {
  std::string text;
  for (const std::string& folder : folders) text += (text.empty() ? "" : " and ") + folder;
  return text;
}

ExitCode runLog(Context& context, const Options& options) {
  const std::vector<std::string> folders =
      options.dir.empty() ? logFolders() : std::vector<std::string>{options.dir};
  const std::vector<LogFile> files = findLogFiles(folders);
  if (files.empty() && !options.follow) {
    throw Failure(ExitCode::Failed, "there is no log in " + named(folders),
                  "Use the library once, name another folder with --dir, or run tolvexctl doctor.");
  }
  std::size_t shown = 0;
  LogFollower follower(folders, files);
  // Whoever follows wants to see what comes, unless something of the past was asked for.
  const bool past = !options.follow || options.last || options.filter.since;
  if (past && showPast(context.out, options, files, shown)) return ExitCode::Fine;
  if (!options.follow) {
    // Programs that read JSON get some, even if it is that there is nothing.
    if (shown == 0 && context.out.json()) context.out.line({{"records", 0}}, "");
    return ExitCode::Fine;
  }
  context.out.note("tolvexctl: following the log in " + named(folders) + ", Ctrl+C ends it");
  follow(context.out, options, follower, shown);
  return ExitCode::Fine;
}

// Puts what an option says into `time`, or says why it can not.
void addTime(CLI::App& command, const std::string& name, std::optional<LogTime>& time,
             const std::string& description) {
  command
      .add_option_function<std::string>(
          name,
          [name, &time](const std::string& text) {
            time = parseLogTime(text, currentLogTime());
            if (time) return;
            throw CLI::ValidationError(name, "\"" + text +
                                                 "\" is no time such as 10m, 2h, 3d, "
                                                 "08:00, 2026-01-01 or \"2026-01-01 08:00:30\"");
          },
          description)
      ->type_name("TIME");
}

void addFilter(CLI::App& command, LogFilter& filter) {
  command
      .add_option_function<std::string>(
          "--level",
          [&filter](const std::string& text) {
            if (addLevels(text, filter.levels)) return;
            throw CLI::ValidationError("--level", "\"" + text +
                                                      "\" is no level such as 5, 5-7, W, "
                                                      "failures, trace or traffic");
          },
          "Levels, several with commas: 1-7, a letter, failures (5 and 7), trace (6), traffic (2)")
      ->type_name("LEVEL");
  command.add_option("--module", filter.modules, "Modules, several with commas: DLL, Socket, NLog")
      ->delimiter(',')
      ->type_name("NAME");
  addTime(command, "--since", filter.since, "Not before: 10m (ago), 08:00, \"2026-01-01 08:00\"");
  addTime(command, "--until", filter.until, "Not after, in the same way");
  command.add_option("--grep", filter.text, "Only records with this text, in any case")
      ->type_name("TEXT");
}

}  // namespace

void addLog(CLI::App& app, Registry& registry) {
  CLI::App* const command = Registry::addCommand(
      app, "log", "Show the library's log, joined from its files in time order",
      kLogCommandExamples);
  const auto options = std::make_shared<Options>();
  addFilter(*command, options->filter);
  command->add_option("-n,--lines", options->last, "The last N records only")
      ->type_name("N")
      ->check(numberCheck(0, kMostRecords));
  command->add_flag("-f,--follow", options->follow, "Go on with what is written from now on");
  command->add_option("-C,--count", options->count, "End after N records")
      ->type_name("N")
      ->check(numberCheck(1, kMostRecords));
  command->add_option("--dir", options->dir, "A folder with log files, instead of this machine's")
      ->type_name("FOLDER");
  registry.does(command, [options](Context& context) { return runLog(context, *options); });
}

}  // namespace tolvex::ctl

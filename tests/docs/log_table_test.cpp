// docs/log.md has every line that the library writes, and no other. What is written is read out of
// the sources: the log calls themselves, and the rows of the tables that some calls take their words
// and numbers from.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "docs/pages.h"

namespace tolvex::test {
namespace {

using Lines = std::set<std::string>;

std::vector<std::smatch> matches(const std::string& text, const std::regex& pattern) {
  return {std::sregex_iterator(text.begin(), text.end(), pattern), std::sregex_iterator()};
}

// What is put in when the line is written: a conversion in the sources, a name in braces in the
// document. Both become "{}".
std::string normalised(const std::string& message) {
  const std::string named = std::regex_replace(message, std::regex(R"(\{[a-z ]+\})"), "{}");
  return std::regex_replace(named, std::regex("%#?[a-z]"), "{}");
}

std::string line(const std::string& number, const std::string& level, const std::string& module,
                 const std::string& message) {
  return std::to_string(std::stoi(number)) + ' ' + level + ' ' + module + ' ' + normalised(message);
}

// ---- The document ----

Lines documented() {
  const std::string text = textOf(source("docs/log.md"));
  const std::regex row(R"(\n\| (\d+) \| (\d) \| (\w+) \| `([^`]+)` \| [^|]+ \| [^|]+ \|)");
  Lines lines;
  for (const std::smatch& match : matches(text, row)) {
    lines.insert(line(match[1], match[2], match[3], match[4]));
  }
  return lines;
}

// ---- The sources ----

// A call of the logger, with what its arguments are made of.
struct LogCall {
  std::string file, module, level, number, message;
};

std::string levelOf(const std::string& argument) {
  static const std::vector<std::pair<std::string, std::string>> levels = {
      {"kLevelTraffic", "2"},
      {"kLevelFailure", "5"},
      {"kLevelTrace", "6"},
      {"kLevelServiceError", "7"}};
  for (const auto& [name, level] : levels) {
    if (argument == name) return level;
  }
  return argument;
}

// The texts of adjacent literals, as one.
std::string joined(const std::string& literals) {
  std::string text;
  for (const std::smatch& match : matches(literals, std::regex(R"re("((?:[^"\\]|\\.)*)")re"))) {
    text += match[1];
  }
  return text;
}

// A source without its comments, and with the one macro in a message as its placeholder.
std::string codeOf(const std::filesystem::path& path) {
  const std::string code = std::regex_replace(textOf(path), std::regex(R"(\n *//[^\n]*)"), "");
  return std::regex_replace(code, std::regex("TOLVEX_LIBRARY_VERSION"), R"("%s")");
}

std::vector<LogCall> logCalls() {
  const std::regex call(
      R"re(\bLog(?:String)?\(\s*(?:NLog::GetInstance\(\)|log|this),\s*kModule(\w+),\s*(\w+),\s*([\w.]+),\s*(?:std::string\()?((?:"(?:[^"\\]|\\.)*"\s*)+))re");
  std::vector<LogCall> calls;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(source("src"))) {
    if (entry.path().extension() != ".cpp") continue;
    const std::string text = codeOf(entry.path());
    for (const std::smatch& match : matches(text, call)) {
      std::string module = match[1];
      if (module == "Dll") module = "DLL";
      const bool goesOn = match.str().find("std::string(") != std::string::npos;
      calls.push_back({entry.path().filename().string(), module, levelOf(match[2]), match[3],
                       joined(match[4]) + (goesOn ? "%s" : "")});
    }
  }
  return calls;
}

std::size_t mentionsOfTheLogger() {
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(source("src"))) {
    const std::string text = textOf(entry.path());
    if (entry.path().extension() != ".cpp" || entry.path().filename() == "nlog.cpp") continue;
    count += matches(text, std::regex(R"(NLog::Log(String)?\()")).size();
  }
  return count;
}

// Puts the texts in the place of the first conversions; an empty one leaves its conversion.
std::string filledIn(std::string message, const std::vector<std::string>& texts) {
  std::string done;
  for (const std::string& text : texts) {
    const std::size_t at = message.find('%');
    done += message.substr(0, at) + (text == "%" ? message.substr(at, 2) : text);
    message.erase(0, at + 2);
  }
  return done + message;
}

// A row of numbers, "{71, 76, 82}".
std::vector<std::string> numbers(const std::string& row) {
  std::vector<std::string> all;
  for (const std::smatch& match : matches(row, std::regex(R"(\d+)"))) all.push_back(match.str());
  return all;
}

// A call whose number and words come from a table: its lines, one for each row.
class TableCalls {
 public:
  explicit TableCalls(const LogCall& call) : call_(call) {}

  Lines lines() {
    if (call_.file == "exchange.cpp") ofRoutes();
    if (call_.file == "logged_command.cpp") ofLoggedCommands();
    if (call_.file == "begin_print.cpp") ofJobs();
    if (call_.file == "context.cpp") ofConnections();
    if (lines_.empty()) ADD_FAILURE() << "unknown kind of log call: " << call_.message;
    return lines_;
  }

 private:
  void add(const std::string& number, const std::string& message) {
    lines_.insert(line(number, call_.level, call_.module, message));
  }

  std::size_t memberOf(const std::vector<std::string>& members) const {
    for (std::size_t i = 0; i < members.size(); ++i) {
      const std::string name = '.' + members[i];
      const std::size_t at = call_.number.rfind(name);
      if (at != std::string::npos && at + name.size() == call_.number.size()) return i;
    }
    ADD_FAILURE() << "unknown member of a table: " << call_.number;
    return 0;
  }

  void ofRoutes() {
    const std::string text = textOf(source("src/service/exchange.cpp"));
    const std::regex route(R"re("(SndCmd\w+)",\s*"(\w+)",\s*"( ?)",\s*\{([\d, ]+)\})re");
    const std::size_t member =
        memberOf({"nullArgument", "noConnection", "sending", "sendFailed", "receiveFailed",
                  "received", "unasked", "ended", "noReply", "unreadable", "full"});
    for (const std::smatch& match : matches(text, route)) {
      const std::string name = match[1];
      const std::vector<std::vector<std::string>> words = {
          {"%", name}, {name, match[2]}, {"%", name, "%"}, {name}, {name, match[3]},
          {"%", name}, {name, "%"},      {name},           {name}, {name},
          {name}};
      add(numbers(match[4]).at(member), filledIn(call_.message, words[member]));
    }
  }

  void ofLoggedCommands() {
    const std::regex row(
        R"re(LoggedCommand \w+ = \{\s*"(\w+)", (true|false), "(\w+)", "([^"]+)", \{([\d, ]+)\})re");
    const std::size_t member = memberOf({"entry", "failure", "success"});
    for (const auto& entry : std::filesystem::directory_iterator(source("src/printing"))) {
      const std::string text = textOf(entry.path());
      for (const std::smatch& match : matches(text, row)) {
        const std::string name = match[1];
        const bool showsClient = match[2] == "true";
        const std::vector<std::string> client = {showsClient ? "[" : "", showsClient ? "%" : "",
                                                 showsClient ? "]" : "", name};
        std::vector<std::vector<std::string>> words = {client, {name, match[4]}, client};
        words[0].push_back(match[3]);
        words[2].push_back(detailOf(name));
        // The detail is a word and a text.
        const std::string message =
            std::regex_replace(call_.message, std::regex(R"(%s%\.\*s)"), "%s");
        add(numbers(match[5]).at(member), filledIn(message, words[member]));
      }
    }
  }

  // What stands behind "OK", in the code of three of them.
  static std::string detailOf(const std::string& name) {
    if (name == "GetPrinterList") return ", %s";
    if (name == "getPrinterVersion") return ", ver:%s";
    if (name == "setTakeupPaperSensor") return ", iEnable: %d";
    return "";
  }

  void ofJobs() {
    const std::string text = textOf(source("src/printing/begin_print.cpp"));
    if (call_.number == "line") {
      const std::string function = call_.level == "6" ? "succeed" : "failWith";
      for (const std::smatch& match : matches(text, std::regex(function + R"(\(job, (\d+))"))) {
        add(match[1], call_.message);
      }
      return;
    }
    const std::size_t member = memberOf({"notPrinted", "notConfirmed", "confirmed"});
    const std::regex closing(R"re(Closing \w+ = \{"(\w+)", \{([\d, ]+)\})re");
    for (const std::smatch& match : matches(text, closing)) {
      add(numbers(match[2]).at(member), filledIn(call_.message, {"%", match[1]}));
    }
  }

  void ofConnections() {
    const std::string text = textOf(source("src/api/context.cpp"));
    const std::regex opening(R"re(openConnection\([^"]*"(\w+)", address, \w+, (\d+)\))re");
    for (const std::smatch& match : matches(text, opening)) {
      add(match[2], filledIn(call_.message, {match[1]}));
    }
  }

  LogCall call_;
  Lines lines_;
};

Lines written() {
  Lines lines;
  for (const LogCall& call : logCalls()) {
    if (call.number.find_first_not_of("0123456789") == std::string::npos) {
      lines.insert(line(call.number, call.level, call.module, call.message));
    } else {
      lines.merge(TableCalls(call).lines());
    }
  }
  return lines;
}

std::string listOf(const Lines& lines, const Lines& butThese) {
  std::string list;
  for (const std::string& each : lines) {
    if (butThese.count(each) == 0) list += "\n  " + each;
  }
  return list;
}

TEST(LogTable, EveryCallOfTheLoggerIsUnderstood) {
  EXPECT_EQ(logCalls().size(), mentionsOfTheLogger() + 1);  // one is the logger's own
}

TEST(LogTable, HasEveryLineThatTheLibraryWrites) {
  EXPECT_EQ(listOf(written(), documented()), "") << "written, but not in docs/log.md";
}

TEST(LogTable, HasNoLineThatTheLibraryDoesNotWrite) {
  EXPECT_EQ(listOf(documented(), written()), "") << "in docs/log.md, but not written";
}

TEST(LogTable, HasTheMessagesOutsideTheLog) {
  const std::string document = textOf(source("docs/log.md"));
  const std::string file = textOf(source("src/log/log_file.cpp"));
  const std::string logger = textOf(source("src/log/nlog.cpp"));
  std::string missing;
  for (const std::string& text : {file, logger}) {
    for (const std::smatch& match :
         matches(text, std::regex(R"re("(NLog::[^"\\]*|[^"]*=====[^"]*))re"))) {
      if (document.find(match[1]) == std::string::npos) missing += match[1].str() + '\n';
    }
  }
  EXPECT_EQ(missing, "");
}

}  // namespace
}  // namespace tolvex::test

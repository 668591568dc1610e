#include "recording/recording.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

#include "base/base64.h"
#include "base/utf8.h"
#include "scenario/json_value.h"
#include "scenario/names.h"
#include "scenario/refusal.h"

namespace tolvex::sim {

namespace {

using nlohmann::ordered_json;

constexpr char kProgram[] = "zelkad-sim";
constexpr int kFormat = 1;
constexpr long long kMaxNumber = 1'000'000'000'000'000;  // of a double exactly
constexpr std::array<std::string_view, 3> kInstead{"no-answer", "close", "reset"};

void addBytes(ordered_json& line, const std::string& name, const std::string& bytes) {
  if (isUtf8(bytes)) {
    line[name] = bytes;
  } else {
    line[name + "_base64"] = base64Of(bytes);
  }
}

std::string readBytes(const JsonValue& line, const std::string& name) {
  const auto text = line.find(name);
  const auto base64 = line.find(name + "_base64");
  if (text && !base64) return text->text();
  if (!base64 || text) {
    line.refuse("it has not one " + name, "Write \"" + name + "\" or \"" + name + "_base64\".");
  }
  auto bytes = bytesOfBase64(base64->text());
  if (!bytes) base64->refuse("this is not base64", "Record the session again.");
  return *bytes;
}

JsonValue need(const JsonValue& line, std::string_view member) {
  auto value = line.find(member);
  if (!value) {
    line.refuse("there is no \"" + std::string(member) + "\"", "Record the session again.");
  }
  return *value;
}

void checkHeader(const JsonValue& line) {
  const auto program = line.find("recording");
  if (!program || program->json() != kProgram) {
    line.refuse("this is no header of a recording", "Give a file that --record has written.");
  }
  const auto format = need(line, "format");
  if (format.json() != kFormat) {
    format.refuse("this format is not known", "Record the session again with this version.");
  }
}

RecordedExchange readExchange(const JsonValue& line, std::size_t lineNumber) {
  line.allow({"number", "ms", "port", "connection", "request", "request_base64", "reply",
              "reply_base64", "instead"});
  RecordedExchange exchange;
  exchange.line = lineNumber;
  exchange.number = static_cast<std::uint64_t>(need(line, "number").integer(1, kMaxNumber));
  exchange.time = std::chrono::microseconds(
      std::llround(need(line, "ms").number(0, static_cast<double>(kMaxNumber) / 1000) * 1000));
  const auto port = need(line, "port");
  exchange.half = checkPort(port.text(), port);
  exchange.connection = static_cast<std::uint64_t>(need(line, "connection").integer(1, kMaxNumber));
  exchange.request = readBytes(line, "request");
  const auto instead = line.find("instead");
  if (!instead) {
    exchange.reply = readBytes(line, "reply");
    if (exchange.reply.empty()) {
      line.refuse("the reply is empty", "If the client got none, write \"instead\":\"no-answer\".");
    }
    return exchange;
  }
  exchange.instead = instead->text();
  if (std::find(kInstead.begin(), kInstead.end(), exchange.instead) == kInstead.end()) {
    instead->refuse("this is nothing that comes instead of a reply",
                    "Write \"no-answer\", \"close\" or \"reset\".");
  }
  return exchange;
}

// Calls `use` for a line as JSON. What it refuses is told with the line and the place in it.
template <typename Use>
void readLine(std::string_view text, std::size_t number, Use use) {
  const std::string place = "line " + std::to_string(number);
  const auto json = nlohmann::json::parse(text, nullptr, false);
  if (json.is_discarded()) {
    throw Refusal(place, "this is no JSON", "Mend the line, or delete it if it is cut short.");
  }
  const JsonValue line(json, place);
  line.requireObject();
  use(line);
}

}  // namespace

std::string recordingHeader(std::string_view version) {
  return ordered_json{{"recording", kProgram}, {"format", kFormat}, {"version", version}}.dump();
}

std::string recordingLine(const RecordedExchange& exchange) {
  ordered_json line;
  line["number"] = exchange.number;
  line["ms"] = static_cast<double>(exchange.time.count()) / 1000;
  line["port"] = name(exchange.half);
  line["connection"] = exchange.connection;
  addBytes(line, "request", exchange.request);
  if (exchange.instead.empty()) {
    addBytes(line, "reply", exchange.reply);
  } else {
    line["instead"] = exchange.instead;
  }
  return line.dump();
}

std::vector<RecordedExchange> parseRecording(std::string_view text) {
  std::vector<RecordedExchange> exchanges;
  std::size_t number = 0;
  // Editors leave blank lines behind the last one.
  text = text.substr(0, text.find_last_not_of(" \t\r\n") + 1);  // npos + 1 is 0
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    ++number;
    readLine(line, number, [&](const JsonValue& value) {
      if (number == 1) return checkHeader(value);
      exchanges.push_back(readExchange(value, number));
    });
  }
  if (number == 0) {
    throw Refusal("", "the recording is empty", "Give a file that --record has written.");
  }
  return exchanges;
}

}  // namespace tolvex::sim

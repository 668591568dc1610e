#include "recording/replay.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "base/printable.h"
#include "recording/text_difference.h"

namespace tolvex::sim {

namespace {

using nlohmann::ordered_json;

constexpr std::size_t kMaxShownBytes = 200;

// The request without the folders of a picture's file name.
std::string withoutFolders(std::string_view request) {
  ordered_json json = ordered_json::parse(request, nullptr, false);
  if (!json.is_object() || json.value("cmd", ordered_json()) != "printbmpfile") {
    return std::string(request);
  }
  const auto file = json.find("filename");
  if (file == json.end() || !file->is_string()) return std::string(request);
  const auto path = file->get<std::string>();
  *file = path.substr(path.find_last_of("/\\") + 1);  // npos + 1 is 0
  return json.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

bool areSame(std::string_view recorded, std::string_view came) {
  return recorded == came || withoutFolders(recorded) == withoutFolders(came);
}

std::string shortened(std::string_view text) { return printable(text, kMaxShownBytes); }

Answerer::Answer recordedAnswer(const RecordedExchange& exchange) {
  const bool closes = exchange.instead == "close";
  const bool resets = exchange.instead == "reset";
  return {exchange.reply, closes ? After::Close : resets ? After::Reset : After::Keep};
}

std::string inLine(const RecordedExchange& exchange) {
  return "line " + std::to_string(exchange.line);
}

}  // namespace

Replay::Replay(std::vector<RecordedExchange> exchanges,
               std::function<void(const std::string&)> warn)
    : warn_(std::move(warn)) {
  for (RecordedExchange& exchange : exchanges) {
    portOf(exchange.half).exchanges.push_back(std::move(exchange));
  }
}

Answerer::Answer Replay::answer(Half half, std::string_view request, TimePoint) {
  ++requests_;
  Port& port = portOf(half);
  if (port.next == port.exchanges.size()) {
    note(half, "comes after the last one that was recorded there", "  came  " + shortened(request));
    return {kOtherRequest, After::Keep};
  }
  const RecordedExchange& recorded = port.exchanges[port.next++];
  if (areSame(recorded.request, request)) return recordedAnswer(recorded);
  note(half, "is not the one in " + inLine(recorded),
       describeDifference(recorded.request, request));
  return {kOtherRequest, After::Keep};
}

void Replay::note(Half half, const std::string& what, const std::string& details) {
  if (++different_ > 1) return;
  firstDifferent_ = "request " + std::to_string(requests_) + " (" + name(half) + ") " + what;
  warn_(firstDifferent_ + "\n" + details);
}

std::vector<std::string> Replay::unmet() const {
  std::vector<std::string> lines;
  if (different_ > 0) {
    lines.push_back(std::to_string(different_) + " of " + std::to_string(requests_) +
                    " requests are not as recorded; the first: " + firstDifferent_);
  }
  for (const Half half : {Half::Weighing, Half::Printing}) {
    const Port& port = portOf(half);
    const std::size_t left = port.exchanges.size() - port.next;
    if (left == 0) continue;
    const RecordedExchange& first = port.exchanges[port.next];
    lines.push_back(std::to_string(left) + " recorded request" + (left == 1 ? "" : "s") +
                    " did not come (" + name(half) + "); the first, in " + inLine(first) + ": " +
                    shortened(first.request));
  }
  return lines;
}

}  // namespace tolvex::sim

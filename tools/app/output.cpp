#include "app/output.h"

#include <cstdlib>
#include <cstring>

#include "base/printable.h"

namespace tolvex::ctl {
namespace {

const char* escapeOf(Colour colour) {
  switch (colour) {
    case Colour::Good:
      return "\x1b[32m";
    case Colour::Warning:
      return "\x1b[33m";
    case Colour::Bad:
      return "\x1b[31m";
    case Colour::Strong:
      return "\x1b[1m";
    case Colour::Faint:
      return "\x1b[2m";
  }
  return "";
}

// Bytes that are not UTF-8 must not keep a result from being told.
std::string dumped(const ordered_json& value, int indent) {
  return value.dump(indent, ' ', false, ordered_json::error_handler_t::replace) + '\n';
}

ordered_json withOk(const ordered_json& value) {
  if (value.contains("ok")) return value;
  ordered_json object = {{"ok", true}};
  object.update(value);
  return object;
}

ordered_json textOrNull(const std::string& text) {
  return text.empty() ? ordered_json(nullptr) : ordered_json(text);
}

std::string remedyOf(const Failure& failure) {
  return failure.remedy.empty() && failure.code ? ctl::remedyOf(*failure.code) : failure.remedy;
}

ordered_json failureAsJson(const Failure& failure) {
  const CodeText* const row = failure.code ? findCode(*failure.code) : nullptr;
  ordered_json error = {
      {"message", failure.what()}, {"code", nullptr}, {"name", nullptr}, {"meaning", nullptr}};
  if (failure.code) error["code"] = *failure.code;
  if (row != nullptr) {
    error["name"] = row->name;
    error["meaning"] = row->meaning;
  }
  error["remedy"] = textOrNull(remedyOf(failure));
  return {{"ok", false}, {"error", error}, {"exit", static_cast<int>(failure.exit)}};
}

std::string failureAsText(const Failure& failure) {
  std::string text = std::string("tolvexctl: ") + failure.what();
  if (failure.code) {
    const CodeText* const row = findCode(*failure.code);
    text += ": " + codeLine(*failure.code);
    if (row != nullptr) text += std::string(": ") + row->meaning;
  }
  const std::string remedy = remedyOf(failure);
  if (!remedy.empty()) text += "\nfix: " + remedy;
  return text;
}

}  // namespace

Output::Output(Streams& streams, bool json, bool colour)
    : streams_(streams), json_(json), colour_(colour) {}

void Output::result(const ordered_json& value, const std::string& text) {
  write(json_ ? dumped(withOk(value), 2) : text);
}

void Output::line(const ordered_json& value, const std::string& text) {
  write(json_ ? dumped(withOk(value), -1) : text);
}

void Output::note(const std::string& text) { streams_.error(text + '\n'); }

void Output::failure(const Failure& failure) {
  if (json_) {
    streams_.output(dumped(failureAsJson(failure), -1));
  } else {
    note(failureAsText(failure));
  }
}

void Output::passOnLibraryMessages() {
  const std::string messages = streams_.captured(passedOn_);
  passedOn_ += messages.size();
  std::string line;
  for (const char c : messages) {
    if (c != '\n') {
      line += c;
      continue;
    }
    note("library: " + printable(line));
    line.clear();
  }
  if (!line.empty()) note("library: " + printable(line));
}

std::string Output::paint(Colour colour, const std::string& text) const {
  return colour_ ? escapeOf(colour) + text + "\x1b[0m" : text;
}

void Output::write(const std::string& text) {
  if (streams_.output(text)) return;
  throw Failure(ExitCode::Failed, "cannot write to standard output",
                "Look whether the disk is full, or what reads the output has ended.");
}

ordered_json toJson(int code) {
  const CodeText* const row = findCode(code);
  if (row == nullptr) {
    return {{"code", code},
            {"name", nullptr},
            {"text", nullptr},
            {"meaning", nullptr},
            {"remedy", remedyOf(code)}};
  }
  return {{"code", code},
          {"name", row->name},
          {"text", row->text},
          {"meaning", row->meaning},
          {"remedy", row->remedy}};
}

bool wantsColour(Streams& streams, bool json) {
  const char* const refused = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  if (json || (refused != nullptr && *refused != '\0')) return false;
  if (terminal != nullptr && std::strcmp(terminal, "dumb") == 0) return false;
  return streams.outputIsTerminal();
}

}  // namespace tolvex::ctl

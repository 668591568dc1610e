// The only way to the program's output.
#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>

#include "base/failure.h"
#include "platform/streams.h"

namespace tolvex::ctl {

using nlohmann::ordered_json;

enum class Colour { Good, Warning, Bad, Strong, Faint };

/// Results go to standard output: as the text, or with --json as one JSON object, never as both. All
/// other words go to standard error. Texts are UTF-8; foreign texts are made printable first.
class Output {
 public:
  Output(Streams& streams, bool json, bool colour);

  /// The one result of a command. The text comes with its line ends. The object gets "ok": true at
  /// its head unless it says "ok" itself.
  void result(const ordered_json& value, const std::string& text);

  /// One of any number of results, in one line each (with its line end), on the way at once.
  void line(const ordered_json& value, const std::string& text);

  /// A diagnostic, without its line end.
  void note(const std::string& text);

  /// What ended a command: with --json a result ("ok": false, "error", "exit"), else a diagnostic.
  void failure(const Failure& failure);

  /// What the library has written since the last call, as diagnostics.
  void passOnLibraryMessages();
  /// All that it wrote, at most 64 KiB.
  std::string libraryMessages() { return streams_.captured(0); }

  /// The text in a colour, where colours are wanted.
  std::string paint(Colour colour, const std::string& text) const;

  bool json() const { return json_; }

 private:
  void write(const std::string& text);

  Streams& streams_;
  bool json_;
  bool colour_;
  std::size_t passedOn_ = 0;  // bytes of the library's messages
};

/// The JSON object for a result code: "code", "name", "text", "meaning", "remedy". Members but the
/// code are null for a number that is none.
ordered_json toJson(int code);

/// Whether colours are wanted: on a terminal, unless NO_COLOR is set and not empty, TERM is "dumb"
/// or the output is JSON.
bool wantsColour(Streams& streams, bool json);

}  // namespace tolvex::ctl

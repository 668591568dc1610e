// Exchanges in a file, to be compared and answered from later.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/half.h"

namespace tolvex::sim {

/// One request and what the client got.
struct RecordedExchange {
  std::uint64_t number = 0;           // over both ports, in the order in which requests came
  std::chrono::microseconds time{0};  // since the start
  Half half = Half::Weighing;
  std::uint64_t connection = 0;
  std::string request;  // any bytes
  std::string reply;    // any bytes
  /// What the client got instead of a reply: "no-answer", "close" or "reset"; empty: the reply.
  std::string instead;
  /// The line of the file that it comes from.
  std::size_t line = 0;
};

/// The format is lines of JSON, a header and one for each exchange:
///
///   {"recording":"zelkad-sim","format":1,"version":"3.0.3.2"}
///   {"number":1,"ms":12.345,"port":"weighing","connection":1,"request":"{...}","reply":"{...}"}
///
/// Of a text that is not UTF-8 the bytes stand in "request_base64" or "reply_base64" instead. Lines
/// have no line end here.
std::string recordingHeader(std::string_view version);
std::string recordingLine(const RecordedExchange& exchange);

/// Largest file that is read, in bytes.
constexpr std::size_t kMaxRecordingBytes = std::size_t{256} << 20U;

/// Reads a recording as a whole. Throws Refusal, with the line as the place.
std::vector<RecordedExchange> parseRecording(std::string_view text);

}  // namespace tolvex::sim

// What can be made to go wrong between a client and the service.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/half.h"
#include "base/result_code.h"

namespace tolvex::sim {

enum class FaultKind {
  Delay,      // the reply comes late
  NoAnswer,   // there is no reply, the connection stays
  Close,      // the connection ends instead of a reply
  Reset,      // the connection is reset instead of a reply
  TwoPieces,  // the reply comes in two segments
  Garbage,    // the reply is no JSON
  Oversized,  // the reply is longer than a client reads at once
  WrongType,  // "result" is a JSON number instead of a string
  Result,     // the service refuses with a result code
  Refuse,     // the port takes no connections
};

/// One fault that the operator has switched on.
struct FaultRule {
  /// Counts up from 1; given by the board.
  std::uint64_t id = 0;
  FaultKind kind = FaultKind::Delay;
  /// The port it acts on; both of them if there is none.
  std::optional<Half> half;
  /// The command it acts on, compared exactly; empty: on each, and on what is no command.
  std::string command;
  /// How many more exchanges it acts on; without a number until it is switched off. A rule that has
  /// acted as often as this is taken off the board. Refuse always lasts until it is switched off.
  std::optional<std::uint64_t> remaining;
  /// How many exchanges it has acted on; for Refuse 0.
  std::uint64_t acted = 0;
  /// Whether the devices do what the request says, although the client does not learn of it. A
  /// refusal (Result) is never carried out unless this says so; the others are unless it says not.
  bool carriedOut = true;
  /// Delay: how late. TwoPieces: the pause between the pieces.
  std::chrono::milliseconds time{0};
  /// TwoPieces: length of the first piece, at least 1; 0 or more than the reply has: half of it.
  std::size_t firstPiece = 0;
  /// Oversized: length of the reply. Garbage: number of bytes.
  std::size_t bytes = 0;
  /// Result: the code, any 32-bit number.
  std::int64_t code = 0;
  /// Refuse: connections that exist are closed as well.
  bool dropsConnections = true;
};

}  // namespace tolvex::sim

// What can be made to go wrong between a client and the service.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/half.h"

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

/// "delay", "no-answer" and so on, as operators and programs write it. The text is static.
const char* name(FaultKind kind);

/// All kinds, in the order of the enumeration.
const std::vector<FaultKind>& faultKinds();

/// The kind with this name, if there is one.
std::optional<FaultKind> findFaultKind(std::string_view text);

/// One fault that the operator has switched on.
struct FaultRule {
  /// The bounds of what people may ask for.
  static constexpr std::chrono::milliseconds kMaxTime{600'000};
  static constexpr std::size_t kMaxBytes = std::size_t{16} * 1024 * 1024;

  /// Counts up from 1; given by the board.
  std::uint64_t id = 0;
  FaultKind kind = FaultKind::Delay;
  /// The port it acts on; both of them if there is none.
  std::optional<Half> half;
  /// The command it acts on, compared exactly; empty: on each, and on what is no command.
  std::string command;
  /// How many more exchanges it acts on, at least 1; without a number until it is switched off. A
  /// rule that has acted as often as this is taken off the board. Refuse always lasts until it is
  /// switched off.
  std::optional<std::uint64_t> remaining;
  /// How many exchanges it has acted on; for Refuse 0.
  std::uint64_t acted = 0;
  /// Whether the devices do what the request says. If one of several rules says not, they do
  /// nothing; a reply that had to come from them is then {"result":"1"}.
  bool carriedOut = true;
  /// Delay: how late. TwoPieces: the pause between the pieces.
  std::chrono::milliseconds time{0};
  /// TwoPieces: length of the first piece; half of the reply if this is 0 or not less than all.
  std::size_t firstPiece = 0;
  /// Oversized: the reply becomes at least this long. Garbage: number of bytes, at least 1.
  std::size_t bytes = 0;
  /// Result: the code, any 32-bit number.
  std::int64_t code = 0;
  /// Refuse: connections that exist are reset as well.
  bool dropsConnections = true;
};

/// A rule of this kind with what goes for it unless someone says otherwise: it acts on everything,
/// on both ports, until it is switched off. A refusal (Result) is not carried out, all others are;
/// the pause between two pieces is 200 ms, an oversized reply has 4096 bytes, garbage 64. A Delay
/// has no time and a Result no code yet.
FaultRule defaultRule(FaultKind kind);

}  // namespace tolvex::sim

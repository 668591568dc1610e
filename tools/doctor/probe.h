// The service's ports, tried without the library, so that what is wrong shows more exactly.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace tolvex::ctl {

enum class PortState {
  Open,
  Refused,      // a machine is there, but nothing listens
  TimedOut,     // no answer at all
  Unreachable,  // no way to the address
  Trouble,      // anything else, by its number
};

struct PortProbe {
  PortState state = PortState::Trouble;
  double milliseconds = 0;  // until it was known
  int error = 0;            // Winsock's number, 0 where there is none
};

// Tries to connect, and closes the connection at once.
PortProbe probePort(const std::string& address, std::uint16_t port,
                    std::chrono::milliseconds limit);

enum class ReplyState {
  Readable,    // a JSON object with a text as its "result"
  Unreadable,  // anything else, at once
  InPieces,    // readable, had it not come in several pieces, of which the library reads one
  Closed,      // the connection was closed or reset instead
  Silent,      // nothing came
  NotConnected,
};

struct ReplyProbe {
  ReplyState state = ReplyState::NotConnected;
  std::string reply;  // as it came
  int code = 0;       // of a readable one
};

// Sends one request on a connection of its own, and reads what comes as the library does.
ReplyProbe probeReply(const std::string& address, std::uint16_t port, const std::string& request,
                      std::chrono::milliseconds limit);

// Whether the library can read the reply; its code then is in `code`.
bool isReadableReply(const std::string& reply, int& code);

}  // namespace tolvex::ctl

// One client's side of the protocol, without its socket.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/clock.h"
#include "base/half.h"
#include "protocol/json_splitter.h"

namespace tolvex::sim {

class Service;

/// One request and what it was answered with.
struct Exchange {
  /// The request as received. Of bytes that were no request, the first ones.
  std::string request;
  /// Never empty.
  std::string reply;
  /// Nothing can be understood after this request: send the reply and close the connection.
  bool last = false;
};

/// Turns the bytes that one client sends into exchanges, in order. Not thread-safe; the service
/// must outlive it.
class Conversation {
 public:
  Conversation(Service& service, Half half) : service_(service), half_(half) {}

  /// Takes in what was received. All exchanges are to be fetched with next() before more bytes
  /// come, which also bounds what is kept.
  void receive(std::string_view bytes) { splitter_.feed(bytes); }

  /// Carries out the next complete request, or gives nothing until more bytes are received.
  std::optional<Exchange> next(TimePoint now);

 private:
  Service& service_;
  Half half_;
  JsonSplitter splitter_;
};

}  // namespace tolvex::sim

// A client's connection with the service at its other end in the same thread: what the service does
// happens between the client's send and its receive. The sockets are real ones, of the loopback.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/loopback.h"
#include "transport/tcp_client.h"

namespace tolvex::fuzz {

// What one send and its receive came to.
struct Exchange {
  std::string request;
  unsigned waitMs = 0;
  std::optional<std::string> reply;  // nothing when sending or receiving failed
};

class HostileService : public CTcpClient {
 public:
  // A port where nobody listens refuses each connection.
  HostileService(const test::Port& port, bool listens, bool resync);
  ~HostileService();
  HostileService(const HostileService&) = delete;
  HostileService& operator=(const HostileService&) = delete;

  // What the service does from now on to each request. The behaviours:
  //   '.' answers   ',' answers in two pieces   '/' answers with the half, and adds the rest later
  //   '2' answers twice   '*' answers forty times   '-' is silent
  //   '#' closes   '!' resets   '+' answers and closes   '?' answers and resets
  //   '~' answers before the request as well
  void behave(char behaviour, std::string_view reply);

  // What was exchanged since the last call.
  std::vector<Exchange> takeExchanges() { return std::exchange(exchanges_, {}); }

  bool Open() override;
  void Close() override;
  int Send(const char* data, unsigned length) override;
  int RecvTimeout(char* buffer, unsigned length, unsigned timeoutMs) override;

 private:
  int drop(char* buffer, unsigned length, unsigned timeoutMs);
  void answer();
  void tellLate(std::string_view bytes);
  void tell(std::string_view bytes);
  void hangUp(bool inOrder);
  std::string_view half() const { return std::string_view(reply_).substr(0, reply_.size() / 2); }

  const test::Port& port_;
  const bool listens_;
  const bool resync_;  // whether the client promises to leave nothing over for the next request
  bool asked_ = false;
  std::optional<test::Peer> peer_;
  char behaviour_ = '.';
  std::string reply_;
  std::string pending_;  // told, and not received yet
  bool ended_ = false;   // nothing follows it
  std::vector<Exchange> exchanges_;
};

}  // namespace tolvex::fuzz

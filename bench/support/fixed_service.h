// A service that knows one answer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "support/request_watch.h"

namespace bench {

constexpr std::uint16_t kWeighingPort = 53264;
constexpr std::uint16_t kPrintingPort = 53265;

// What the scale says, and what a printer agrees to every command with.
extern const char kWeightReply[];
extern const char kAgreedReply[];

// A reply of this length, 14 at least: the result, and members of text as long as the service's own are.
std::string replyOfLength(std::size_t length);

// Runs in a process of its own and answers whatever arrives on its two ports with the same bytes, or on
// each with bytes of its own. Ends with this object, or with its process.
class FixedService {
 public:
  // Listens at this address, or at a loopback address of this process's own. The service runs on the
  // given core, or where its maker runs when that is negative. Throws std::system_error.
  explicit FixedService(std::string reply, int core = -1, std::string address = privateAddress());
  FixedService(std::string weighingReply, const std::string& printingReply);
  ~FixedService();
  FixedService(const FixedService&) = delete;
  FixedService& operator=(const FixedService&) = delete;

  const std::string& address() const { return address_; }
  const std::string& reply() const { return reply_; }  // of the weighing port

  // One that no other process takes.
  static std::string privateAddress();

  // Records and counts what arrives.
  RequestWatch& watch() const { return *watch_; }

 private:
  void start(int core, const std::string& printingReply);

  const std::string address_;
  const std::string reply_;
  RequestWatch* watch_;  // shared with the process
  int lifeline_ = -1;    // its closing ends the service
  int process_ = -1;
};

// Connects to the service and returns the socket.
int connectTo(const std::string& address, std::uint16_t port);

// One send, one wait and one receive on a connection. Throws std::runtime_error unless exactly the
// reply's length comes back.
void bareExchange(int connection, const std::string& request, std::size_t replyLength);

}  // namespace bench

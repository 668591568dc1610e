// A service that knows one answer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

constexpr std::uint16_t kWeighingPort = 53264;
constexpr std::uint16_t kPrintingPort = 53265;

// What the scale says, and what a printer agrees to every command with.
extern const char kWeightReply[];
extern const char kAgreedReply[];

struct SharedRecording;

// Runs in a process of its own and answers whatever arrives on its two ports with the same bytes.
// Ends with this object, or with its process.
class FixedService {
 public:
  // Listens at this address, or at a loopback address of this process's own. The service runs on the
  // given core, or where its maker runs when that is negative. Throws std::system_error.
  explicit FixedService(std::string reply, int core = -1, std::string address = privateAddress());
  ~FixedService();
  FixedService(const FixedService&) = delete;
  FixedService& operator=(const FixedService&) = delete;

  const std::string& address() const { return address_; }
  const std::string& reply() const { return reply_; }

  // One that no other process takes.
  static std::string privateAddress();

  // Between the two, what arrives is kept: one text for each receive of the service, in order.
  // More than there is room for (a megabyte) makes the second one throw.
  void startRecording();
  std::vector<std::string> recorded();

 private:
  const std::string address_;
  const std::string reply_;
  SharedRecording* recording_ = nullptr;  // shared with the process
  int lifeline_ = -1;                     // its closing ends the service
  int process_ = -1;
};

// Connects to the service and returns the socket.
int connectTo(const std::string& address, std::uint16_t port);

// One send, one wait and one receive on a connection. Throws std::runtime_error unless exactly the
// reply's length comes back.
void bareExchange(int connection, const std::string& request, std::size_t replyLength);

}  // namespace bench

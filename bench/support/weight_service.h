// A service that knows one answer.
#pragma once

#include <cstdint>
#include <string>

namespace bench {

constexpr std::uint16_t kWeighingPort = 53264;
constexpr std::uint16_t kPrintingPort = 53265;

// Runs in a process of its own, on the core of the one that makes it, and answers whatever arrives
// on its two ports with the same weight. Ends with this object, or with its process.
class WeightService {
 public:
  // Throws std::system_error when it cannot listen there.
  explicit WeightService(const std::string& address);
  ~WeightService();
  WeightService(const WeightService&) = delete;
  WeightService& operator=(const WeightService&) = delete;

  static const char kReply[];

 private:
  int lifeline_ = -1;  // its closing ends the service
  int process_ = -1;
};

// Connects to the service and returns the socket.
int connectTo(const std::string& address, std::uint16_t port);

}  // namespace bench

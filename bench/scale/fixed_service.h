// A service that gives one answer to each port, and counts what arrives.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace bench::scale {

// What the service has seen; it lies in memory that both processes share.
struct Arrivals {
  std::atomic<std::uint64_t> weighing{0};   // requests
  std::atomic<std::uint64_t> printing{0};   // requests, lines among them
  std::atomic<std::uint64_t> lines{0};      // lines of text, numbered or not
  std::atomic<std::uint64_t> misplaced{0};  // numbered lines that did not follow the one before
};

// Runs in a process of its own, with the cores of the one that makes it. On the printing port it
// agrees to everything. Ends with this object, or with its process. A text that begins with a
// number has to follow the line before it, the first one of a job being 1.
class FixedService {
 public:
  // Throws std::system_error when it cannot listen there.
  FixedService(const std::string& address, const std::string& weighingReply);
  ~FixedService();
  FixedService(const FixedService&) = delete;
  FixedService& operator=(const FixedService&) = delete;

  const Arrivals& arrivals() const { return *arrivals_; }

 private:
  Arrivals* arrivals_;
  int lifeline_ = -1;  // its closing ends the service
  int process_ = -1;
};

}  // namespace bench::scale

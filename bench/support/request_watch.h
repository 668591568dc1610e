// What a service tells of the requests that it receives.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

// How many requests there were on each port, and what they printed.
struct Arrivals {
  std::uint64_t weighing;
  std::uint64_t printing;   // lines among them
  std::uint64_t lines;      // lines of text, numbered or not
  std::uint64_t misplaced;  // lines that begin with a number and did not follow the one before; the
                            // first one of a job is 1
};

// Lies in memory that the service and its maker share, and begins as zeros. The service notes each
// request before it answers; where nobody asked for it, that costs a look.
class RequestWatch {
 public:
  // By the service. Requests have ended with a '\0' behind their length.
  void note(const char* request, std::size_t length, bool printing);

  // By its maker: between the two, what arrives is kept, one text for each request, in order. More than
  // there is room for (a megabyte) makes the second one throw std::runtime_error.
  void startRecording();
  std::vector<std::string> recorded();

  // By its maker: what arrived between the two.
  void startCounting();
  Arrivals counted();

 private:
  static constexpr std::size_t kRoom = std::size_t{1} << 20;

  void record(const char* request, std::size_t length);
  void count(const char* request, bool printing);

  std::atomic<bool> recording_, overrun_, counting_;
  std::atomic<std::size_t>
      used_;  // of the bytes: texts one behind another, each with its length before it
  std::atomic<std::uint64_t> weighing_, printing_, lines_, misplaced_;
  std::atomic<long> lastNumber_;
  char bytes_[kRoom];
};

}  // namespace bench

// One of many applications that use one service, each a process with the library of its own.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "scale/curve.h"
#include "support/state_folder.h"

namespace bench::scale {

// What a client and the one who counts share. All of it lies in memory of both.
struct ClientSlot {
  static constexpr std::size_t kMostTimes = 400000;  // only what is written takes memory

  std::atomic<int> stage;
  double answered;  // when the first call was answered, by now()
  std::uint32_t calls;
  std::uint32_t failures;  // of the calls after the first
  float times[kMostTimes];
};

class Clients {
 public:
  // Makes the processes, which wait for connect(). Throws std::system_error. One object at a
  // time: it chooses where loggers of this process write.
  Clients(const Equipment& equipment, const std::string& address, std::size_t count);
  // Ends those that are left.
  ~Clients();
  Clients(const Clients&) = delete;
  Clients& operator=(const Clients&) = delete;

  // Each loads the library and makes its first call. Returns the microseconds until the last one
  // was answered. Throws std::runtime_error where one is not within 30 s.
  double connect();

  // Each reads the weight without a pause for so many microseconds. Returns all times of calls, and
  // how many failed. Throws std::runtime_error where one does not come to its end.
  struct Calls {
    std::vector<double> times;
    std::uint64_t failures = 0;
    std::uint64_t fewest = 0, most = 0;  // of one client
  };
  Calls call(double length);

 private:
  // What all clients wait for together: the closing of a pipe wakes them at once.
  class Gate {
   public:
    Gate();
    ~Gate();
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;
    void open();  // by the one who counts
    void pass();  // by a client
   private:
    int waiting_ = -1;
    int held_ = -1;
  };

  void await(int stage);
  [[noreturn]] void beClient(const Equipment& equipment, const std::string& address,
                             std::size_t number);

  const StateFolder state_;  // with a folder of each client's own in it
  Gate connect_, call_;
  std::atomic<double>* callUntil_;  // by now()
  ClientSlot* slots_;
  std::vector<int> processes_;
};

}  // namespace bench::scale

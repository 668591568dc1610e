// What went over the wire.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/half.h"

namespace tolvex::sim {

using WallTime = std::chrono::system_clock::time_point;

/// What became of an exchange.
enum class Outcome {
  Pending,     // the reply is still to be delivered
  Answered,    // all of the reply was handed to the system
  Unanswered,  // a fault kept the reply back
  Closed,      // a fault closed the connection instead
  Reset,       // a fault reset the connection instead
  Lost,        // the client left before the reply was delivered
};

/// One request and what was answered.
struct TrafficEntry {
  /// Counts up from 1 over both ports.
  std::uint64_t number = 0;
  Half half = Half::Weighing;
  /// Counts connections up from 1 over both ports.
  std::uint64_t connection = 0;
  /// Address and port of the client, "127.0.0.1:40112".
  std::string client;
  /// When the request was complete.
  WallTime time;
  /// From then until the last byte of the reply was handed to the system.
  std::chrono::microseconds duration{0};
  /// As received and as sent, cut to kMaxTextBytes; any bytes.
  std::string request;
  std::string reply;
  /// Their lengths before they were cut.
  std::size_t requestBytes = 0;
  std::size_t replyBytes = 0;
  /// The value of "cmd"; empty if there is none.
  std::string command;
  /// Whether this port has such a command.
  bool known = false;
  /// The result code that the service answered with, before faults changed the reply. Without one
  /// if the request was not carried out.
  std::optional<std::int64_t> result;
  /// Number of the job that the request began or changed, 0 if none.
  int job = 0;
  Outcome outcome = Outcome::Pending;
  /// Kinds of the faults that acted, as operators call them ("delay", "two-pieces").
  std::vector<std::string> faults;
};

/// The latest exchanges. Not thread-safe.
class TrafficLog {
 public:
  /// As many are kept, and as many bytes of requests and replies.
  static constexpr std::size_t kMaxEntries = 10'000;
  static constexpr std::size_t kMaxBytes = std::size_t{32} * 1024 * 1024;
  static constexpr std::size_t kMaxTextBytes = 16 * 1024;

  /// `listener` is called with an entry when it is added and when it is completed. There may be
  /// several.
  void listen(std::function<void(const TrafficEntry& entry)> listener);

  /// Takes in an entry, gives it its number and returns that.
  std::uint64_t add(TrafficEntry entry);

  /// Completes an entry. Without effect if it is no longer kept.
  void complete(std::uint64_t number, Outcome outcome, std::chrono::microseconds duration);

  /// Those that are kept, oldest first; their numbers have no gaps.
  const std::deque<TrafficEntry>& entries() const { return entries_; }
  /// The entry with this number, null if it is not kept.
  const TrafficEntry* find(std::uint64_t number) const;

  /// Grows with each add() and complete(); `changes()` of an entry is the value after its latest.
  std::uint64_t changes() const { return changes_; }

  /// Number of the newest entry ever, 0 if there was none.
  std::uint64_t newest() const { return lastNumber_; }

  /// Forgets the entries; numbers go on.
  void clear();
  /// Forgets the entries; numbers begin again.
  void restart();

 private:
  void changed(const TrafficEntry& entry);

  std::deque<TrafficEntry> entries_;
  std::vector<std::function<void(const TrafficEntry&)>> listeners_;
  std::size_t bytes_ = 0;
  std::uint64_t lastNumber_ = 0;
  std::uint64_t changes_ = 0;
};

}  // namespace tolvex::sim

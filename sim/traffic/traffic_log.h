// What went over the wire.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
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
  /// The result code that the service answered with or a fault had it refuse with, before other
  /// faults changed the reply. None if a fault kept it from being asked.
  std::optional<std::int64_t> result;
  /// Number of the job that the request began or changed, 0 if none.
  int job = 0;
  Outcome outcome = Outcome::Pending;
  /// Kinds of the faults that acted, as operators call them ("delay", "two-pieces").
  std::vector<std::string> faults;
  /// What TrafficLog::changes() was after this entry's latest change; given by the log.
  std::uint64_t change = 0;
};

/// The latest exchanges, and who is connected. Not thread-safe.
class TrafficLog {
 public:
  /// As many are kept, and as many bytes of requests and replies; of a command as much.
  static constexpr std::size_t kMaxEntries = 10'000;
  static constexpr std::size_t kMaxBytes = std::size_t{32} * 1024 * 1024;
  static constexpr std::size_t kMaxTextBytes = std::size_t{16} * 1024;
  static constexpr std::size_t kMaxCommandBytes = 64;

  /// `listener` is called with an entry when it is added and when it is completed. There may be
  /// several.
  void listen(std::function<void(const TrafficEntry& entry)> listener);

  /// `listener` is called when a client has connected. There may be several.
  void listenToConnections(std::function<void(Half half)> listener);

  /// Takes in an entry, gives it its number and returns that. Texts that are too long are cut.
  std::uint64_t add(TrafficEntry entry);

  /// Completes an entry. Without effect if it is no longer kept.
  void complete(std::uint64_t number, Outcome outcome, std::chrono::microseconds duration);

  /// Those that are kept, oldest first; their numbers have no gaps.
  const std::deque<TrafficEntry>& entries() const { return entries_; }
  /// The entry with this number, null if it is not kept.
  const TrafficEntry* find(std::uint64_t number) const;

  /// Grows with every change, connections included.
  std::uint64_t changes() const { return changes_; }

  /// The entries that have changed since changes() was `since`, in the order of their latest
  /// changes, `most` of them at most. To go on, ask again with `change` of the last one. The
  /// pointers are valid until the log changes. Takes time for what has changed only.
  std::vector<const TrafficEntry*> changedSince(std::uint64_t since, std::size_t most) const;

  /// Number of the newest entry ever, 0 if there was none.
  std::uint64_t newest() const { return lastNumber_; }
  /// Number of the oldest entry that is kept; of the next one if there is none.
  std::uint64_t oldest() const { return lastNumber_ + 1 - entries_.size(); }

  /// A client has connected, or is gone. The first gives the number of the connection.
  std::uint64_t connected(Half half, const std::string& client);
  void disconnected(Half half);
  std::size_t connections(Half half) const { return connections_.at(indexOf(half)); }

  /// The client that connected or sent a request last; empty if there was none.
  const std::string& lastClient() const { return lastClient_; }
  /// When the newest request came.
  std::optional<WallTime> lastRequest() const { return lastRequest_; }
  /// Number of the newest entry that went wrong: a command that the port does not have, a result
  /// other than 0 and 1005 (a weight that moves is everyday life), or a fault. 0 if there was none. It may be no longer kept.
  std::uint64_t lastError() const { return lastError_; }

  /// Forgets the entries, the latest client, request and error; numbers and connections go on.
  void clear();
  /// The same, and the numbers of entries begin again. Those of connections go on.
  void restart();
  /// How often the numbers began again. Who remembers a number forgets it when this has grown.
  std::uint64_t restarts() const { return restarts_; }

 private:
  struct Change {
    std::uint64_t change;
    std::uint64_t number;
  };

  static std::size_t indexOf(Half half) { return half == Half::Weighing ? 0 : 1; }
  bool isLatest(const Change& change) const;
  void changed(TrafficEntry& entry);
  void forgetOldest();

  std::deque<TrafficEntry> entries_;
  // Oldest first. An entry stands here for each of its changes, of which only the latest counts.
  std::deque<Change> history_;
  // A list, so that a listener may bring another one.
  std::list<std::function<void(const TrafficEntry&)>> listeners_;
  std::vector<std::function<void(Half)>> connectionListeners_;
  std::size_t bytes_ = 0;
  std::uint64_t lastNumber_ = 0;
  std::uint64_t changes_ = 0;
  std::uint64_t restarts_ = 0;
  std::array<std::size_t, 2> connections_{};
  std::uint64_t lastConnection_ = 0;
  std::string lastClient_;
  std::optional<WallTime> lastRequest_;
  std::uint64_t lastError_ = 0;
};

/// "pending", "answered" and so on, for people and programs to read. The text is static.
const char* name(Outcome outcome);

}  // namespace tolvex::sim

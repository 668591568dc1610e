// What happens between a request and its reply.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/clock.h"
#include "base/half.h"
#include "exchange/answerer.h"
#include "exchange/delivery.h"
#include "faults/fault_board.h"
#include "protocol/json_splitter.h"
#include "traffic/traffic_log.h"

namespace tolvex::sim {

class JobLog;

/// One connection.
struct Caller {
  Half half = Half::Weighing;
  /// Counts up from 1 over both ports.
  std::uint64_t connection = 0;
  /// Address and port of the client, "127.0.0.1:40112".
  std::string client;
};

/// A request that was answered, or kept from it, for those who log and record. The texts and
/// references are valid during the call.
struct Exchange {
  const Caller& caller;
  /// When the request was complete.
  WallTime time;
  TimePoint now;
  /// As received. Of bytes that were no request, the first ones.
  std::string_view request;
  /// As the answerer gave it; empty if it gave none, or was not asked because a fault said so.
  std::string_view answer;
  /// What is about to be delivered; its reply is what the client gets.
  const Delivery& delivery;
  /// Kinds of the faults that acted, in the order in which they were switched on.
  const std::vector<std::string>& faults;
};

/// Has each request answered, lets the faults act on the reply and keeps the traffic log. Several
/// faults at once act in this order, whatever the order in which they were switched on:
///
/// 1. If one of them says so, the request is not carried out.
/// 2. Result puts {"result":"CODE"} in the place of the reply.
/// 3. WrongType, Oversized and Garbage change the text, one after the other.
/// 4. NoAnswer, Close and Reset put themselves in its place; the last of these three wins.
/// 5. Delay: all delays together pass first.
/// 6. TwoPieces splits what is sent.
///
/// Of several other faults of the same kind, the one that was switched on last acts; all are
/// counted. Not thread-safe; the references must outlive it, and the faults and jobs must not
/// change after its end.
class Exchanger {
 public:
  Exchanger(Answerer& answerer, FaultBoard& faults, TrafficLog& traffic, JobLog& jobs);

  /// `observer` is called with each exchange before it is delivered. There may be several.
  void observe(std::function<void(const Exchange& exchange)> observer);

  /// Has one piece of what a client sent answered. After one that is TooLong the connection is to
  /// be closed.
  Delivery exchange(const Caller& caller, const JsonSplitter::Piece& piece, TimePoint now,
                    WallTime time);

  /// To be called when a delivery is done, as it said or because the client had gone.
  void delivered(const Delivery& delivery, TimePoint now);
  void lost(const Delivery& delivery, TimePoint now);

  FaultBoard& faults() { return faults_; }
  TrafficLog& traffic() { return traffic_; }

 private:
  std::uint64_t record(const Caller& caller, TrafficEntry entry, std::string_view request,
                       const Delivery& delivery);
  void complete(const Delivery& delivery, Outcome outcome, TimePoint now);

  Answerer& answerer_;
  FaultBoard& faults_;
  TrafficLog& traffic_;
  // The job that was changed last. Shared with the listener, which the job log keeps for ever.
  std::shared_ptr<int> job_ = std::make_shared<int>(0);
  // A list, so that an observer may bring another one.
  std::list<std::function<void(const Exchange&)>> observers_;
};

}  // namespace tolvex::sim

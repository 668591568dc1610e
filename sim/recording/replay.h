// Answers from a recording instead of the devices.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/answerer.h"
#include "recording/recording.h"

namespace tolvex::sim {

/// Compares the requests of each port with the recorded ones, in their order. All connections to a
/// port are one sequence, whichever of them a request came over. A request that equals the recorded
/// one gets the recorded reply, or what came instead of one; any other one, and one that comes after
/// the last recorded one, gets kOtherRequest. Either way the next request is compared with the next
/// recorded one.
///
/// Of a picture's file name only what stands behind the folders is compared: where the copies of
/// printed pictures lie is a matter of the machine and the user. Not thread-safe.
class Replay : public Answerer {
 public:
  /// No device answers with this.
  static constexpr const char* kOtherRequest = R"({"result":"1"})";

  /// `warn` is told the first request that is not the recorded one, in several lines.
  Replay(std::vector<RecordedExchange> exchanges,
         std::function<void(const std::string& text)> warn);

  Answer answer(Half half, std::string_view request, TimePoint now) override;

  /// What was not as recorded, one line each: requests that differed, that were too many, and that
  /// did not come.
  std::vector<std::string> unmet() const;

 private:
  struct Port {
    std::vector<RecordedExchange> exchanges;
    std::size_t next = 0;
  };

  Port& portOf(Half half) { return ports_.at(half == Half::Weighing ? 0 : 1); }
  const Port& portOf(Half half) const { return ports_.at(half == Half::Weighing ? 0 : 1); }
  void note(Half half, const std::string& what, const std::string& details);

  std::array<Port, 2> ports_;
  std::function<void(const std::string&)> warn_;
  std::uint64_t requests_ = 0;
  std::uint64_t different_ = 0;
  std::string firstDifferent_;
};

}  // namespace tolvex::sim

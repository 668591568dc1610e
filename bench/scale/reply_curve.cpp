// What a raw command costs, by the bytes of its reply, beside the bare exchange of the same bytes.
//
// Both ends of both run on one core: on two, the wake-up of the other core hides everything else.
// Batches of the two take turns in the order ABBA, so that a slow drift of the machine meets both.
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "scale/child.h"
#include "scale/curve.h"
#include "scale/spread.h"
#include "support/cores.h"
#include "support/fixed_service.h"
#include "support/library.h"
#include "support/paired.h"
#include "support/state_folder.h"

namespace bench::scale {
namespace {

constexpr char kCommand[] = "getweight";
constexpr char kRequest[] = R"({"cmd":"getweight"})";
constexpr unsigned kWaitMs = 40000;
constexpr int kCallsPerBatch = 5;
constexpr int kWarmUpCalls = 200;
constexpr std::size_t kSizes[] = {20, 64, 128, 256, 512, 768, 1024, 1280, 1536, 1792, 2047, 2048};

nlohmann::json takeTurnsOfReply(const Equipment& equipment, std::size_t size, std::size_t pairs) {
  const StateFolder state;
  const FixedService service(replyOfLength(size));
  const Library library = loadLibrary(equipment.library);
  connectLibrary(library, service.address());
  const int connection = connectTo(service.address(), kWeighingPort);
  std::array<char, 4096> buffer = {};
  const auto call = [&] {
    const int code = library.sendRawCmdToLC(kCommand, nullptr, buffer.data(),
                                            static_cast<unsigned>(buffer.size()), kWaitMs);
    if (code != 0) throw std::runtime_error("the command answered " + std::to_string(code));
  };
  const auto bare = [&] { bareExchange(connection, kRequest, size); };
  const auto timedCalls = [&] {
    const double time = timedBatch(kCallsPerBatch, call);
    if (std::memcmp(buffer.data(), service.reply().data(), size) != 0) {
      throw std::runtime_error("a reply came out otherwise than it was sent");
    }
    return time;
  };
  timedBatch(kWarmUpCalls, call);
  timedBatch(kWarmUpCalls, bare);
  const Paired paired =
      takeTurns(pairs, timedCalls, [&] { return timedBatch(kCallsPerBatch, bare); });
  close(connection);
  return {{"a", paired.a}, {"b", paired.b}};
}

nlohmann::json measurePointOfReply(const Equipment& equipment, std::size_t size) {
  const int processes = equipment.quick ? 2 : 7;
  const std::size_t pairs = equipment.quick ? 50 : 500;
  std::vector<double> library, bare, ratio, difference;
  for (int process = 0; process < processes; ++process) {
    const nlohmann::json times =
        inFreshProcess([&] { return takeTurnsOfReply(equipment, size, pairs); });
    for (std::size_t i = 0; i < times["a"].size(); ++i) {
      library.push_back(times["a"][i]);
      bare.push_back(times["b"][i]);
      ratio.push_back(library.back() / bare.back());
      difference.push_back(library.back() - bare.back());
    }
  }
  return {{"bytes", size},        {"pairs", ratio.size()},  {"library", spread(library)},
          {"bare", spread(bare)}, {"ratio", spread(ratio)}, {"difference", spread(difference)}};
}

}  // namespace

nlohmann::json measureReplies(const Equipment& equipment) {
  pinned(1);
  nlohmann::json points = nlohmann::json::array();
  for (const std::size_t size : kSizes) {
    if (!equipment.takes(static_cast<long>(size), 2048)) continue;
    points.push_back(measurePointOfReply(equipment, size));
  }
  return {{"setting",
           "A raw command to the scale and a bare send, poll and receive of the same bytes in "
           "turns, in several processes; both ends on one core"},
          {"points", points}};
}

}  // namespace bench::scale

// What a raw command costs, by the bytes of its reply, beside the bare exchange of the same bytes.
//
// Both ends of both run on one core: on two, the wake-up of the other core hides everything else.
// Batches of the two take turns in the order ABBA, so that a slow drift of the machine meets both.
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "curve.h"
#include "fixed_service.h"
#include "library.h"
#include "place.h"
#include "spread.h"
#include "support/state_folder.h"
#include "support/weight_service.h"

namespace bench::scale {
namespace {

constexpr char kCommand[] = "getweight";
constexpr char kRequest[] = R"({"cmd":"getweight"})";
constexpr unsigned kWaitMs = 40000;
constexpr int kCallsPerBatch = 5;
constexpr int kWarmUpCalls = 200;
constexpr std::size_t kSizes[] = {20, 64, 128, 256, 512, 768, 1024, 1280, 1536, 1792, 2047, 2048};
constexpr std::size_t kMemberSize = 32;

using Buffer = std::array<char, 4096>;

// An object of this size: a result, and members of text in the length of the service's own.
std::string replyOf(std::size_t size) {
  constexpr std::size_t kFrame = 6;  // ,"":""
  std::string reply = R"({"result":"0")";
  while (reply.size() + 1 < size) {
    const std::size_t rest = size - 1 - reply.size();
    const std::size_t member = rest < kMemberSize + kFrame ? rest : kMemberSize;
    const std::string name = member > 2 * kFrame ? "member" : "";
    reply += ",\"" + name + "\":\"" + std::string(member - kFrame - name.size(), 'x') + '"';
  }
  return reply + '}';
}

class Pair {
 public:
  Pair(const Library& library, int connection, std::string reply)
      : library_(library), connection_(connection), reply_(std::move(reply)) {}

  void callLibrary() {
    const int code = library_.rawWeighing(kCommand, nullptr, buffer_.data(),
                                          static_cast<unsigned>(buffer_.size()), kWaitMs);
    if (code != 0) throw std::runtime_error("the command answered " + std::to_string(code));
  }
  void callBare() {
    pollfd entry = {connection_, POLLIN, 0};
    if (send(connection_, kRequest, sizeof(kRequest) - 1, MSG_NOSIGNAL) <= 0 ||
        poll(&entry, 1, kWaitMs) != 1 ||
        recv(connection_, buffer_.data(), 2048, 0) != static_cast<ssize_t>(reply_.size())) {
      throw std::runtime_error("the bare exchange failed");
    }
  }
  // Whether the latest call brought every byte.
  void check() const {
    if (std::memcmp(buffer_.data(), reply_.data(), reply_.size()) != 0) {
      throw std::runtime_error("a reply came out otherwise than it was sent");
    }
  }

 private:
  const Library& library_;
  int connection_;
  const std::string reply_;
  Buffer buffer_ = {};
};

// Microseconds for one call, over a batch; the batch's last reply is looked at.
double timed(Pair& pair, void (Pair::*call)()) {
  const double start = now();
  for (int count = 0; count < kCallsPerBatch; ++count) (pair.*call)();
  const double time = (now() - start) / kCallsPerBatch;
  pair.check();
  return time;
}

nlohmann::json takeTurns(const Equipment& equipment, const std::string& address, std::size_t size,
                         int pairs) {
  const StateFolder state;
  const FixedService service(address, replyOf(size));
  const Library library(equipment.library);
  library.use(address);
  const int connection = connectTo(address, kWeighingPort);
  Pair pair(library, connection, replyOf(size));
  for (int count = 0; count < kWarmUpCalls; ++count) {
    pair.callLibrary();
    pair.callBare();
  }
  std::vector<double> a, b;
  for (int count = 0; count < pairs; ++count) {
    const bool libraryFirst = count % 2 == 0;
    if (libraryFirst) a.push_back(timed(pair, &Pair::callLibrary));
    b.push_back(timed(pair, &Pair::callBare));
    if (!libraryFirst) a.push_back(timed(pair, &Pair::callLibrary));
  }
  close(connection);
  return {{"a", a}, {"b", b}};
}

nlohmann::json measurePoint(const Equipment& equipment, const std::string& address,
                            std::size_t size) {
  const int processes = equipment.quick ? 2 : 7;
  const int pairs = equipment.quick ? 50 : 500;
  std::vector<double> library, bare, ratio, difference;
  for (int process = 0; process < processes; ++process) {
    const nlohmann::json times =
        inFreshProcess([&] { return takeTurns(equipment, address, size, pairs); });
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
  pinToOneCore();
  const std::string address = privateAddress();
  nlohmann::json points = nlohmann::json::array();
  for (const std::size_t size : kSizes) {
    if (replyOf(size).size() != size) throw std::logic_error("a reply of another size");
    if (!equipment.takes(static_cast<long>(size), 2048)) continue;
    points.push_back(measurePoint(equipment, address, size));
  }
  return {{"setting",
           "A raw command to the scale and a bare send, poll and receive of the same bytes in "
           "turns, in several processes; both ends on one core"},
          {"points", points}};
}

}  // namespace bench::scale

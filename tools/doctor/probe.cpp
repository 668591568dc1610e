#include "doctor/probe.h"

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "base/reply_size.h"
#include "platform/socket.h"

namespace tolvex::ctl {
namespace {

namespace net = tolvex::platform::net;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kWouldBlock = 10035;
constexpr int kNetworkUnreachable = 10051;
constexpr int kTimedOut = 10060;
constexpr int kRefused = 10061;
constexpr int kHostUnreachable = 10065;

constexpr std::size_t kMostLookedAt = std::size_t{2} * kLongestReply;
constexpr milliseconds kNextPiece(1000);  // how long the rest of a reply may take

// The socket library, in use.
class SocketUse {
 public:
  SocketUse() { net::startUp(); }
  ~SocketUse() { net::cleanUp(); }
  SocketUse(const SocketUse&) = delete;
  SocketUse& operator=(const SocketUse&) = delete;
};

class Connection {
 public:
  Connection() : socket_(net::createTcp()) {}
  ~Connection() {
    if (socket_ == net::kInvalidSocket) return;
    net::shutDown(socket_);
    net::release(socket_);
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // 0 when it is connected, otherwise Winsock's number; kTimedOut also when the limit passed.
  int open(const std::string& address, std::uint16_t port, milliseconds limit) {
    if (socket_ == net::kInvalidSocket) return net::lastError();
    net::setNonBlocking(socket_, true);
    const std::uint32_t number = net::parseAddress(address.c_str());
    if (net::connectTo(socket_, number, port) == 0) return 0;
    if (net::lastError() != kWouldBlock) return net::lastError();
    const net::Readiness readiness = wait(limit, true);
    if (readiness.count == 0) return kTimedOut;
    int error = 0;
    if (net::pendingError(socket_, error) && error != 0) return error;
    return readiness.ready && !readiness.exceptional ? 0 : kRefused;
  }

  bool send(const std::string& request) {
    return net::send(socket_, request.data(), static_cast<unsigned>(request.size())) ==
           static_cast<int>(request.size());
  }

  // What one receive gives, appended to `reply`. Closed, Silent, or Unreadable for "something came".
  ReplyState receive(std::string& reply, milliseconds limit) {
    if (wait(limit, false).count == 0) return ReplyState::Silent;
    char buffer[kLongestReply];
    const int count = net::receive(socket_, buffer, sizeof(buffer));
    if (count <= 0) return ReplyState::Closed;
    reply.append(buffer, static_cast<std::size_t>(count));
    return ReplyState::Unreadable;
  }

 private:
  net::Readiness wait(milliseconds limit, bool forWrite) const {
    return net::wait(socket_, static_cast<std::uint32_t>(limit.count()), forWrite);
  }

  net::Socket socket_;
};

PortState stateOf(int error) {
  switch (error) {
    case 0:
      return PortState::Open;
    case kRefused:
      return PortState::Refused;
    case kTimedOut:
      return PortState::TimedOut;
    case kNetworkUnreachable:
    case kHostUnreachable:
      return PortState::Unreachable;
    default:
      return PortState::Trouble;
  }
}

// What came is not readable yet: the rest of it may be on the way. Who sends byte by byte is not
// listened to for longer than the limit.
ReplyState readOn(Connection& connection, ReplyProbe& probe, milliseconds limit) {
  const auto end = Clock::now() + limit;
  std::string whole = probe.reply;
  while (whole.size() < kMostLookedAt) {
    const auto left = std::chrono::ceil<milliseconds>(end - Clock::now());
    if (left <= milliseconds(0)) break;
    if (connection.receive(whole, std::min(left, kNextPiece)) != ReplyState::Unreadable) break;
    if (!isReadableReply(whole, probe.code)) continue;
    probe.reply = whole;
    return ReplyState::InPieces;
  }
  probe.reply = whole;
  return ReplyState::Unreadable;
}

}  // namespace

PortProbe probePort(const std::string& address, std::uint16_t port, milliseconds limit) {
  const SocketUse use;
  PortProbe probe;
  const auto begin = Clock::now();
  Connection connection;
  probe.error = connection.open(address, port, limit);
  const std::chrono::duration<double, std::milli> taken = Clock::now() - begin;
  probe.state = stateOf(probe.error);
  probe.milliseconds = taken.count();
  return probe;
}

ReplyProbe probeReply(const std::string& address, std::uint16_t port, const std::string& request,
                      milliseconds limit) {
  const SocketUse use;
  ReplyProbe probe;
  Connection connection;
  if (connection.open(address, port, limit) != 0) return probe;
  if (!connection.send(request)) {
    probe.state = ReplyState::Closed;
    return probe;
  }
  probe.state = connection.receive(probe.reply, limit);
  if (probe.state != ReplyState::Unreadable) return probe;
  probe.state = isReadableReply(probe.reply, probe.code) ? ReplyState::Readable
                                                         : readOn(connection, probe, limit);
  return probe;
}

bool isReadableReply(const std::string& reply, int& code) {
  // What the library takes for the end of a reply.
  const std::string text = reply.substr(0, reply.find('\0'));
  // Deep nesting must not take the stack: the parser's callback refuses it.
  constexpr int kDeepest = 64;
  bool deep = false;
  const auto shallow = [&deep](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
    deep = deep || depth > kDeepest;
    return !deep;
  };
  const auto value = nlohmann::json::parse(text, shallow, false);
  if (deep || !value.is_object()) return false;
  const auto result = value.find("result");
  if (result == value.end() || !result->is_string()) return false;
  code = std::atoi(result->get_ref<const std::string&>().c_str());
  return true;
}

}  // namespace tolvex::ctl

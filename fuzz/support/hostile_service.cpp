#include "support/hostile_service.h"

#include <chrono>
#include <thread>

#include "support/target.h"

namespace tolvex::fuzz {
namespace {

constexpr char kAddress[] = "127.0.0.1";
constexpr std::size_t kMostPending = 65536;  // less than the system takes without a reader
constexpr unsigned kSurelyMs = 20000;        // for bytes that are on their way

}  // namespace

HostileService::HostileService(const test::Port& port, bool listens, bool resync)
    : CTcpClient(kAddress, port.number()), port_(port), listens_(listens), resync_(resync) {}

// A connection that the service resets leaves nothing behind in the system, however many there are.
HostileService::~HostileService() {
  if (peer_) peer_->reset();
}

void HostileService::behave(char behaviour, std::string_view reply) {
  behaviour_ = behaviour;
  reply_ = reply;
}

bool HostileService::Open() {
  const bool opened = CTcpClient::Open();
  if (opened && listens_) peer_.emplace(port_.accept());
  return opened;
}

void HostileService::Close() {
  if (peer_) peer_->reset();
  peer_.reset();
  CTcpClient::Close();
  pending_.clear();
  ended_ = false;
}

int HostileService::Send(const char* data, unsigned length) {
  require(!resync_ || pending_.empty(), "with resync nothing is left over for the next request");
  exchanges_.push_back({std::string(data, length), 0, {}});
  if (behaviour_ == '~') tell(reply_);
  const int sent = CTcpClient::Send(data, length);
  asked_ = sent > 0;
  if (sent > 0 && peer_) {
    require(static_cast<unsigned>(sent) == length, "a request is sent as a whole");
    require(peer_->receive(length) == exchanges_.back().request, "the service gets the request");
  }
  return sent;
}

int HostileService::RecvTimeout(char* buffer, unsigned length, unsigned timeoutMs) {
  if (!asked_) return drop(buffer, length, timeoutMs);
  asked_ = false;
  Exchange& exchange = exchanges_.back();
  exchange.waitMs = timeoutMs;
  if (peer_) answer();
  const bool comes = !pending_.empty() || ended_ || !peer_;
  const int received = CTcpClient::RecvTimeout(buffer, length, comes ? kSurelyMs : 0);
  require(received <= static_cast<int>(length), "a receive keeps to its capacity");
  if (received > 0) {
    exchange.reply = std::string(buffer, static_cast<std::size_t>(received));
    require(pending_.compare(0, exchange.reply->size(), *exchange.reply) == 0,
            "what is received is what the service told, in order");
    pending_.erase(0, exchange.reply->size());
  } else {
    require(comes || received == 0, "silence is a time-out");
  }
  if (behaviour_ == '/') tellLate(std::string_view(reply_).substr(half().size()));
  return received;
}

// What waits before a request, which only resync looks for.
int HostileService::drop(char* buffer, unsigned length, unsigned timeoutMs) {
  require(resync_, "nothing is received that was not asked for");
  require(timeoutMs == 0, "what waits is not waited for");
  const int received = CTcpClient::RecvTimeout(buffer, length, timeoutMs);
  require(received != 0, "what was there a moment ago is there");
  return received;
}

void HostileService::answer() {
  switch (behaviour_) {
    case ',':
      tell(half());
      tell(std::string_view(reply_).substr(half().size()));
      break;
    case '/':
      tell(half());
      break;
    case '*': {
      std::string often;
      for (int time = 0; time < 40; ++time) often += reply_;
      tell(often);
      break;
    }
    case '-':
      break;
    case '#':
      hangUp(true);
      break;
    case '!':
      hangUp(false);
      break;
    case '+':
    case '?':
      tell(reply_);
      hangUp(behaviour_ == '+');
      break;
    case '2':
      tell(reply_);
      [[fallthrough]];
    default:
      tell(reply_);
  }
}

void HostileService::tell(std::string_view bytes) {
  if (!peer_ || bytes.empty() || pending_.size() + bytes.size() > kMostPending) return;
  if (peer_->trySend(std::string(bytes))) pending_ += bytes;
}

// Comes back when the bytes have arrived, as there is no telling what the client sees before.
void HostileService::tellLate(std::string_view bytes) {
  if (!peer_ || bytes.empty()) return;
  tell(bytes);
  for (int turn = 0; !HasUnread(); ++turn) {
    require(turn < 20000, "late bytes arrive");
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

void HostileService::hangUp(bool inOrder) {
  if (inOrder) {
    peer_->close();
  } else {
    peer_->reset();
  }
  peer_.reset();
  ended_ = true;
}

}  // namespace tolvex::fuzz

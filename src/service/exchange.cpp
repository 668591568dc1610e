#include <cstring>

#include "log/nlog.h"
#include "service/envelope.h"
#include "service/reply.h"
#include "service/reply_copy.h"
#include "service/result_codes.h"
#include "service/route.h"

namespace tolvex {
namespace {

// Closes the connection of an exchange that does not come to a good end, however it is left.
class OpenExchange {
 public:
  explicit OpenExchange(CTcpClient* connection) : connection_(connection) {}
  ~OpenExchange() {
    if (connection_ != nullptr) connection_->Close();
  }
  OpenExchange(const OpenExchange&) = delete;
  OpenExchange& operator=(const OpenExchange&) = delete;
  void isDone() { connection_ = nullptr; }

 private:
  CTcpClient* connection_;
};

}  // namespace

const VcoClientApi::RouteWords VcoClientApi::kWeighingWords = {
    result::kLcConnectionFail,
    "SndCmdToLC",
    "LC",
    "",
    {71, 76, 82, 86, 93, 98, 101, 102, 103, 104, 105}};

const VcoClientApi::RouteWords VcoClientApi::kPrintingWords = {
    result::kPrtConnectionFail,
    "SndCmdToPrinter",
    "Print",
    " ",
    {107, 112, 118, 122, 129, 134, 137, 138, 139, 140, 141}};

VcoClientApi::Route VcoClientApi::weighingRoute() {
  return {weighing_, weighingLock_, kWeighingWords};
}

VcoClientApi::Route VcoClientApi::printingRoute() {
  return {printing_, printingLock_, kPrintingWords};
}

void VcoClientApi::dropUnasked(const Route& route) {
  if (!route.connection->HasUnread()) return;
  NLog* const log = NLog::GetInstance();
  char unasked[kReplyCapacity];
  const int count = route.connection->RecvTimeout(unasked, sizeof(unasked), 0);
  if (count > 0) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.words.line.unasked,
              "[%s] Resync: %d bytes nobody asked for, connecting anew", route.words.name, count);
  } else {
    NLog::Log(log, kModuleDll, kLevelFailure, route.words.line.ended,
              "[%s] Resync: the connection had ended, connecting anew", route.words.name);
  }
  route.connection->Close();
}

bool VcoClientApi::isOutOfStep(const Route& route, bool readable, bool full) {
  NLog* const log = NLog::GetInstance();
  if (full) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.words.line.full,
              "[%s] Resync: the reply fills the buffer, closing the connection", route.words.name);
    return true;
  }
  if (!readable) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.words.line.unreadable,
              "[%s] Resync: unreadable reply, closing the connection", route.words.name);
    return true;
  }
  return false;
}

// A reply is what one receive delivers: there is no framing, and nothing looks for its end. A reply
// in two segments is read in part, and the rest answers the next request, unless resync is on.
//
// isReadable() tells whether the reply can be read; asked with resync only.
template <typename IsReadable>
unsigned VcoClientApi::exchange(const Route& route, const char* request, unsigned length,
                                char* reply, unsigned capacity, unsigned timeoutMs,
                                IsReadable isReadable) {
  NLog* const log = NLog::GetInstance();
  const char* const client = getClientName().c_str();
  if (request == nullptr || reply == nullptr) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.words.line.nullArgument,
              "[%s][%s] Input Param is NULL", client, route.words.name);
    return result::kInvalidParam;
  }
  if (route.connection == nullptr) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.words.line.noConnection, "[%s] %s Conn is NULL",
              route.words.name, route.words.connectionName);
    return static_cast<unsigned>(route.words.missingCode);
  }
  const ScopedLock lock(route.lock);
  if (resync_) dropUnasked(route);
  NLog::Log(log, kModuleDll, kLevelTraffic, route.words.line.sending,
            "[%s]==>[Zelkad][%s] Snd: %s.", client, route.words.name, request);
  const int sent = route.connection->Send(request, length);
  if (sent <= 0) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.words.line.sendFailed,
              "[%s] Snd failed, ret:%d.", route.words.name, sent);
    return result::kSocketInterrupt;
  }
  OpenExchange exchange(resync_ ? route.connection : nullptr);
  const int received = route.connection->RecvTimeout(reply, capacity, timeoutMs);
  if (received <= 0) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.words.line.receiveFailed,
              "[%s] Rcv failed:%s%d!", route.words.name, route.words.beforeFailedCount, received);
    if (resync_) {
      NLog::Log(log, kModuleDll, kLevelFailure, route.words.line.noReply,
                "[%s] Resync: no reply, closing the connection", route.words.name);
    }
    return result::kSocketInterrupt;
  }
  reply[received] = '\0';
  NLog::Log(log, kModuleDll, kLevelTraffic, route.words.line.received,
            "[%s]<==[Zelkad][%s] Rcv: %s", client, route.words.name, reply);
  const bool full = static_cast<unsigned>(received) == capacity;
  if (!resync_ || !isOutOfStep(route, full || isReadable(), full)) exchange.isDone();
  return result::kOk;
}

unsigned VcoClientApi::SndCmdToLC(const char* request, unsigned length, char* reply,
                                  unsigned capacity, unsigned timeoutMs) {
  return exchange(weighingRoute(), request, length, reply, capacity, timeoutMs,
                  [=] { return Reply(reply).hasResult(); });
}

unsigned VcoClientApi::SndCmdToPrinter(const char* request, unsigned length, char* reply,
                                       unsigned capacity, unsigned timeoutMs) {
  return exchange(printingRoute(), request, length, reply, capacity, timeoutMs,
                  [=] { return Reply(reply).hasResult(); });
}

VcoClientApi::Outcome VcoClientApi::command(const Route& route, Envelope& request, Reply& reply,
                                            unsigned timeoutMs) {
  const char* const text = request.text();
  const unsigned failure =
      exchange(route, text, request.length(), reply.room(), kReplyCapacity, timeoutMs, [&] {
        reply.parse();
        return reply.hasResult();
      });
  if (failure != result::kOk) return {false, static_cast<std::int32_t>(failure)};
  reply.parse();
  return {true, reply.result()};
}

unsigned VcoClientApi::plainCommand(const Route& route, Envelope& request) {
  Reply reply;
  return kept(command(route, request, reply).code);
}

std::int32_t VcoClientApi::wholeReplyCommand(const Route& route, Envelope& request, char* out,
                                             unsigned outLen, unsigned timeoutMs) {
  Reply reply;
  const Outcome outcome = command(route, request, reply, timeoutMs);
  if (!outcome.answered) return outcome.code;
  return copyWholeReply(out, outLen, reply.raw(), outcome.code);
}

std::int32_t VcoClientApi::readCommand(Envelope& request, Reply& reply, unsigned most) {
  const Outcome outcome = command(weighingRoute(), request, reply);
  if (!outcome.answered) return outcome.code;
  return std::strlen(reply.raw()) <= most ? outcome.code : result::kBufferNotEnough;
}

unsigned VcoClientApi::rawCommand(const Route& route, Envelope& request, char* out, unsigned outLen,
                                  unsigned timeoutMs) {
  if (out != nullptr) {
    return static_cast<unsigned>(wholeReplyCommand(route, request, out, outLen, timeoutMs));
  }
  Reply reply;
  return static_cast<unsigned>(command(route, request, reply, timeoutMs).code);
}

unsigned VcoClientApi::kept(std::int32_t code) {
  lastError_.store(code, std::memory_order_relaxed);
  return static_cast<unsigned>(code);
}

}  // namespace tolvex

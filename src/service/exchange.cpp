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

VcoClientApi::Route VcoClientApi::weighingRoute() {
  return {weighing_,
          weighingLock_,
          result::kLcConnectionFail,
          "SndCmdToLC",
          "LC",
          "",
          {71, 76, 82, 86, 93, 98, 101, 102, 103, 104, 105}};
}

VcoClientApi::Route VcoClientApi::printingRoute() {
  return {printing_,
          printingLock_,
          result::kPrtConnectionFail,
          "SndCmdToPrinter",
          "Print",
          " ",
          {107, 112, 118, 122, 129, 134, 137, 138, 139, 140, 141}};
}

void VcoClientApi::dropUnasked(const Route& route) {
  if (!route.connection->HasUnread()) return;
  NLog* const log = NLog::GetInstance();
  ReplyText unasked;
  const int count = route.connection->RecvTimeout(unasked.text, kReplyCapacity, 0);
  if (count > 0) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.unasked,
              "[%s] Resync: %d bytes nobody asked for, connecting anew", route.name, count);
  } else {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.ended,
              "[%s] Resync: the connection had ended, connecting anew", route.name);
  }
  route.connection->Close();
}

bool VcoClientApi::isOutOfStep(const Route& route, const char* reply, bool full) {
  NLog* const log = NLog::GetInstance();
  if (full) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.full,
              "[%s] Resync: the reply fills the buffer, closing the connection", route.name);
    return true;
  }
  if (Reply(reply).text("result") == nullptr) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.unreadable,
              "[%s] Resync: unreadable reply, closing the connection", route.name);
    return true;
  }
  return false;
}

unsigned VcoClientApi::SndCmdToLC(const char* request, unsigned length, char* reply,
                                  unsigned capacity, unsigned timeoutMs) {
  return exchange(weighingRoute(), request, length, reply, capacity, timeoutMs);
}

unsigned VcoClientApi::SndCmdToPrinter(const char* request, unsigned length, char* reply,
                                       unsigned capacity, unsigned timeoutMs) {
  return exchange(printingRoute(), request, length, reply, capacity, timeoutMs);
}

// A reply is what one receive delivers: there is no framing, and nothing looks for its end. A reply
// in two segments is read in part, and the rest answers the next request, unless resync is on.
unsigned VcoClientApi::exchange(const Route& route, const char* request, unsigned length,
                                char* reply, unsigned capacity, unsigned timeoutMs) {
  NLog* const log = NLog::GetInstance();
  const char* const client = getClientName().c_str();
  if (request == nullptr || reply == nullptr) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.nullArgument,
              "[%s][%s] Input Param is NULL", client, route.name);
    return result::kInvalidParam;
  }
  if (route.connection == nullptr) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.noConnection, "[%s] %s Conn is NULL",
              route.name, route.connectionName);
    return static_cast<unsigned>(route.missingCode);
  }
  const ScopedLock lock(route.lock);
  if (resync_) dropUnasked(route);
  NLog::Log(log, kModuleDll, kLevelTraffic, route.line.sending, "[%s]==>[Zelkad][%s] Snd: %s.",
            client, route.name, request);
  const int sent = route.connection->Send(request, length);
  if (sent <= 0) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.sendFailed, "[%s] Snd failed, ret:%d.",
              route.name, sent);
    return result::kSocketInterrupt;
  }
  OpenExchange exchange(resync_ ? route.connection : nullptr);
  const int received = route.connection->RecvTimeout(reply, capacity, timeoutMs);
  if (received <= 0) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.receiveFailed, "[%s] Rcv failed:%s%d!",
              route.name, route.beforeFailedCount, received);
    if (resync_) {
      NLog::Log(log, kModuleDll, kLevelFailure, route.line.noReply,
                "[%s] Resync: no reply, closing the connection", route.name);
    }
    return result::kSocketInterrupt;
  }
  NLog::Log(log, kModuleDll, kLevelTraffic, route.line.received, "[%s]<==[Zelkad][%s] Rcv: %s",
            client, route.name, reply);
  if (!resync_ || !isOutOfStep(route, reply, static_cast<unsigned>(received) == capacity)) {
    exchange.isDone();
  }
  return result::kOk;
}

VcoClientApi::Outcome VcoClientApi::command(const Route& route, Envelope& request, ReplyText& reply,
                                            unsigned timeoutMs) {
  const char* const text = request.text();
  const unsigned failure =
      exchange(route, text, request.length(), reply.text, kReplyCapacity, timeoutMs);
  if (failure != result::kOk) return {false, static_cast<std::int32_t>(failure)};
  return {true, resultOf(reply)};
}

unsigned VcoClientApi::plainCommand(const Route& route, Envelope& request) {
  ReplyText reply;
  return kept(command(route, request, reply).code);
}

std::int32_t VcoClientApi::wholeReplyCommand(const Route& route, Envelope& request, char* out,
                                             unsigned outLen, unsigned timeoutMs) {
  ReplyText reply;
  const Outcome outcome = command(route, request, reply, timeoutMs);
  if (!outcome.answered) return outcome.code;
  return copyWholeReply(out, outLen, reply.text, outcome.code);
}

unsigned VcoClientApi::rawCommand(const Route& route, Envelope& request, char* out, unsigned outLen,
                                  unsigned timeoutMs) {
  if (out != nullptr) {
    return static_cast<unsigned>(wholeReplyCommand(route, request, out, outLen, timeoutMs));
  }
  ReplyText reply;
  return static_cast<unsigned>(command(route, request, reply, timeoutMs).code);
}

unsigned VcoClientApi::kept(std::int32_t code) {
  lastError_.store(code, std::memory_order_relaxed);
  return static_cast<unsigned>(code);
}

}  // namespace tolvex

#include "log/nlog.h"
#include "service/envelope.h"
#include "service/reply.h"
#include "service/reply_copy.h"
#include "service/result_codes.h"
#include "service/route.h"

namespace tolvex {

VcoClientApi::Route VcoClientApi::weighingRoute() {
  return {weighing_, weighingLock_,           result::kLcConnectionFail, "SndCmdToLC", "LC",
          "",        {71, 76, 82, 86, 93, 98}};
}

VcoClientApi::Route VcoClientApi::printingRoute() {
  return {printing_, printingLock_, result::kPrtConnectionFail,    "SndCmdToPrinter",
          "Print",   " ",           {107, 112, 118, 122, 129, 134}};
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
// in two segments is read in part, and the rest answers the next request.
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
  NLog::Log(log, kModuleDll, kLevelTraffic, route.line.sending, "[%s]==>[Zelkad][%s] Snd: %s.",
            client, route.name, request);
  const int sent = route.connection->Send(request, length);
  if (sent <= 0) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.sendFailed, "[%s] Snd failed, ret:%d.",
              route.name, sent);
    return result::kSocketInterrupt;
  }
  const int received = route.connection->RecvTimeout(reply, capacity, timeoutMs);
  if (received <= 0) {
    NLog::Log(log, kModuleDll, kLevelFailure, route.line.receiveFailed, "[%s] Rcv failed:%s%d!",
              route.name, route.beforeFailedCount, received);
    return result::kSocketInterrupt;
  }
  NLog::Log(log, kModuleDll, kLevelTraffic, route.line.received, "[%s]<==[Zelkad][%s] Rcv: %s",
            client, route.name, reply);
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

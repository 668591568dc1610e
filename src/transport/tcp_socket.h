// One IPv4 TCP socket.
#pragma once

#include <cstdint>
#include <string>

#include "platform/socket.h"
#include "transport/socket_errors.h"

namespace tolvex {

// Owns one socket handle from creation to shutdown. Failures are told by results; the reason stays
// in lastError() and in the log (module "Socket"). Not for two threads at once.
class CTcpSocket {
 public:
  // Creates the handle. Where that fails the object exists all the same, with an invalid handle
  // that Connect refuses.
  CTcpSocket();
  // Shuts the connection down and releases the handle (see TOLVEX_RELEASE_SOCKETS).
  ~CTcpSocket();
  CTcpSocket(const CTcpSocket&) = delete;
  CTcpSocket& operator=(const CTcpSocket&) = delete;

  // Connects to a dotted address or host name, and waits for it at most timeoutMs. Returns false on
  // a time-out, an address that cannot be resolved and a connect that fails at once. A connect that
  // is refused during the wait counts as connected: the first SendOnce fails.
  bool Connect(const std::string& host, std::uint32_t port, std::uint32_t timeoutMs);

  // One send; returns the bytes accepted, possibly fewer than length, or -1.
  int SendOnce(const char* data, unsigned length);

  // One blocking receive; returns the bytes received, 0 at the end of the connection, or -1.
  int ReceiveOnce(char* buffer, unsigned length);

  // One receive after a wait of at most timeoutMs. Returns the bytes received, 0 on a time-out or
  // when length is 0, -1 on every failure and at the end of the connection.
  int ReceiveWait(char* buffer, unsigned length, std::uint32_t timeoutMs);

  // Whether a receive would not have to wait.
  bool HasUnread();

  void ShutDown();

  SocketErrorCode lastError() const { return lastError_; }
  bool isBlocking() const { return blocking_; }

 private:
  // 1 or more when something happened, 0 on a time-out, -1 on failure and on an exceptional socket.
  int WaitReady(std::uint32_t timeoutMs, bool forWrite);
  void SetBlocking(bool on);
  // The address in host byte order, kNoAddress when there is none.
  static std::uint32_t ResolveAddress(const std::string& host);
  // Logs the thread's last socket error, if there is one, and translates it.
  static SocketErrorCode TranslateLastError();
  static void LogSystemError();

  platform::net::Socket handle_;
  bool blocking_ = true;
  SocketErrorCode lastError_ = kSocketOk;
};

}  // namespace tolvex

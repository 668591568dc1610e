#include "transport/tcp_socket.h"

#include "log/nlog.h"

namespace tolvex {
namespace {

namespace net = platform::net;

// The sockets of this process. The first one starts the socket library, the last one ends its use.
class LiveSockets {
 public:
  void add() {
    const ScopedLock lock(lock_);
    if (count_++ == 0) net::startUp();
  }
  void remove() {
    const ScopedLock lock(lock_);
    if (count_-- == 1) net::cleanUp();
  }

 private:
  RecursiveLock lock_;
  std::uint32_t count_ = 0;
};

LiveSockets& liveSockets() {
  static LiveSockets* const sockets = new LiveSockets;  // used until the process is gone
  return *sockets;
}

}  // namespace

CTcpSocket::CTcpSocket() {
  liveSockets().add();
  handle_ = net::createTcp();
  if (handle_ == net::kInvalidSocket) {
    NLog::Log(NLog::GetInstance(), kModuleSocket, kLevelFailure, 21,
              "[CTcpSocket] Create Socket Fail!");
  }
}

CTcpSocket::~CTcpSocket() {
  ShutDown();
#ifdef TOLVEX_RELEASE_SOCKETS
  if (handle_ != net::kInvalidSocket) net::release(handle_);
#endif
  liveSockets().remove();
}

void CTcpSocket::ShutDown() { net::shutDown(handle_); }

bool CTcpSocket::Connect(const std::string& host, std::uint32_t port, std::uint32_t timeoutMs) {
  if (handle_ == net::kInvalidSocket) {
    NLog::Log(NLog::GetInstance(), kModuleSocket, kLevelFailure, 128,
              "[Connect] Socket is Invalid!");
    return false;
  }
  const std::uint32_t address = ResolveAddress(host);
  if (address == net::kNoAddress) {
    NLog::Log(NLog::GetInstance(), kModuleSocket, kLevelFailure, 138, "[Connect] Invalid IP:%s",
              host.c_str());
    return false;
  }
  const bool wasBlocking = blocking_;
  SetBlocking(false);
  const int connected = net::connectTo(handle_, address, static_cast<std::uint16_t>(port));
  if (connected < 0 && translateSocketError(net::lastError()) != kSocketWouldBlock) {
    lastError_ = TranslateLastError();
    return false;
  }
  if (WaitReady(timeoutMs, true) == 0) return false;
  if (wasBlocking) SetBlocking(true);
  return true;
}

int CTcpSocket::WaitReady(std::uint32_t timeoutMs, bool forWrite) {
  net::Readiness readiness = net::wait(handle_, timeoutMs, forWrite);
  while (readiness.count == -1) {
    lastError_ = TranslateLastError();
    if (lastError_ != kSocketWouldBlock) return -1;
    readiness = net::wait(handle_, timeoutMs, forWrite);
  }
  if (readiness.count < 1 || readiness.ready || !readiness.exceptional) return readiness.count;
  int error = 0;
  // What is translated is the thread's last error, not the socket's: the latter is only fetched, as
  // that clears it.
  if (net::pendingError(handle_, error)) lastError_ = TranslateLastError();
  return -1;
}

int CTcpSocket::SendOnce(const char* data, unsigned length) {
  for (;;) {
    const int sent = net::send(handle_, data, length);
    if (sent >= 0) return sent;
    lastError_ = TranslateLastError();
    if (lastError_ != kSocketWouldBlock) return -1;
  }
}

int CTcpSocket::ReceiveOnce(char* buffer, unsigned length) {
  const int received = net::receive(handle_, buffer, length);
  if (received == -1) lastError_ = TranslateLastError();
  return received;
}

int CTcpSocket::ReceiveWait(char* buffer, unsigned length, std::uint32_t timeoutMs) {
  if (handle_ == net::kInvalidSocket) return -1;
  if (length == 0) return 0;
  const int ready = WaitReady(timeoutMs, false);
  if (ready < 1) return ready;
  const int received = ReceiveOnce(buffer, length);
  return received == 0 ? -1 : received;
}

bool CTcpSocket::HasUnread() { return WaitReady(0, false) != 0; }

void CTcpSocket::SetBlocking(bool on) {
  if (net::setNonBlocking(handle_, !on)) {
    blocking_ = on;
  } else {
    lastError_ = TranslateLastError();
  }
}

std::uint32_t CTcpSocket::ResolveAddress(const std::string& host) {
  const std::uint32_t address = net::parseAddress(host.c_str());
  if (address != net::kNoAddress) return address;
  const std::uint32_t found = net::lookUpHost(host.c_str());
  if (found == net::kNoAddress) LogSystemError();
  return found;
}

SocketErrorCode CTcpSocket::TranslateLastError() {
  LogSystemError();
  return translateSocketError(net::lastError());
}

void CTcpSocket::LogSystemError() {
  const int error = net::lastError();
  if (error != 0) {
    NLog::Log(NLog::GetInstance(), kModuleSocket, kLevelFailure, 108, "Error: %d", error);
  }
}

}  // namespace tolvex

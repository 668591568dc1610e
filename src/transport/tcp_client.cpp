#include "transport/tcp_client.h"

#include "log/nlog.h"

namespace tolvex {

CTcpClient::CTcpClient(const char* host, unsigned port) : host_(host), port_(port) {}

bool CTcpClient::Open() {
  if (socket_) Close();
  socket_ = std::make_unique<CTcpSocket>();
  if (socket_->Connect(host_, port_, kConnectTimeoutMs)) return true;
  Close();
  return false;
}

void CTcpClient::Close() {
  if (!socket_) return;
  socket_->ShutDown();
  socket_.reset();
}

int CTcpClient::Send(const char* data, unsigned length) {
  if (!socket_ && !Open()) {
    NLog::Log(NLog::GetInstance(), kModuleSocket, kLevelFailure, 44,
              "[CTcpClient::Send] Open conn fail");
    return -1;
  }
  const int sent = socket_->SendOnce(data, length);
  if (sent > 0) return sent;
  NLog::Log(NLog::GetInstance(), kModuleSocket, kLevelFailure, 52,
            "[CTcpClient::Send] Send fail, ret:%d", sent);
  Close();
  return Open() ? socket_->SendOnce(data, length) : sent;
}

int CTcpClient::Recv(char* buffer, std::size_t length) {
  if (!socket_ && !Open()) {
    NLog::Log(NLog::GetInstance(), kModuleSocket, kLevelFailure, 68,
              "[CTcpClient::Recv] Open conn fail");
    return -1;
  }
  return socket_->ReceiveOnce(buffer, static_cast<unsigned>(length));
}

int CTcpClient::RecvTimeout(char* buffer, unsigned length, unsigned timeoutMs) {
  if (!socket_) return -1;
  return socket_->ReceiveWait(buffer, length, timeoutMs);
}

bool CTcpClient::HasUnread() { return socket_ && socket_->HasUnread(); }

}  // namespace tolvex
